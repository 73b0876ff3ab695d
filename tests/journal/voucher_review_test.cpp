// The review of an import of vouchers, from the journal: what is shown, what "Import" enters, and
// what stays out.
#include <fstream>

#include "controls/pasted_cells.h"
#include "journal_fixture.h"
#include "review/frmvchimport.h"

namespace quillet::support {
namespace {

const char* const headings = "Date\tVoucher No\tParticulars\tGroup\tDebit\tCredit\tNarration\n";

class VoucherReviewTest : public JournalTest {
 protected:
  VoucherReviewTest() {
    table_ = addYear("C1", 2008, {{"Cash", "BANKS", 500}, {"Amit & Co.", "CAPITAL", -500}});
    put(1, 1, "Cash", "BANKS", 5, "Old");
    put(1, 2, "Amit & Co.", "CAPITAL", -5, "Old");
    open("C1", 2008);
  }
  ~VoucherReviewTest() override {
    if (!shownPage()) return;
    yes();
    shownPage()->close();
  }
  frmvchimport* shownPage() { return dynamic_cast<frmvchimport*>(context().openForms.active()); }
  frmvchimport& paste(const std::string& rows) {
    EXPECT_TRUE(pasteCells(journal().vsf, headings + rows));
    return *shownPage();
  }
  frmvchimport& openFile(const std::string& name, const std::string& rows) {
    const auto path = folder_.path() / name;
    std::ofstream(path, std::ios::binary) << headings << rows;
    dialogs.queueFile(path.string());
    EXPECT_TRUE(journal().click(journal().mnuimport));
    return *shownPage();
  }
  static void goTo(frmvchimport& page, const std::string& row) {
    page.vsfi.setCurrent(page.vsfi.find(1, row));
  }
  static void setGroup(frmvchimport& page, const std::string& row, const std::string& group) {
    goTo(page, row);
    page.click(page.mnugroup);
    type(page.txtgroup, group);
    page.press(keys::Enter);
  }
  static std::string cell(const frmvchimport& page, const std::string& row, const char* column) {
    return page.vsfi.cell(page.vsfi.find(1, row), page.vsfi.columnNamed(column));
  }
  // Of each row: tick, number, voucher, what that is, ledger, state, group, remark.
  static Rows list(const frmvchimport& page) {
    Rows found;
    for (const auto& cells : shown(page.vsfi)) {
      found.push_back(
          {cells[0], cells[1], cells[2], cells[4], cells[5], cells[6], cells[7], cells[11]});
    }
    return found;
  }
  Rows journalRows() {
    return rows(
        "select VID,VDate,Particular,Amount,VNar from JRNL_1 j join Mast_Part p on "
        "p.PartId=j.PartId where code_no='C1' order by VID,LSrNo");
  }

  std::string table_;
  TemporaryFolder folder_;
};

const char* const book =
    "02/06/2008\t1\tCash\t\t5\t\tOld\n"
    "\t\tAmit & Co.\t\t\t5\t\n"
    "31-03-2009\t7\tRavi \"O'Neil\" \\ \xF0\x9F\x98\x80\tSALES\t\t10.10\tIt's \\ \"it\"\n"
    "\t\tCash\t\t10.10\t\t\n"
    "01/05/2008\t8\tCash\t\t3\t\t\n"
    "\t\tRent\tRENT\t\t2\t\n"
    "31/03/2008\t9\tCash\t\t3\t\t\n"
    "\t\tCash\tCAPITAL\t\t3\t\n"
    "01/05/2008\t10\tCash\t\tabc\t\t\n"
    "\t\tCash\tCAPITAL\t\t3\t\n";

TEST_F(VoucherReviewTest, EntersWhatIsWhole) {
  frmvchimport& page = openFile("vouchers.txt", book);
  EXPECT_EQ(list(page), (Rows{{"", "2", "1", "Already there", "Cash", "Known", "BANKS", ""},
                              {"", "3", "", "", "Amit & Co.", "Known", "CAPITAL", ""},
                              {"1", "4", "7", "New", "Ravi \"O'Neil\" \\ \xF0\x9F\x98\x80",
                               "New ledger", "SALES", ""},
                              {"1", "5", "", "", "Cash", "Known", "BANKS", ""},
                              {"", "6", "8", "Stays out", "Cash", "Known", "BANKS",
                               "Row 6: debit and credit of the voucher differ."},
                              {"", "7", "", "", "Rent", "New ledger", "RENT", ""},
                              {"", "8", "9", "Stays out", "Cash", "Known", "BANKS",
                               "Row 8: 31/03/2008 lies outside of the year."},
                              {"", "9", "", "", "Cash", "Known", "CAPITAL", ""},
                              {"", "10", "10", "Stays out", "Cash", "Known", "BANKS",
                               "Row 10: \"abc\" is not an amount."},
                              {"", "11", "", "", "Cash", "Known", "CAPITAL", ""}}));
  EXPECT_EQ(shown(page.vsft),
            (Rows{{"Source", "5", "21.10", "23.10"}, {"To be entered", "1", "10.10", "10.10"}}));
  EXPECT_EQ(page.vsfi.cell(page.vsfi.current(), 1), "6") << "the first question";
  no();
  page.click(page.cmdimport);
  EXPECT_EQ(journalRows().size(), 2U) << "nothing is written before";
  yes();
  page.click(page.cmdimport);
  EXPECT_EQ(messages().back(), "Vouchers entered: 1, already there: 1, left out: 3.");
  EXPECT_EQ(
      journalRows(),
      (Rows{{"1", "2008-06-02", "Cash", "5", "Old"},
            {"1", "2008-06-02", "Amit & Co.", "-5", "Old"},
            {"2", "2009-03-31", "Ravi \"O'Neil\" \\ \xF0\x9F\x98\x80", "-10.1", "It's \\ \"it\""},
            {"2", "2009-03-31", "Cash", "10.1", "It's \\ \"it\""}}));
  EXPECT_EQ(trialBalance(table_),
            (Rows{{"2", "Amit & Co.", "CAPITAL", "500", "2"},
                  {"3", "Ravi \"O'Neil\" \\ \xF0\x9F\x98\x80", "SALES", "10.1", "2"},
                  {"4", "Cash", "BANKS", "510.1", "1"}}));
  EXPECT_EQ(context().openForms.active(), &journal());
  EXPECT_EQ(journal().vsf.rows(), 6) << "listed anew";
  EXPECT_EQ(printed(false)[2], (Texts{"4", "7", "31/03/2009", "Ravi \"O'Neil\" \\ \xF0\x9F\x98\x80",
                                      "SALES", "", "10.10", "Entered"}));
  EXPECT_NE(printed(false)[4].back().find("Left out. Row 6"), std::string::npos);
  // The same again: told, and there already.
  frmvchimport& again = openFile("other.txt", book);
  EXPECT_NE(messages().at(0).find("imported into the year before"), std::string::npos);
  EXPECT_EQ(cell(again, "4", "Voucher Is"), "Already there");
  again.click(again.cmdimport);
  EXPECT_EQ(messages(), Texts{"There is no voucher to enter."});
  again.focus(again.vsfi);
  goTo(again, "5");
  again.press(keys::Space);
  EXPECT_TRUE(again.vsfi.ticked(again.vsfi.find(1, "4")));
  yes();
  again.press(keys::Escape);
  EXPECT_EQ(context().openForms.active(), &journal());
  EXPECT_EQ(log(), Texts{});
}

TEST_F(VoucherReviewTest, AsksForNamesGroupsAndColumns) {
  frmvchimport& page = paste(
      "02/06/2008\t1\tAmit and Co\t\t5\t\t\n\t\tNewish\t\t\t5\t\n"
      "02/06/2008\t2\tAmit and Co\t\t6\t\t\n\t\tNewish\t\t\t6\t\n");
  EXPECT_EQ(page.vsfi.cell(page.vsfi.current(), 1), "2");
  page.click(page.mnunearest);
  EXPECT_EQ(cell(page, "2", "Ledger"), "Amit & Co.");
  EXPECT_EQ(cell(page, "4", "Ledger"), "Amit & Co.") << "said of all its lines";
  page.click(page.cmdnext);
  EXPECT_EQ(page.vsfi.cell(page.vsfi.current(), 1), "3");
  setGroup(page, "3", "ren");
  EXPECT_EQ(cell(page, "5", "Group"), "RENT");
  EXPECT_EQ(page.lblstate.caption(), "Nothing stands in the way.");
  // Without the column of the numbers nothing can be read.
  const int number = page.cbocolumn[1].chosen();
  page.cbocolumn[1].choose(1);
  EXPECT_EQ(page.vsfi.rows(), 0);
  page.click(page.cmdimport);
  EXPECT_EQ(messages().size(), 1U);
  page.cbocolumn[1].choose(number);
  page.vsfi.tick(page.vsfi.find(1, "4"), false);
  page.click(page.cmdimport);
  EXPECT_EQ(messages(), Texts{"Vouchers entered: 1, already there: 0, left out: 1."});
  EXPECT_EQ(journalRows().size(), 4U);
}

TEST_F(VoucherReviewTest, AFailureLeavesTheBooksAndThePage) {
  const auto arrange = [&] {
    if (frmvchimport* page = shownPage()) {
      yes();
      page->close();
    }
    exec("delete from JRNL_1");
    exec("delete from " + table_);
    exec("delete from SuiteMisc where Section='Import'");
    exec("delete from Mast_Part where Particular='New One'");
    exec("delete history from Mast_Part");  // it gets the same number each time
    open("C1", 2008);
    setGroup(paste("02/06/2008\t1\tNew One\t\t5\t\t\n\t\tCash\t\t\t5\t\n"), "2", "RENT");
    setGroup(*shownPage(), "3", "BANKS");
  };
  const auto act = [&] {
    if (shownPage()) shownPage()->click(shownPage()->cmdimport);
  };
  arrange();
  statements();
  act();
  const Texts sent = statements();
  const auto commit = std::find(sent.begin(), sent.end(), "commit");
  ASSERT_NE(commit, sent.end());
  failEachStatement({.what = "the import",
                     .arrange = arrange,
                     .act = act,
                     .result =
                         [&] {
                           Rows all = journalRows();
                           for (const auto& row : trialBalance(table_)) all.push_back(row);
                           return all;
                         },
                     .next = {{"again", act}},
                     .place = "frmvchimport",
                     .stops = false,
                     .behind = static_cast<std::size_t>(sent.end() - commit) - 1});
}

TEST_F(VoucherReviewTest, OtherEndsAreSaid) {
  frmvchimport& page = paste(
      "02/06/2008\t1\tCash\t\t5\t\t\n\t\tAmit & Co.\t\t\t5\t\n"
      "02/06/2008\t2\tCash\t\t5\t\t\n\t\tRent\tRENT\t\t5\t\n");
  const Rows before = books();
  host().stopWork(1);
  page.click(page.cmdimport);
  EXPECT_EQ(messages(), Texts{"Stopped. Nothing was imported."});
  EXPECT_EQ(books(), before);
  put(2, 1, "Cash", "BANKS", 5);
  put(2, 2, "Amit & Co.", "CAPITAL", -5);
  page.click(page.cmdimport);
  EXPECT_EQ(messages().size(), 1U);
  EXPECT_EQ(cell(page, "2", "Voucher Is"), "Already there") << "compared anew";
  exec("delete from master where code_no='C1'");
  page.click(page.cmdimport);
  EXPECT_EQ(messages(), Texts{"The year is no longer there. Nothing was imported."});
  page.press(keys::Escape);
  EXPECT_EQ(shownPage(), nullptr);
  EXPECT_EQ(log(), Texts{});
}

TEST_F(VoucherReviewTest, DoubtsAboutColumnsAreAsked) {
  ASSERT_TRUE(pasteCells(journal().vsf,
                         "Date\tVoucher No\tParticulars\tDebit\tCredit\tDebit\tCredit\n"
                         "01/05/2008\t7\tCash\t9\t\t5\t\n\t7\tAmit & Co.\t\t9\t\t5\n"));
  frmvchimport& page = *shownPage();
  const Rows before = journalRows();
  dialogs.queueAnswer(Answer::No);
  page.click(page.cmdimport);
  const Texts told = messages();
  ASSERT_EQ(told.size(), 1U);
  EXPECT_NE(told[0].find("More than one column"), std::string::npos) << told[0];
  EXPECT_EQ(journalRows(), before);
}

}  // namespace
}  // namespace quillet::support
