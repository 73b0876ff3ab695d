// The review of an import: what is shown and asked, what is written by "Import", and what is not.
#include <gtest/gtest.h>

#include <fstream>

#include "controls/pasted_cells.h"
#include "forms/editor_fixture.h"
#include "import/zip_bytes.h"
#include "journal/frmjrnl.h"
#include "review/frmimport.h"
#include "support/growth.h"

namespace quillet::support {
namespace {

class ReviewTest : public EntryTest {
 protected:
  frmimport& paste(const std::string& cells) {
    EXPECT_TRUE(pasteCells(form.vsfm, cells));
    return *shownPage();
  }
  frmimport* shownPage() { return dynamic_cast<frmimport*>(context().openForms.active()); }
  frmimport& openFile(const std::string& name, const std::string& bytes) {
    const auto path = folder_.path() / name;
    std::ofstream(path, std::ios::binary) << bytes;
    dialogs.queueFile(path.string());
    form.click(form.mnuimport);
    return *shownPage();
  }
  static void goTo(frmimport& page, const std::string& row) {
    page.vsfi.setCurrent(page.vsfi.find(1, row));
  }
  static void setGroup(frmimport& page, const std::string& row, const std::string& group) {
    goTo(page, row);
    page.click(page.mnugroup);
    type(page.txtgroup, group);
    page.press(keys::Enter);
  }
  // Of each row: tick, number, kind, ledger, state, group, year, remark.
  static Rows list(const frmimport& page) {
    Rows found;
    for (const auto& cells : shown(page.vsfi)) {
      found.push_back(
          {cells[0], cells[1], cells[2], cells[4], cells[5], cells[6], cells[10], cells[11]});
    }
    return found;
  }
  static std::string cell(const frmimport& page, const std::string& row, const char* column) {
    return page.vsfi.cell(page.vsfi.find(1, row), page.vsfi.columnNamed(column));
  }
  Rows ledgers() {
    return rows("select particular,allgrp,amt,nid from " + table +
                " t join Mast_Part p on p.PartId=t.partid join Mast_AllGrp g on g.ALLID=t.allid "
                "where code_no='C1' order by particular");
  }
  // Passed behind the forms' back: the voucher's line, and its amount in the year.
  void post(const std::string& ledgerName, const std::string& groupName, int amount) {
    const std::string pair =
        std::to_string(ledger(ledgerName)) + ',' + std::to_string(group(groupName));
    exec("insert into JRNL" + table.substr(3) + " values('C1',1,1,'2008-05-01'," + pair + ',' +
         std::to_string(amount) + ",'')");
    exec("update " + table + " set amt=amt+" + std::to_string(amount) +
         " where partid=" + std::to_string(ledger(ledgerName)) + " and code_no='C1'");
  }

  TemporaryFolder folder_;
};

const char* const pastedBook =
    "Particulars\tGroup\tDebit\tCredit\n"
    "Cash\tBANKS\t1,00,000.50\t\n"
    "Amit \\ \"O'Neil\" \xF0\x9F\x98\x80\tCAPITAL\t\t70000\n"
    "=1+1\tSALES\t\t30000.50\n"
    "Total\t\t100000.50\t100000.50\n";

TEST_F(ReviewTest, PastedCellsBecomeLines) {
  frmimport& page = paste(pastedBook);
  EXPECT_EQ(list(page), (Rows{{"", "1", "Skipped", "", "", "", "", "The headings"},
                              {"1", "2", "Ledger", "Cash", "New ledger", "BANKS", "", ""},
                              {"1", "3", "Ledger", "Amit \\ \"O'Neil\" \xF0\x9F\x98\x80",
                               "New ledger", "CAPITAL", "", ""},
                              {"1", "4", "Ledger", "=1+1", "New ledger", "SALES", "", ""},
                              {"", "5", "Total", "", "", "", "", "The source's total"}}));
  for (const auto& totals : shown(page.vsft)) {
    EXPECT_EQ(Texts(totals.begin() + 1, totals.end()), (Texts{"100,000.50", "100,000.50", ""}));
  }
  EXPECT_TRUE(ledgers().empty()) << "nothing is written before";
  page.click(page.cmdimport);
  EXPECT_EQ(messages(), Texts{"Lines entered: 3, changed: 0, the same: 0, taken out: 0. Rows left "
                              "out: 2."});
  EXPECT_EQ(context().openForms.active(), &form);
  EXPECT_EQ(ledgers(), (Rows{{"=1+1", "SALES", "30000.5", "2"},
                             {"Amit \\ \"O'Neil\" \xF0\x9F\x98\x80", "CAPITAL", "70000", "2"},
                             {"Cash", "BANKS", "100000.5", "1"}}));
  EXPECT_EQ(form.vsfm.rows(), 3);
  EXPECT_EQ(form.txtdiff.text(), "");
  EXPECT_EQ(printed(false)[1], (Texts{"2", "Cash", "BANKS", "", "100000.50 DR", "Entered"}));
}

TEST_F(ReviewTest, AsksWhatItCannotKnow) {
  put(table, "1", "Amit & Co.", "SALES", "5,2");
  form.click(form.mnurefresh);
  frmimport& page = paste(
      "Particulars\tGroup\tDebit\tCredit\nAmit and Co\tSALES\t\t10\nNewish\tNO SUCH\t10\t\n"
      "Other\t\tabc\t\nCash\tBANKS\t4\t\n");
  EXPECT_EQ(page.vsfi.cell(page.vsfi.current(), 1), "2") << "the first question";
  page.click(page.cmdimport);
  EXPECT_EQ(messages().size(), 1U);
  page.click(page.mnunearest);
  EXPECT_EQ(cell(page, "2", "Ledger"), "Amit & Co.");
  EXPECT_EQ(cell(page, "2", "In the Year"), "5.00 CR");
  page.click(page.cmdnext);
  EXPECT_EQ(page.vsfi.cell(page.vsfi.current(), 1), "3");
  setGroup(page, "3", "ren");
  EXPECT_EQ(cell(page, "3", "Group"), "RENT");
  page.click(page.cmdnext);
  EXPECT_EQ(page.vsfi.cell(page.vsfi.current(), 1), "4");
  page.cbokind.choose(page.cbokind.find("Skipped"));
  // Debit and credit differ by 4: not without an explicit Yes.
  dialogs.queueAnswer(Answer::No);
  page.click(page.cmdimport);
  EXPECT_EQ(ledgers().size(), 1U);
  goTo(page, "5");
  page.vsfi.tick(page.vsfi.current(), false);
  dialogs.queueAnswer(Answer::Yes);
  page.click(page.cmdimport);
  EXPECT_EQ(ledgers(), (Rows{{"Amit & Co.", "SALES", "10", "2"}, {"Newish", "RENT", "10", "1"}}));
  // What was decided is known the next time.
  frmimport& again = paste("Particulars\tDebit\tCredit\nAmit and Co\t\t10\nNewish\t10\t\n");
  EXPECT_EQ(list(again)[1],
            (Texts{"", "2", "Ledger", "Amit & Co.", "Same", "SALES", "10.00 CR", ""}));
  EXPECT_EQ(cell(again, "3", "State"), "Same");
  again.press(keys::Escape);
  EXPECT_EQ(context().openForms.active(), &form);
}

TEST_F(ReviewTest, DoubtsAboutColumnsAreAskedUntilAPersonChooses) {
  frmimport& page = paste(
      "Particulars\tGroup\tDebit\tCredit\tDebit\tCredit\nCash\tBANKS\t9\t\t5\t\n"
      "X\tSALES\t\t9\t\t5\n");
  dialogs.queueAnswer(Answer::No);
  page.click(page.cmdimport);
  const Texts told = messages();
  ASSERT_EQ(told.size(), 1U);
  EXPECT_NE(told[0].find("More than one column"), std::string::npos) << told[0];
  EXPECT_TRUE(ledgers().empty());
  page.cbocolumn[2].choose(page.cbocolumn[2].findData(5));
  page.cbocolumn[3].choose(page.cbocolumn[3].findData(6));
  page.click(page.cmdimport);
  EXPECT_EQ(ledgers(), (Rows{{"Cash", "BANKS", "5", "1"}, {"X", "SALES", "5", "2"}}));
}

TEST_F(ReviewTest, SelectedRowsAreChangedTogether) {
  frmimport& page = paste("Particulars\tDebit\tCredit\nOne\t1\t\nTwo\t2\t\nThree\t\t3\n");
  // From the headings, which have no group of their own.
  goTo(page, "1");
  EXPECT_FALSE(page.mnugroup.enabled());
  page.vsfi.selection.extendTo(page.vsfi.find(1, "3"));
  page.click(page.mnugroup);
  type(page.txtgroup, "RENT");
  page.press(keys::Enter);
  EXPECT_EQ(cell(page, "2", "Group") + cell(page, "3", "Group") + cell(page, "4", "Group"),
            "RENTRENT");
  dialogs.queueAnswer(Answer::Yes);
  page.press(keys::Escape);
}

TEST_F(ReviewTest, AgainShowsWhatDiffersAndKeepsVouchersOnTop) {
  paste(pastedBook);
  shownPage()->click(shownPage()->cmdimport);
  post("Cash", "BANKS", 25);
  put(table, "9", "Gone", "RENT", "3,1");
  put(table, "10", "Stays", "RENT", "4,1");
  form.click(form.mnurefresh);
  messages();
  frmimport& page = paste(
      "Particulars\tGroup\tDebit\tCredit\nCash\tBANKS\t100001.50\t\n=1+1\tSALES\t\t30000.50\n"
      "Amit \\ \"O'Neil\" \xF0\x9F\x98\x80\tCAPITAL\t\t0\n");
  EXPECT_EQ(cell(page, "2", "In the Year"), host().formatgen(100000.5, "#,##0.00") + " DR");
  EXPECT_EQ(cell(page, "2", "State"), "Changed");
  EXPECT_EQ(cell(page, "2", "Remark"), "Vouchers of 25.00 DR come on top.");
  EXPECT_EQ(cell(page, "3", "State"), "Same");
  EXPECT_FALSE(page.vsfi.ticked(page.vsfi.find(1, "3")));
  EXPECT_EQ(cell(page, "4", "State") + cell(page, "4", "In the Year"), "Changed70,000.00 CR");
  const int gone = page.vsfi.find(4, "Gone");
  EXPECT_FALSE(page.vsfi.ticked(gone));
  page.vsfi.tick(gone, true);
  dialogs.queueAnswer(Answer::Yes);  // the source does not agree
  page.click(page.cmdimport);
  EXPECT_EQ(ledgers(), (Rows{{"=1+1", "SALES", "30000.5", "2"},
                             {"Cash", "BANKS", "100026.5", "1"},
                             {"Stays", "RENT", "4", "1"}}));
}

TEST_F(ReviewTest, AsksAboutALedgerThatCameUnderAnotherGroup) {
  put(table, "1", "Cash", "RENT", "10,1");
  form.click(form.mnurefresh);
  frmimport& page = paste("Particulars\tGroup\tDebit\tCredit\nCash\tBANKS\t10\t\nX\tSALES\t\t10\n");
  page.click(page.cmdimport);
  const Texts told = messages();
  ASSERT_EQ(told.size(), 1U);
  EXPECT_NE(told[0].find("stands under \"RENT\""), std::string::npos) << told[0];
  page.click(page.cmdnext);
  page.click(page.cmdconfirm);
  EXPECT_EQ(cell(page, "2", "Remark"), "");
  setGroup(page, "2", "RENT");
  page.click(page.cmdimport);
  EXPECT_EQ(ledgers(), (Rows{{"Cash", "RENT", "10", "1"}, {"X", "SALES", "10", "2"}}));
}

TEST_F(ReviewTest, TellsOfTheSameFileAndReadsItOtherwise) {
  const std::string csv = "Particulars;Group;Debit;Credit\nCaf\xE9;SALES;;5,00\nBank;BANKS;5,00;\n";
  frmimport& page = openFile("tb.csv", csv);
  EXPECT_EQ(page.cboencoding.text(), "windows-1252");
  EXPECT_EQ(page.cbodelimiter.text(), "Semicolon");
  EXPECT_EQ(cell(page, "2", "Ledger"), "Caf\xC3\xA9");
  page.cbodelimiter.choose(page.cbodelimiter.find("Comma"));
  EXPECT_NE(cell(page, "2", "Particulars"), "Caf\xC3\xA9");
  page.cbodelimiter.choose(page.cbodelimiter.find("Semicolon"));
  page.click(page.cmdimport);
  EXPECT_EQ(ledgers(), (Rows{{"Bank", "BANKS", "5", "1"}, {"Caf\xC3\xA9", "SALES", "5", "2"}}));
  messages();
  frmimport& again = openFile("other.csv", csv);
  const Texts told = messages();
  ASSERT_EQ(told.size(), 1U);
  EXPECT_NE(told[0].find("imported into the year before: tb.csv"), std::string::npos) << told[0];
  again.click(again.cmdimport);
  EXPECT_NE(messages().at(0).find("nothing to enter"), std::string::npos);
}

TEST_F(ReviewTest, ReadsTheSheetThatIsChosen) {
  const auto row = [](const char* name, const char* debit, const char* credit) {
    std::string cells;
    for (const char* text : {name, debit, credit}) {
      cells += std::string("<c t=\"inlineStr\"><is><t>") + text + "</t></is></c>";
    }
    return "<row>" + cells + "</row>";
  };
  const std::string heading = row("Particulars", "Debit", "Credit");
  const std::string bytes = workbookOfTwo(
      {.rows = heading + row("Cash", "5", "") + row("Sales", "", "5"),
       .sheets = R"(<sheet name="TB" r:id="r1"/><sheet name="Old" state="hidden" r:id="r4"/>)"},
      heading + row("Rent", "7", ""));
  frmimport& page = openFile("two.xlsx", bytes);
  EXPECT_EQ(page.cbosheet.items(), (Texts{"TB", "Old (hidden)"}));
  EXPECT_EQ(cell(page, "2", "Ledger"), "Cash");
  setGroup(page, "2", "BANKS");
  page.cbosheet.choose(2);
  EXPECT_EQ(cell(page, "2", "Ledger"), "Rent");
  EXPECT_EQ(cell(page, "2", "Group Is"), "Missing") << "a choice was another row's";
}

TEST_F(ReviewTest, AFailureLeavesTheBooksAndThePage) {
  const auto arrange = [&] {
    if (frmimport* page = shownPage()) {
      dialogs.queueAnswer(Answer::Yes);
      page->close();
    }
    exec("delete from " + table);
    exec("delete from SuiteMisc where Section='Import'");
    exec("delete from Mast_Part where Particular in ('New One','Changed')");
    exec("delete history from Mast_Part");  // they get the same numbers each time
    put(table, "1", "Changed", "RENT", "3,1");
    open("C1", 2008);
    frmimport& page =
        paste("Particulars\tGroup\tDebit\tCredit\nNew One\tSALES\t\t10\nChanged\tRENT\t10\t\n");
    goTo(page, "2");
    setGroup(page, "2", "CAPITAL");
  };
  arrange();
  statements();
  shownPage()->click(shownPage()->cmdimport);
  const Texts sent = statements();
  const auto commit = std::find(sent.begin(), sent.end(), "commit");
  ASSERT_NE(commit, sent.end());
  failEachStatement({.what = "the import",
                     .arrange = arrange,
                     .act = [&] { shownPage()->click(shownPage()->cmdimport); },
                     .result = [&] { return ledgers(); },
                     .next = {{"again",
                               [&] {
                                 if (shownPage()) shownPage()->click(shownPage()->cmdimport);
                               }}},
                     .place = "frmimport",
                     .stops = false,
                     .behind = static_cast<std::size_t>(sent.end() - commit) - 1,
                     .check =
                         [&] {
                           const Texts told = frontEnd.notices().open();
                           EXPECT_NE(told.at(0).find("nothing was entered"), std::string::npos);
                         }});
}

TEST_F(ReviewTest, OtherEndsAreSaid) {
  frmimport& page = paste(pastedBook);
  setGroup(page, "2", "RENT");
  const Rows before = books();
  host().stopWork(2);
  page.click(page.cmdimport);
  EXPECT_EQ(messages(), Texts{"Stopped. Nothing was imported."});
  EXPECT_EQ(books(), before);
  put(table, "1", "Cash", "RENT", "3,1");
  page.click(page.cmdimport);
  EXPECT_EQ(messages().size(), 1U);
  EXPECT_EQ(cell(page, "2", "State"), "Changed") << "compared anew, and the choice stands";
  EXPECT_EQ(ledgers().size(), 1U);
  exec("delete from master where code_no='C1'");
  page.click(page.cmdimport);
  EXPECT_EQ(messages(), Texts{"The year is no longer there. Nothing was imported."});
  dialogs.queueAnswer(Answer::No);
  page.press(keys::Escape);
  EXPECT_EQ(shownPage(), &page);
  dialogs.queueAnswer(Answer::Yes);
  page.press(keys::Escape);
  EXPECT_EQ(shownPage(), nullptr);
  EXPECT_EQ(log(), Texts{});
}

TEST_F(ReviewTest, ThePreviousYearTakesNone) {
  addYear("C1", 2007, {{"Cash", "BANKS", 5}});
  dialogs.queueAnswer(Answer::No);
  open("C1", 2008);
  messages();
  form.click(form.mnuyrs[1]);
  EXPECT_TRUE(pasteCells(form.txtpart, pastedBook));
  EXPECT_EQ(messages().size(), 1U);
  EXPECT_EQ(shownPage(), nullptr);
}

TEST_F(ReviewTest, ThousandsOfRowsTakeSeconds) {
  int ledgersMade = 0;
  const auto work = [&](int count) {
    std::string cells = "Particulars\tGroup\tDebit\tCredit\n";
    for (int i = 0; i < count; ++i) {
      cells += "Ledger number " + std::to_string(ledgersMade++) + "\tBANKS\t" +
               (i % 2 == 0 ? "10\t\n" : "\t10\n");
    }
    frmimport& page = paste(cells);
    goTo(page, std::to_string(count / 5 * 4));
    page.focus(page.vsfi);
    page.press(keys::Space);
    page.press(keys::Space);
    page.click(page.cmdimport);
    EXPECT_EQ(value("select count(*) from " + table + " where code_no='C1'"),
              std::to_string(ledgersMade));
  };
  EXPECT_LT(growthTenfold(500, work), 30);
}

}  // namespace
}  // namespace quillet::support
