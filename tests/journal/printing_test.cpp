// The printouts: the list of vouchers as it stands, and the subsidiary trial balance.
#include "journal_fixture.h"
#include "support/recording_reporter.h"

namespace quillet::support {
namespace {

class JournalPrinting : public JournalTest {
 protected:
  // The rows of the subsidiary trial balance below its headings.
  Rows subsidiary() {
    practice.environment().forgetReport();
    journal().click(journal().cmdtb);
    return printed(false);
  }
  // What the reporter is told when the deed is done, row by row with the masks.
  Texts told(const std::function<void()>& deed) {
    const RecordingReporter::Recording recording(context());
    deed();
    return recording.calls();
  }
  std::string heading(const std::string& what, const std::string& period) {
    return "printtext " + what + " of " + host().COMPANY_NAME() + " for the Period from " + period;
  }
};

TEST_F(JournalPrinting, PrintsTheListAsItStands) {
  addYear("C1", 2008, {{"Cash", "BANKS", 5000}, {"Rent", "RENT", 40}});
  frmjrnl& form = open("C1", 2008);
  EXPECT_EQ(told([&] { form.click(form.cmdprn); }), Texts());
  EXPECT_EQ(messages(), Texts{"No records available."});

  pass("02062008", {{"Rent", "", "1234.5"}, {"Cash", "", "1234.5", false}}, "June");
  form.click(form.Check1);  // folded rows are printed too
  statements();
  EXPECT_EQ(
      told([&] { form.click(form.cmdprn); }),
      (Texts{"WinModeReport True", "NewReport",
             heading("Adjustment Entries Passed", "01/04/2008 to 31/03/2009"), "CreateTable 1,4",
             "Date|Particulars|Debit Amount|Credit Amount 1111 1111 0001 1111",
             "2-6-2008|By Rent|1,234.50| 1111 0 0001 1111", "|To Cash||1,234.50 0 0 0001 1111",
             "|    June|| 0 0 0001 1111", "ShowReport"}));
  EXPECT_EQ(statements(), Texts());
  EXPECT_EQ(printed(false).size(), 3U) << "the headings repeat";
}

// What the originals were before the vouchers, worked out by hand: a balance that they turned
// round, adjustments that cancel out, a pair that has none left, and a line whose group is gone.
TEST_F(JournalPrinting, SeparatesOriginalFromAdjustments) {
  addYear("C1", 2008,
          {{"Cash", "BANKS", -20.5},
           {"Bank", "BANKS", 100},
           {"Sales", "SALES", -879.5},
           {"Rent", "RENT", 900}});
  exec("insert into TAB_1 values(9,'C1'," + std::to_string(ledger("Lost")) + ",999,12.25,2)");
  open("C1", 2008, true);
  put(1, 1, "Cash", "BANKS", -120.75);
  put(1, 2, "Rent", "RENT", 120.75);
  put(2, 1, "Sales", "SALES", -60);
  put(2, 2, "Cash", "BANKS", 60);
  put(3, 1, "Bank", "BANKS", 30);
  put(3, 2, "Bank", "BANKS", -30);
  put(4, 1, "Suspense", "CAPITAL", 40);
  put(4, 2, "Suspense", "CAPITAL", -15);
  put(5, 1, "Nothing", "SALES", 0);
  put(6, 1, "Sales", "SALES", 1000, "", "C2");
  Texts expected{"WinModeReport True",
                 "NewReport",
                 heading("Subsidiary Trial Balance", "01/04/2007 to 31/03/2008"),
                 "CreateTable 1,7",
                 "Particular|Original|Subsidiary|Final 0111 1111 0001 1111",
                 "|Amount (Dr.)|Amount (Cr.)|Amount (Dr.)|Amount (Cr.)|Amount (Dr.)|Amount (Cr.) "
                 "1111111 0 0000001 1111111"};
  for (const char* row : {
           "||||||",
           "Lost|-|12.25|-|-|-|12.25",
           "Total|-|12.25|-|-|-|12.25",
           "BANKS||||||",
           "Bank|100.00|-|30.00|30.00|100.00|-",
           "Cash|40.25|-|60.00|120.75|-|20.50",
           "Total|140.25|-|90.00|150.75|100.00|20.50",
           "CAPITAL||||||",
           "Suspense|-|25.00|40.00|15.00|-|-",
           "Total|-|25.00|40.00|15.00|-|-",
           "RENT||||||",
           "Rent|779.25|-|120.75|-|900.00|-",
           "Total|779.25|-|120.75|-|900.00|-",
           "SALES||||||",
           "Sales|-|819.50|-|60.00|-|879.50",
           "Total|-|819.50|-|60.00|-|879.50",
       }) {
    const bool total = std::string_view(row).starts_with("Total");
    expected.push_back(row + std::string(total ? " 0111111 0111111" : " 0 0") + " 0000001 1111111");
  }
  expected.emplace_back(
      "Grant Total|919.50|856.75|250.75|225.75|1,000.00|912.25 1111111 1111111 0000001 1111111");
  expected.emplace_back("ShowReport");
  EXPECT_EQ(told([&] { subsidiary(); }), expected);
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
  put(1, 1, "Cash", "CAPITAL", 30);
  EXPECT_EQ(subsidiary(),
            (Rows{{"CAPITAL", "", "", "", "", "", ""},
                  {"Cash", "-", "30.00", "30.00", "-", "-", "-"},
                  {"Total", "-", "30.00", "30.00", "-", "-", "-"},
                  {"Grant Total", "0.00", "30.00", "30.00", "0.00", "0.00", "0.00"}}));
}

// The trial balance has such lines under the group merged with, the journal under the one that is
// gone.
TEST_F(JournalPrinting, AMergedGroupsAdjustmentsStandBesideTheirBalance) {
  addYear("C1", 2008, {{"Rent", "RENT", 150}, {"Tax", "RENT", 20}});
  exec("insert into SuiteMisc(Section,Name,Value) values('AllGrp','Merged','77>3 ')");
  put(1, 1, "Rent", "RENT", 10);
  put(2, 1, "Rent", "RENT", 70);
  put(3, 1, "Rent", "RENT", -30);
  exec("update JRNL_1 set AllId=77 where VID>1");
  open("C1", 2008);
  EXPECT_EQ(subsidiary(),
            (Rows{{"RENT", "", "", "", "", "", ""},
                  {"Rent", "100.00", "-", "80.00", "30.00", "150.00", "-"},
                  {"Tax", "20.00", "-", "-", "-", "20.00", "-"},
                  {"Total", "120.00", "-", "80.00", "30.00", "170.00", "-"},
                  {"Grant Total", "120.00", "0.00", "80.00", "30.00", "170.00", "0.00"}}));
}

TEST_F(JournalPrinting, SendsTheStatementsOfTheSubsidiaryInOrder) {
  addYear("C1", 2008);
  frmjrnl& form = open("C1", 2008);
  form.click(form.cmdtb);
  EXPECT_EQ(messages(), Texts{"No records available."});
  EXPECT_EQ(printed(), Rows());
  const auto collected = [](const std::string& sums, const std::string& table,
                            const std::string& which) {
    return "Insert into Ledger_Temp1 Select Particular,AllGrp," + sums + namesOf(table) + table +
           ".code_no='C1' and " + table + which + " group by " + table + ".partid," + table +
           ".allid";
  };
  Texts expected = scratchTables(
      "(Part Varchar(100), AllGrp Varchar(100), Amt Double, AmtDr Double, AmtCr Double)");
  append(expected, flushed({collected("sum(Amt),0,0", "TAB_1", ".Nid=1"),
                            collected("-sum(Amt),0,0", "TAB_1", ".Nid=2"),
                            collected("0,sum(Amount),0", "JRNL_1", ".Amount>0"),
                            collected("0,0,sum(Amount)", "JRNL_1", ".Amount<0"),
                            "Insert into Ledger_Temp Select Part,AllGrp,sum(Amt),sum(AmtDr),"
                            "sum(AmtCr) from Ledger_Temp1 group by AllGrp,Part",
                            "Drop Table If Exists Ledger_Temp1"}));
  expected.emplace_back(
      "select * from Ledger_Temp Where Amt<>0 or AmtDr<>0 or AmtCr<>0 order by allgrp,part");
  append(expected, flushed({"Drop Table If Exists Ledger_Temp"}));
  EXPECT_EQ(statements(), expected);

  FailingDeed deed{.what = "printing", .act = [&] { form.click(form.cmdtb); }};
  deed.place = "frmjrnl\tCMDTB_CLICK";
  deed.stops = false;
  deed.check = [&] {
    EXPECT_EQ(scratchLeft(), Rows{});
    EXPECT_TRUE(form.visible());
  };
  failEachStatement(deed);
}

}  // namespace
}  // namespace quillet::support
