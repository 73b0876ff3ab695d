// The printouts: the list of vouchers as it stands, and the subsidiary trial balance.
#include <cmath>

#include "journal/subsidiary.h"
#include "journal_fixture.h"
#include "support/recording_reporter.h"

namespace quillet::support {
namespace {

using Texts = std::vector<std::string>;

class JournalPrinting : public JournalTest {
 protected:
  void adjust(long vid, const std::string& client, const std::string& ledgerName,
              const std::string& groupName, double amount) {
    exec("insert into JRNL_1 values('" + client + "'," + std::to_string(vid) + ",1,'2008-06-02'," +
         std::to_string(ledger(ledgerName)) + "," + std::to_string(group(groupName)) + "," +
         std::to_string(amount) + ",'')");
  }
  static Texts headings(const suite::Document& report) {
    Texts all;
    for (const suite::ReportHeading& heading : report.headings()) all.push_back(heading.text);
    return all;
  }
  static Rows cells(const suite::Document& report) {
    Rows all;
    for (const suite::ReportRow& row : report.rows()) {
      Texts& texts = all.emplace_back();
      for (const suite::ReportCell& cell : row.cells) texts.push_back(cell.text);
    }
    return all;
  }
  static Texts masks(const suite::ReportRow& row) { return {row.masks.begin(), row.masks.end()}; }
  const suite::Document* report() {
    const auto& last = practice.surroundings().lastReport();
    return last ? &*last : nullptr;
  }
  // The rows of the subsidiary trial balance below its headings.
  Rows subsidiary() {
    practice.surroundings().forgetReport();
    journal().click(journal().cmdtb);
    if (!report()) return {};
    Rows all = cells(*report());
    all.erase(all.begin(), all.begin() + 2);
    return all;
  }
};

TEST(SubsidiaryFigures, TakeTheAdjustmentsOutOfTheBalance) {
  const Rounding paise = [](double amount) { return std::round(amount * 100) / 100; };
  struct Case {
    const char* what;
    SubsidiaryRow row;
    SubsidiaryFigures figures;  // original, subsidiary, final: debit and credit each
  };
  const std::vector<Case> cases{
      {"no adjustments", {"", "", 100, 0, 0}, {100, 0, 0, 0, 100, 0}},
      {"a credit balance", {"", "", -100, 0, 0}, {0, 100, 0, 0, 0, 100}},
      {"a debit adjustment", {"", "", 150, 50, 0}, {100, 0, 50, 0, 150, 0}},
      {"turned round by a credit", {"", "", -20, 0, -120}, {100, 0, 0, 120, 0, 20}},
      {"adjustments that cancel out", {"", "", 100, 30, -30}, {100, 0, 30, 30, 100, 0}},
      {"no balance left", {"", "", 0, 40, 0}, {0, 40, 40, 0, 0, 0}},
      {"binary dust is no figure", {"", "", 0.3, 0.1 + 0.2, 0}, {0, 0, 0.3, 0, 0.3, 0}},
  };
  for (const Case& c : cases) EXPECT_EQ(figuresOf(c.row, paise), c.figures) << c.what;
}

TEST_F(JournalPrinting, PrintsTheListAsItStands) {
  addYear("C1", 2008, {{"Cash", "BANKS", 5000}, {"Rent", "RENT", 40}});
  frmjrnl& form = open("C1", 2008);
  form.click(form.cmdprn);
  std::vector<Message> asked = boxes();
  ASSERT_EQ(asked.size(), 1U);
  EXPECT_EQ(asked[0].text, "No records available.");
  EXPECT_EQ(asked[0].icon, Icon::information);
  EXPECT_EQ(report(), nullptr);

  pass("02062008", {{"Rent", "", "1234.5"}, {"Cash", "", "1234.5", false}}, "June");
  form.click(form.Check1);  // folded rows are printed too
  statements();
  form.click(form.cmdprn);
  EXPECT_EQ(statements(), Texts{});
  ASSERT_NE(report(), nullptr);
  EXPECT_EQ(headings(*report()), Texts{"Adjustment Entries Passed of " + host().COMPANY_NAME() +
                                       " for the Period from 01/04/2008 to 31/03/2009"});
  EXPECT_EQ(cells(*report()), (Rows{{"Date", "Particulars", "Debit Amount", "Credit Amount"},
                                    {"2-6-2008", "By Rent", "1,234.50", ""},
                                    {"", "To Cash", "", "1,234.50"},
                                    {"", "    June", "", ""}}));
  const auto& rows = report()->rows();
  EXPECT_EQ(masks(rows[0]), (Texts{"1111", "1111", "0001", "1111"}));
  EXPECT_EQ(masks(rows[1]), (Texts{"1111", "0", "0001", "1111"}));
  EXPECT_EQ(masks(rows[2]), (Texts{"0", "0", "0001", "1111"}));
  EXPECT_TRUE(rows[0].heading);
}

// A year of three groups: what the originals were before the vouchers, worked out by hand.
TEST_F(JournalPrinting, SeparatesOriginalFromAdjustments) {
  addYear("C1", 2008,
          {{"Cash", "BANKS", 500}, {"Capital", "CAPITAL", -1500}, {"Rent", "RENT", 1000}});
  addYear("C2", 2008, {{"Cash", "BANKS", 9999}});
  ledger("Outstanding");
  frmjrnl& form = open("C1", 2008);
  pass("02062008", {{"Rent", "", "250.50"}, {"Cash", "", "250.50", false}});
  pass("03062008", {{"Cash", "", "100"}, {"Outstanding", "CAPITAL", "100", false}});
  const Rows expected{
      {"BANKS", "", "", "", "", "", ""},
      {"Cash", "500.00", "-", "100.00", "250.50", "349.50", "-"},
      {"Total", "500.00", "-", "100.00", "250.50", "349.50", "-"},
      {"CAPITAL", "", "", "", "", "", ""},
      {"Capital", "-", "1,500.00", "-", "-", "-", "1,500.00"},
      {"Outstanding", "-", "-", "-", "100.00", "-", "100.00"},
      {"Total", "-", "1,500.00", "-", "100.00", "-", "1,600.00"},
      {"RENT", "", "", "", "", "", ""},
      {"Rent", "1,000.00", "-", "250.50", "-", "1,250.50", "-"},
      {"Total", "1,000.00", "-", "250.50", "-", "1,250.50", "-"},
      {"Grant Total", "1,500.00", "1,500.00", "350.50", "350.50", "1,600.00", "1,600.00"}};
  EXPECT_EQ(subsidiary(), expected);
  ASSERT_NE(report(), nullptr);
  EXPECT_EQ(headings(*report()), Texts{"Subsidiary Trial Balance of " + host().COMPANY_NAME() +
                                       " for the Period from 01/04/2008 to 31/03/2009"});
  const auto& rows = report()->rows();
  const auto row = [&](std::size_t i) { return cells(*report())[i]; };
  EXPECT_EQ(row(0), (Texts{"Particular", "Original", "Subsidiary", "Final"}));
  EXPECT_EQ(row(1), (Texts{"", "Amount (Dr.)", "Amount (Cr.)", "Amount (Dr.)", "Amount (Cr.)",
                           "Amount (Dr.)", "Amount (Cr.)"}));
  EXPECT_EQ(masks(rows[0]), (Texts{"0111", "1111", "0001", "1111"}));
  EXPECT_EQ(masks(rows[1]), (Texts{"1111111", "0", "0000001", "1111111"}));
  EXPECT_EQ(masks(rows[2]), (Texts{"0", "0", "0000001", "1111111"}));
  EXPECT_EQ(masks(rows[3]), masks(rows[2]));
  EXPECT_EQ(masks(rows[4]), (Texts{"0111111", "0111111", "0000001", "1111111"}));
  EXPECT_EQ(masks(rows.back()), (Texts{"1111111", "1111111", "0000001", "1111111"}));
  EXPECT_EQ(form.lblstatus.caption(), "");
}

// Balances and journal that do not stem from one another, as other components may have left them.
TEST_F(JournalPrinting, ShowsEveryPairThatHasAnyFigure) {
  addYear("C1", 2008, {{"Cash", "BANKS", 100}, {"Rent", "RENT", 7}});
  adjust(1, "C1", "Cash", "BANKS", 30);
  adjust(1, "C1", "Cash", "BANKS", -30);
  adjust(2, "C1", "Suspense", "CAPITAL", 40);
  adjust(2, "C1", "Suspense", "CAPITAL", -15);
  adjust(3, "C1", "Nothing", "SALES", 0);
  adjust(4, "C2", "Sales", "SALES", 1000);
  open("C1", 2008);
  EXPECT_EQ(subsidiary(),
            (Rows{{"BANKS", "", "", "", "", "", ""},
                  {"Cash", "100.00", "-", "30.00", "30.00", "100.00", "-"},
                  {"Total", "100.00", "-", "30.00", "30.00", "100.00", "-"},
                  {"CAPITAL", "", "", "", "", "", ""},
                  {"Suspense", "-", "25.00", "40.00", "15.00", "-", "-"},
                  {"Total", "-", "25.00", "40.00", "15.00", "-", "-"},
                  {"RENT", "", "", "", "", "", ""},
                  {"Rent", "7.00", "-", "-", "-", "7.00", "-"},
                  {"Total", "7.00", "-", "-", "-", "7.00", "-"},
                  {"Grant Total", "107.00", "25.00", "70.00", "45.00", "107.00", "0.00"}}));
}

// Sums that are nothing on paper and something in binary.
TEST_F(JournalPrinting, LeavesOutWhatIsNoPaisa) {
  const std::string dust =
      "insert into TAB_1 values(5,'C1'," + std::to_string(ledger("Dust")) + ",";
  addYear("C1", 2008);
  for (const char* group : {"1", "3"}) {
    for (const char* row : {",0.1,1)", ",0.2,1)", ",0.3,2)"}) exec(dust + group + row);
  }
  open("C1", 2008);
  EXPECT_EQ(subsidiary(), Rows{});
  EXPECT_EQ(messages(), Texts{"No records available."});
  adjust(1, "C1", "Cash", "CAPITAL", 30);
  EXPECT_EQ(subsidiary(),
            (Rows{{"CAPITAL", "", "", "", "", "", ""},
                  {"Cash", "-", "30.00", "30.00", "-", "-", "-"},
                  {"Total", "-", "30.00", "30.00", "-", "-", "-"},
                  {"Grant Total", "0.00", "30.00", "30.00", "0.00", "0.00", "0.00"}}));
}

// The previous year: a balance that the vouchers turned round, a group of credits alone, and a line
// whose group is gone.
TEST_F(JournalPrinting, SeparatesOriginalFromAdjustmentsOfThePreviousYear) {
  addYear("C1", 2008,
          {{"Cash", "BANKS", -20.5}, {"Sales", "SALES", -879.5}, {"Rent", "RENT", 900}});
  exec("insert into TAB_1 values(9,'C1'," + std::to_string(ledger("Suspense")) + ",999,12.25,2)");
  open("C1", 2008, true);
  adjust(1, "C1", "Cash", "BANKS", -120.75);
  adjust(1, "C1", "Rent", "RENT", 120.75);
  adjust(2, "C1", "Sales", "SALES", -60);
  adjust(2, "C1", "Cash", "BANKS", 60);
  const support::RecordingReporter::Recording recording(context());
  EXPECT_EQ(subsidiary(),
            (Rows{{"", "", "", "", "", "", ""},
                  {"Suspense", "-", "12.25", "-", "-", "-", "12.25"},
                  {"Total", "-", "12.25", "-", "-", "-", "12.25"},
                  {"BANKS", "", "", "", "", "", ""},
                  {"Cash", "40.25", "-", "60.00", "120.75", "-", "20.50"},
                  {"Total", "40.25", "-", "60.00", "120.75", "-", "20.50"},
                  {"RENT", "", "", "", "", "", ""},
                  {"Rent", "779.25", "-", "120.75", "-", "900.00", "-"},
                  {"Total", "779.25", "-", "120.75", "-", "900.00", "-"},
                  {"SALES", "", "", "", "", "", ""},
                  {"Sales", "-", "819.50", "-", "60.00", "-", "879.50"},
                  {"Total", "-", "819.50", "-", "60.00", "-", "879.50"},
                  {"Grant Total", "819.50", "831.75", "180.75", "180.75", "900.00", "912.25"}}));
  const Texts& calls = recording.calls();
  EXPECT_EQ(Texts(calls.begin(), calls.begin() + 5),
            (Texts{"WinModeReport True", "NewReport",
                   "printtext Subsidiary Trial Balance of " + host().COMPANY_NAME() +
                       " for the Period from 01/04/2007 to 31/03/2008",
                   "CreateTable 1,7", "Particular|Original|Subsidiary|Final 0111 1111 0001 1111"}));
  EXPECT_EQ(calls.back(), "ShowReport");
}

// Many small amounts: what is printed adds up to the paisa.
TEST_F(JournalPrinting, AddsUpWhatItPrints) {
  std::vector<Line> lines;
  lines.reserve(30);
  for (int i = 0; i < 30; ++i) {
    lines.push_back({"L" + std::to_string(i), i % 3 == 0 ? "BANKS" : "RENT", i % 2 ? 0.1 : -0.7});
  }
  addYear("C1", 2008, lines);
  for (int i = 0; i < 30; ++i) {
    adjust(i + 1, "C1", "L" + std::to_string(i), i % 3 == 0 ? "BANKS" : "RENT", i % 4 - 1.15);
  }
  open("C1", 2008);
  const auto paise = [](const std::string& figure) {
    return figure.empty() || figure == "-" ? 0L : std::lround(std::stod(figure) * 100);
  };
  std::vector<long> sums(7);
  std::vector<long> totals(7);
  for (const Texts& row : subsidiary()) {
    for (std::size_t c = 1; c < 7; ++c) {
      if (row[0] == "Grant Total") {
        EXPECT_EQ(totals[c], paise(row[c])) << c;
        EXPECT_EQ(sums[c], paise(row[c])) << c;
      } else {
        (row[0] == "Total" ? totals : sums)[c] += paise(row[c]);
      }
    }
  }
  EXPECT_GT(totals[1], 0);
}

TEST_F(JournalPrinting, SendsTheStatementsOfTheSubsidiaryInOrder) {
  addYear("C1", 2008);
  frmjrnl& form = open("C1", 2008);
  form.click(form.cmdtb);
  EXPECT_EQ(messages(), Texts{"No records available."});
  EXPECT_EQ(report(), nullptr);
  Texts expected;
  const auto sent = [&](const std::string& sql) {
    expected.push_back(sql);
    expected.push_back("Flush Tables");
  };
  for (const std::string table : {"Ledger_Temp1", "Ledger_Temp"}) {
    sent("Drop Table If Exists " + table);
    sent("Create Table If Not Exists " + table +
         " (Part Varchar(100), AllGrp Varchar(100), Amt Double, AmtDr Double, AmtCr Double)");
    sent("Delete from " + table);
  }
  const auto collected = [&](const std::string& sums, const std::string& table,
                             const std::string& which) {
    sent("Insert into Ledger_Temp1 Select Particular,AllGrp," + sums + " from " + table +
         " LEFT JOIN mast_part ON " + table + ".partid=mast_part.partid LEFT JOIN mast_allgrp on " +
         table + ".allid=mast_allgrp.allid where " + table + ".code_no='C1' and " + table + which +
         " group by " + table + ".partid," + table + ".allid");
  };
  collected("sum(Amt),0,0", "TAB_1", ".Nid=1");
  collected("-sum(Amt),0,0", "TAB_1", ".Nid=2");
  collected("0,sum(Amount),0", "JRNL_1", ".Amount>0");
  collected("0,0,sum(Amount)", "JRNL_1", ".Amount<0");
  sent(
      "Insert into Ledger_Temp Select Part,AllGrp,sum(Amt),sum(AmtDr),sum(AmtCr) from "
      "Ledger_Temp1 group by AllGrp,Part");
  sent("Drop Table If Exists Ledger_Temp1");
  expected.push_back(
      "select * from Ledger_Temp Where Amt<>0 or AmtDr<>0 or AmtCr<>0 order by allgrp,part");
  sent("Drop Table If Exists Ledger_Temp");
  EXPECT_EQ(statements(), expected);

  failEachStatement({.what = "printing",
                     .act = [&] { form.click(form.cmdtb); },
                     .place = "frmjrnl\tCMDTB_CLICK",
                     .stops = false,
                     .check =
                         [&] {
                           EXPECT_EQ(rows("show tables like 'ledger_temp%'"), Rows{});
                           EXPECT_TRUE(form.visible());
                         }});
}

}  // namespace
}  // namespace quillet::support
