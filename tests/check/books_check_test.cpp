// The examination of a sample practice, sound and damaged, and its mending.
#include "suite/check/books_check.h"

#include <sstream>

#include "suite/check/check_commands.h"
#include "suite/check/check_report.h"
#include "suite/sample_practice.h"
#include "suite/starter_data.h"
#include "suite/text_report.h"
#include "support/practice.h"

namespace quillet::suite::check {
namespace {

class BooksCheckTest : public support::PracticeTest {
 protected:
  // "rule" of each finding, with a "+" when it can be mended.
  std::vector<std::string> found() {
    std::vector<std::string> all;
    for (const Finding& finding : examineBooks(practice).findings) {
      all.push_back(finding.rule + (finding.mendable ? "+" : ""));
    }
    return all;
  }
  std::string report() { return textOf(reportOf(examineBooks(practice), host())); }
};

TEST_F(BooksCheckTest, TheSamplePracticeIsSound) {
  installStarterData(practice.database());
  installSamplePractice(practice.database());
  long steps = 0;
  const Examination examination = examineBooks(practice, [&](long done, long total) {
    steps = done;
    return done <= total;
  });
  EXPECT_TRUE(examination.clean()) << textOf(reportOf(examination, host()));
  EXPECT_EQ(steps, support::tableNumbers);
  EXPECT_NE(textOf(reportOf(examination, host())).find("The books are sound: "), std::string::npos);
  EXPECT_FALSE(examineBooks(practice, [](long, long) { return false; }).clean());
}

TEST_F(BooksCheckTest, AnAlteredLogIsNoticed) {
  for (const char* alteration :
       {"delete from SuiteAct order by At desc limit 1", "delete from SuiteAct",
        "update SuiteAct set Person='nobody' order by At limit 1"}) {
    SCOPED_TRACE(alteration);
    exec("delete from SuiteAct");
    exec("delete history from SuiteAct");
    for (const char* made : {"Cash", "Bank"}) {
      host().GetMax_MastPartId(made);
      exec("delete from Mast_Part");
    }
    EXPECT_EQ(found(), std::vector<std::string>{});
    exec(alteration);
    EXPECT_EQ(found(), std::vector<std::string>{"log"});
    EXPECT_NE(report().find("altered or taken out"), std::string::npos);
  }
}

// Two clients who share the tables of a number.
class DamagedBooksTest : public BooksCheckTest {
 protected:
  void makeBooks() {
    for (const char* table :
         {"master", "Main_Info1", "owner1", "TempClTbl", "Mast_Part", "Mast_AllGrp", "Mast_Gunder",
          "AllGrp_Map", "RawMatGrpM", "SuiteMisc", "TAB_1", "TAB_2", "JRNL_1", "JRNL_2", "TRADE_1",
          "TRADE_2", "RMGRP_1", "RMGRP_2"}) {
      exec("delete from " + std::string(table));
    }
    exec("delete history from Mast_Part");  // its numbers begin anew
    exec("insert into Mast_Gunder values (1,'ASSETS',1)");
    addClient("C1", "Asha Traders");
    addClient("C2", "Neighbour & Co");
    addYear("C1", 2007, {{"Cash", "BANKS", 10}, {"Sales", "SALES", -10}});
    addYear("C1", 2008, {{"Cash", "BANKS", 100.1}, {"Sales", "SALES", -100.1}});
    addYear("C2", 2008, {{"Cash", "BANKS", 70}, {"Sales", "SALES", -70}});
    exec(
        "insert into JRNL_1 values ('C2',1,1,'2008-06-02',1,1,5,'a'),"
        "('C2',1,2,'2008-06-02',2,2,-5,'a')");
    exec(
        "insert into JRNL_2 values ('C1',1,1,'2008-06-02',1,1,0.3,'b'),"
        "('C1',1,2,'2008-06-02',2,2,-0.1,'b'),('C1',1,3,'2008-06-02',2,2,-0.2,'b')");
    exec("insert into TRADE_2(code_no,partid,allid,amt) values ('C1',1,1,5)");
    exec("insert into RawMatGrpM values (1,'Yarn',1)");
    exec("insert into RMGRP_2 values ('C1',1,1,1,0,0,0,1)");
    exec("insert into AllGrp_Map values ('#?#COMMON#?#',1,1,'a',1,'b')");
  }
  // What stands for each client, ledger and pair, as a person would add it up.
  Rows sums() {
    Rows all;
    for (const std::string table : {"1", "2"}) {
      for (const Rows& part :
           {rows("select code_no,partid,round(sum(if(nid=2,-ifnull(amt,0),ifnull(amt,0))),4) from "
                 "TAB_" +
                 table + " group by code_no,partid order by 1,2"),
            rows("select code_no,PartId,AllId,count(*),round(sum(Amount),4) from JRNL_" + table +
                 " group by code_no,PartId,AllId order by 1,2,3")}) {
        all.insert(all.end(), part.begin(), part.end());
      }
    }
    return all;
  }
};

struct Damage {
  const char* sql;
  std::vector<std::string> found;
  const char* said;                    // by the report, among others
  std::vector<std::string> left = {};  // when it is mended
};

TEST_F(DamagedBooksTest, EachDamageIsFoundAndMended) {
  const Damage damages[] = {
      {"delete from TAB_1 where 1=0", {}, "The books are sound: 3 years of 2 clients.\n"},
      // --- lines
      {"insert into TAB_2 values (3,'C1',1,1,150,2)",
       {"pair+"},
       "Asha Traders (C1), 01/04/2008 - 31/03/2009\n"
       "Cash under BANKS stands in 2 lines.\n    Mending makes one line of 49.90 Cr of them.\n"},
      {"insert into TAB_2 values (3,'c1 ',1,1,100.1,2),(4,'C1',1,1,-0.0,1)",
       {"pair+"},
       "stands in 3 lines.\n    Mending makes one line of 0.00 Dr of them.\n"},
      {"insert into TAB_2 values (2,'c1',1,2,7,1),(null,'C1',3,3,8,2)",
       {"ledger", "group", "number+", "number+"},
       "Line 2 (Cash under SALES, 7.00 Dr) has a number that another line has as well.\n"
       "    Mending gives it the number 3.\n",
       {"ledger", "group"}},
      {"insert into TAB_2 values (3,'C1',null,1,5,1),(4,'C1',null,1,6,1),(5,'C1',77,1,7,1),"
       "(6,'C1',77,1,8,1),(7,'C1',1,null,9,1),(8,'C1',1,null,10,1)",
       {"ledger", "ledger", "ledger", "ledger", "group", "group"},
       "Line 8 (Cash under no group, 10.00 Dr) stands under a group that is not",
       {"ledger", "ledger", "ledger", "ledger", "group", "group"}},
      {"update TAB_2 set srno=2147483647", {"number+"}, "Mending gives it the number 1.\n"},
      {"update TAB_2 set amt=-100.1 where srno=1",
       {"negative+"},
       "Line 1 (Cash under BANKS, -100.10 Dr) has a negative amount.\n"
       "    Mending writes it as credit.\n"},
      {"update TAB_1 set nid=null,amt=null where code_no='C2' and srno=1",
       {"amount+", "side+"},
       "Neighbour & Co (C2), 01/04/2008 - 31/03/2009\n"
       "Line 1 (Cash under BANKS, 0.00 Dr) has no amount.\n"},
      {"update TAB_2 set amt=10.005 where srno=1",
       {"paise"},
       "Line 1 (Cash under BANKS, 10.005 Dr) has an amount that is not in whole paise.\n",
       {"paise"}},
      {"update TAB_2 set amt=0.1e0+0.2e0 where srno=1", {}, "The books are sound"},
      {"insert into TAB_2 values (3,'C1',1,1,1e300,2)",
       {"paise", "pair"},
       "Enter their amounts in whole paise first.",
       {"paise", "pair"}},
      {"insert into SuiteMisc(Section,Name,Value) values ('AllGrp','Merged','8>1 9>8 ');"
       "insert into TAB_2 values (3,'C1',1,9,50,1);"
       "update JRNL_2 set AllId=9;update TRADE_2 set allid=9;update RMGRP_2 set OsGrpId=9",
       {"merged group+", "pair+"},
       "Line 3 (Cash under group 9, 50.00 Dr) stands under a group that was merged into BANKS.\n"},
      {"insert into TAB_1 values (1,'C9',77,77,5,1);insert into JRNL_2 values "
       "('C2',1,1,'2008-06-02',1,1,5,'')",
       {"shared voucher+", "unregistered", "unregistered"},
       "C9 (C9)\nThe table TAB_1 holds 1 row of a year that is not registered.\n",
       {"unregistered", "unregistered"}},
      // --- vouchers
      {"update JRNL_2 set Amount=0.4 where LSrNo=1",
       {"sides"},
       "Voucher 1 of 02/06/2008 does not agree: 0.40 Dr, 0.30 Cr.\n"
       "    Complete or delete it in the journal.\n",
       {"sides"}},
      {"delete from JRNL_1 where LSrNo=2",
       {"sides"},
       "Voucher 1 of 02/06/2008 does not agree: 5.00 Dr, 0.00 Cr.\n",
       {"sides"}},
      {"insert into JRNL_1 values ('C1',1,1,'2007-06-02',1,1,5,''),"
       "('C1',1,2,'2007-06-02',2,2,-5,''),('C1',2,1,'2007-06-02',1,1,0,'')",
       {"shared voucher+"},
       "Voucher 1 of 02/06/2008 has the number of another client's voucher.\n"
       "    Mending gives it the number 3.\n"},
      {"update JRNL_2 set LSrNo=1", {"lines+"}, "Voucher 1 of 02/06/2008 has lines of the same"},
      {"update JRNL_2 set VDate='2009-04-01'", {"date"}, "is not dated within the year", {"date"}},
      {"update JRNL_2 set VNar='c' where LSrNo=1", {"parts"}, "or narrations", {"parts"}},
      {"update JRNL_2 set PartId=77,AllId=78 where LSrNo=3",
       {"ledger", "group"},
       "Voucher 1 of 02/06/2008 has a line under group 78, which is not there.\n",
       {"ledger", "group"}},
      {"update JRNL_2 set Amount=null where LSrNo=1",
       {"paise", "sides"},
       "has a line of Cash whose amount is not in whole paise",
       {"paise", "sides"}},
      {"update JRNL_2 set VID=null", {"number"}, "lines without a voucher number", {"number"}},
      // --- closing stock and binding
      {"update TRADE_2 set partid=77,amt=null",
       {"stock", "stock amount"},
       "The closing stock has a line of ledger 77 under BANKS, which is not there.\n",
       {"stock", "stock amount"}},
      {"insert into RMGRP_2 values ('C1',1,9,77,0,0,0,2)",
       {"binding head", "binding group", "binding number+"},
       "Item 1 of the raw-material binding is bound to group 77, which is not there.\n",
       {"binding head", "binding group"}},
      // --- the registry
      {"insert into master select * from master where code_no='C1'",
       {"registered twice+", "registered twice+"},
       "The year is registered twice over.\n    Mending keeps one entry.\n"},
      {"insert into master(code_no,tbl_nm,count,f_yr,s_yr) values"
       "('C1','TAB_3',3,'01042008','31032009')",
       {"registered twice"},
       "in two tables or with different dates",
       {"registered twice"}},
      {"update master set s_yr='3103200x' where code_no='C2'", {"year"}, "\"3103200x\"", {"year"}},
      {"update master set tbl_nm='TAB_77' where code_no='C2'",
       {"unregistered", "unregistered", "table number", "missing table"},
       "Tables of the year are missing: TAB_77, JRNL_77, TRADE_77, ",
       {"unregistered", "unregistered", "table number", "missing table"}},
      {"insert into master(code_no,tbl_nm,count,f_yr,s_yr) values"
       "('C2','TAB_1',1,'01042009','31032010'),('C2','',2,'01042010','31032011')",
       {"shared table", "table"},
       "with the table TAB_1, which is also that of 2008-2009.\n",
       {"shared table", "table"}},
      {"delete from Main_Info1 where code_no='C1';delete from TempClTbl where CodeNo='C1'",
       {"client+"},
       "The registry has 2007-2008, 2008-2009 of a client who is not there.\n"},
      {"insert into master(code_no,tbl_nm,count,f_yr,s_yr) values"
       "('','TAB_3',3,'01042008','31032009')",
       {"client"},
       "A backup from before may tell whose it was.\n",
       {"client"}},
      // --- the masters
      {"insert into Mast_Part values (1,'Cash'),(2,'Turnover'),(3,'sales')",
       {"equal rows+", "several rows", "equal names"},
       "The ledger 1, Cash, stands in the master once more.\n",
       {"several rows", "equal names"}},
      {"insert into Mast_Part values (1,'CASH')",
       {"several rows"},
       "The ledger 1 stands in the master several times: CASH, Cash.\n",
       {"several rows"}},
      {"insert into Mast_AllGrp values (1,1,'BANKS','Y'),(2,7,'SALES','Y');"
       "insert into Mast_Gunder values (1,'ASSETS',2);insert into RawMatGrpM values (1,'Wool',1)",
       {"equal rows+", "several rows", "several rows", "several rows", "primary group"},
       "All clients\nThe group 1, BANKS, stands in the master once more.\n",
       {"several rows", "several rows", "several rows", "primary group"}},
      {"delete from Mast_AllGrp where ALLID=2;update AllGrp_Map set AllId=2",
       {"mapping", "group", "group", "group", "group", "group", "group"},
       "A mapping stands for group 2, which is not there.\n",
       {"mapping", "group", "group", "group", "group", "group", "group"}},
  };
  for (const Damage& damage : damages) {
    SCOPED_TRACE(damage.sql);
    makeBooks();
    std::string statement;
    for (std::istringstream all(damage.sql); std::getline(all, statement, ';');) exec(statement);
    const Rows before = sums();
    EXPECT_EQ(found(), damage.found);
    EXPECT_NE(report().find(damage.said), std::string::npos) << report();
    const Mending mending = mendBooks(practice, [] { return std::string("b"); });
    EXPECT_EQ(mending.failed, std::vector<std::string>());
    EXPECT_EQ(found(), damage.left) << report();
    EXPECT_EQ(sums(), before);
  }
}

// A change that comes out otherwise than it should is taken back with all of its table's.
TEST_F(DamagedBooksTest, WhatWouldChangeASumStaysAsItWas) {
  makeBooks();
  exec("update TAB_1 set srno=5 where code_no='C2'");
  exec("update TAB_2 set srno=5");
  exec("create trigger spoils before update on TAB_1 for each row set new.amt=new.amt+0.01");
  const Rows before = rows("select * from TAB_1 order by row_id");
  const Mending mending = mendBooks(practice, [] { return std::string("b"); });
  exec("drop trigger spoils");
  EXPECT_EQ(mending.mended, 1U);
  EXPECT_EQ(summaryOf(mending),
            "1 finding mended.\nThe table TAB_1 stays as it was: its sums would not stay as they "
            "are.\nThe books of before: b");
  EXPECT_EQ(rows("select * from TAB_1 order by row_id"), before);
  EXPECT_EQ(found(), std::vector<std::string>{"number+"});
}

// As from the window: refused while a form shows books, asked, done after a backup.
TEST_F(DamagedBooksTest, APersonIsAskedBeforeAnythingIsMended) {
  makeBooks();
  context().unposted.add({"TAB_2", "C1"}, {1, 1}, Money::ofPaise(-500));
  EXPECT_NE(report().find("Cash under BANKS lacks 5.00 Cr of a voucher"), std::string::npos);
  context().unposted.forget({"TAB_2", "C1"});
  CheckCommands commands(practice);
  EXPECT_FALSE(commands.examine()) << "there is nothing to mend";

  exec("update TAB_2 set srno=5");
  EXPECT_TRUE(commands.examine());
  select("C1", 2008);
  practice.forms().ObjCreate()->show();
  commands.offerMending();
  practice.forms().ObjCreate()->close();
  practice.forms().ObjThird()->show();
  dialogs.queueAnswer(Answer::No);
  commands.offerMending();
  EXPECT_EQ(found(), std::vector<std::string>{"number+"});
  EXPECT_EQ(messages().front().substr(0, 30), "To have the books mended, clos");

  dialogs.queueAnswer(Answer::Yes);
  commands.offerMending();
  const Rows told = asked();
  ASSERT_EQ(told.size(), 2U);
  EXPECT_EQ(told[0], (Texts{"Do you want to mend what can be mended?\n\nA backup is made before.",
                            "YesNo", "question", "No"}));
  const std::string mended = "1 finding mended.\nThe books of before: ";
  ASSERT_TRUE(told[1][0].starts_with(mended)) << told[1][0];
  EXPECT_TRUE(std::filesystem::is_regular_file(told[1][0].substr(mended.size())));
  EXPECT_EQ(found(), std::vector<std::string>());
}

// Nothing is mended without a backup, nor after a person stopped it.
TEST_F(DamagedBooksTest, ABackupThatFailsOrAStopKeepsFromMending) {
  makeBooks();
  exec("update TAB_2 set srno=5");
  EXPECT_THROW(mendBooks(practice, []() -> std::string { throw std::runtime_error("no room"); }),
               std::runtime_error);
  EXPECT_EQ(found(), std::vector<std::string>{"number+"});
  const auto backup = [] { return std::string("b"); };
  EXPECT_FALSE(mendBooks(practice, backup, [](long, long) { return false; }).complete);
  EXPECT_EQ(found(), std::vector<std::string>{"number+"}) << "stopped before its table";
}

}  // namespace
}  // namespace quillet::suite::check
