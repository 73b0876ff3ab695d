// Creating a year from the home form.
#include "years/years_fixture.h"

namespace quillet::support {
namespace {

class CreationTest : public YearsTest {
 protected:
  Rows registry(const std::string& client = "C1") {
    return rows("select f_year_dt,s_year_dt,tbl_nm,count,f_yr,s_yr from master where code_no='" +
                client + "' order by s_yr");
  }
  Rows lines(const std::string& table, const std::string& client = "C1") {
    return rows("select srno,code_no,partid,allid,amt,nid from " + table + " where code_no='" +
                host().TruncVarSQL(client) + "' order by srno");
  }
  Rows registryAndLines(const std::string& table) {
    Rows all = registry();
    for (const auto& line : lines(table)) all.push_back(line);
    return all;
  }
  void create(const std::string& first, const std::string& client = "C1") {
    typeYear(choose(&third::mnucreate, client), first);
  }
  // The year that the existing one is created over, with the option of that number.
  void overwrite(third& form, int option) {
    answer({Answer::Yes});
    typeYear(form, "01/04/2008");
    frmdelwhatinTB& box = deletion();
    box.click(box.optMain[option]);
    answer({Answer::Yes});
  }
};

TEST_F(CreationTest, BeginsWithTheDatesAndProposesTheSecond) {
  third& form = choose(&third::mnucreate, "C1");
  EXPECT_EQ(form.MaskEdBox1.text(), "01/04/####");
  EXPECT_EQ(form.MaskEdBox2.text(), "31/03/####");
  EXPECT_EQ(form.active(), &form.MaskEdBox1);
  for (const char c : {'2', '0', '0'}) form.press(c);
  form.press(keys::Enter);
  EXPECT_EQ(messages(), Texts{"Invalid date."});
  EXPECT_EQ(form.active(), &form.MaskEdBox1);
  EXPECT_EQ(form.MaskEdBox1.text(), "01/04/200#");
  form.press('8');
  form.press(keys::Enter);
  EXPECT_EQ(form.active(), &form.MaskEdBox2);
  EXPECT_EQ(form.MaskEdBox2.text(), "31/03/2009");
  form.press(keys::Escape);
  EXPECT_TRUE(form.ClGrd1.shown());
}

TEST_F(CreationTest, RefusesDatesWithTheirMessageAndResetsTheBoxes) {
  const struct {
    const char *first, *second, *text, *icon, *firstLeft, *secondLeft;
  } cases[] = {
      {"01/04/1979", "31/03/1980", "Financial Year from 1980-81 allowed.", "information",
       "01/04/1979", "31/03/1980"},
      {"01/04/2008", "31/03/2010", "Difference between the two dates should be one year.", "none",
       "01/04/2008", "31/03/2010"},
      {"31/04/2008", "31/03/2009", "Invalid date.", "information", "01/04/####", "31/03/2009"},
      {"01/04/2008", "29/02/2009", "Invalid date.", "information", "01/04/2008", "31/03/####"},
      // The first fault is told, not the others.
      {"31/04/1979", "29/02/2009", "Financial Year from 1980-81 allowed.", "information",
       "31/04/1979", "29/02/2009"},
  };
  third& form = choose(&third::mnucreate, "C1");
  statements();
  for (const auto& c : cases) {
    typeYear(form, c.first, c.second);
    EXPECT_EQ(asked(), (Rows{{c.text, "OK", c.icon, "OK"}})) << c.first;
    EXPECT_EQ(form.MaskEdBox1.text(), c.firstLeft);
    EXPECT_EQ(form.MaskEdBox2.text(), c.secondLeft);
    EXPECT_TRUE(statements().empty());
  }
  EXPECT_EQ(form.newYear.COMP_DT("01/04/2009", "31/03/2009"), 1);
  // The date's own box has the focus after what is said of it, and is typed anew where it stands.
  typeYear(form, "31/04/2008", "31/03/2009");
  EXPECT_EQ(form.active(), &form.MaskEdBox1);
  for (const char c : {'2', '0', '0', '8'}) form.press(c);
  EXPECT_EQ(form.MaskEdBox1.text(), "01/04/2008");
  typeYear(form, "01/04/2008", "31/02/2009");
  EXPECT_EQ(form.active(), &form.MaskEdBox2);
  messages();
}

TEST_F(CreationTest, RegistersTheFirstYear) {
  third& form = choose(&third::mnucreate, "C1");
  statements();
  typeYear(form, "01/04/1980");
  EXPECT_EQ(statements(),
            (Texts{"SELECT * FROM master where code_no='C1' and s_yr='31031981' and "
                   "f_yr='01041980'",
                   "select count from master where code_no ='C1' order by count",
                   "insert into master(code_no,f_year_dt,s_year_dt,tbl_nm,count,f_yr,s_yr) "
                   "values('C1','01/04/1980','31/03/1981','" +
                       tab(1) + "',1,'01041980','31031981')",
                   "flush tables", "select * from master where code_no='C1' ORDER BY s_yr",
                   "select code_no,f_year_dt,s_year_dt,f_yr,s_yr from master where code_no='C1' "
                   "order by s_yr"}));
  EXPECT_EQ(messages(), Texts{"No previous years available."});
  EXPECT_EQ(inWork(), (Texts{"C1", tab(1), "01041980", "31031981"}));
  // The list shows the new year, and Enter goes on into it.
  EXPECT_EQ(form.active(), &form.flexgrid2);
  EXPECT_EQ(form.flexgrid2.cell(form.flexgrid2.current(), 0), "01/04/1980");
  form.press(keys::Enter);
  EXPECT_NE(context().desk.find("frmcrtb"), nullptr);
}

TEST_F(CreationTest, TakesTheLowestFreeNumberOrNone) {
  for (int year = 2001; year <= 2004; ++year) addYear("C1", year);
  exec("delete from master where count=3");
  answer({Answer::No});
  create("01/04/2008");
  EXPECT_EQ(registry().back(),
            (Texts{"01/04/2008", "31/03/2009", tab(3), "3", "01042008", "31032009"}));
  for (int year = 2010; registry().size() < tableNumbers; ++year) {
    answer({Answer::No});
    create("01/04/" + std::to_string(year));
  }
  messages();
  const Rows before = registry();
  create("01/04/2020");
  EXPECT_EQ(asked(), (Rows{{"No blank database available. Delete one or more years database.", "OK",
                            "none", "OK"}}));
  EXPECT_EQ(registry(), before);
  EXPECT_EQ(context().table, "");
  // Another client takes its own numbers.
  create("01/04/2020", "C2");
  EXPECT_EQ(registry("C2").at(0).at(2), tab(1));
}

TEST_F(CreationTest, CopiesTheLatestEarlierYear) {
  addYear("C1", 2002, {{"Old", "BANKS", 1}});
  addYear("C1", 2005, {{"Cash", "BANKS", 12.5}, {"Asha", "CAPITAL", -1000000000.25}});
  addYear("C1", 2009, {{"Later", "BANKS", 1}});
  addYear("C2", 2006, {{"Theirs", "BANKS", 1}});
  exec("insert into " + tab(2) + " values(9,'C2',1,1,5,1)");
  const Rows source = lines(tab(2));
  for (const bool figures : {true, false}) {
    exec("delete from master where f_yr='01042008'");
    exec("delete from " + tab(4));
    // What the table already holds of the client is numbered on from.
    exec("insert into " + tab(4) + " values(7,'C1',1,1,5,1)");
    third& form = choose(&third::mnucreate, "C1");
    answer({Answer::Yes, figures ? Answer::Yes : Answer::No});
    statements();
    frontEnd.progress.clear();
    frontEnd.done = frontEnd.total = 0;
    typeYear(form, "01/04/2008");
    EXPECT_EQ(asked(),
              (Rows{{"Do you want to load previous year particulars.", "YesNo", "question", "Yes"},
                    {"Do you want to Import Figures also?", "YesNo", "question", "No"}}));
    const auto copied = [&](std::size_t i, const std::string& srno) {
      return Texts{srno,        "C1", source[i][2], source[i][3], figures ? source[i][4] : "0",
                   source[i][5]};
    };
    EXPECT_EQ(lines(tab(4)),
              (Rows{{"7", "C1", "1", "1", "5", "1"}, copied(0, "8"), copied(1, "9")}));
    EXPECT_EQ(lines(tab(2)), source);
    const Texts sent = statements();
    const auto at = std::find(sent.begin(), sent.end(),
                              "Select max(srno) as maxsrno from " + tab(4) + " Where Code_No='C1'");
    ASSERT_GE(sent.end() - at, 5);
    EXPECT_EQ(at[1], "SELECT * FROM " + tab(2) + " WHERE CODE_NO='C1' ORDER BY SrNo");
    EXPECT_EQ(at[2], "insert into " + tab(4) +
                         "(srno,code_no,partid,allid,amt,nid) values(8,'C1'," + source[0][2] + "," +
                         source[0][3] + "," + (figures ? "12.5" : "0") + ",1)");
    EXPECT_EQ(at[4], "flush tables");
    EXPECT_FALSE(frontEnd.busy);
    EXPECT_EQ(frontEnd.progress, "Loading previous year....");
    EXPECT_EQ(frontEnd.done, 2) << "each row moves the bar";
    EXPECT_EQ(frontEnd.total, 2);
  }
}

// A voucher that was posted by half belongs to the figures that are taken over, and printed.
TEST_F(CreationTest, TakesOverWhatIsNotPostedYet) {
  for (const bool printed : {true, false}) {
    exec("delete from master");
    for (const long each : {1, 2}) exec("delete from " + tab(each));
    addYear("C1", 2007, {{"Cash", "BANKS", 5}});
    context().unposted.add({tab(1), "C1"}, {ledger("Cash"), group("BANKS")}, 2.5);
    if (printed) {
      choose(&third::mnualpha, "C1").press(keys::Enter);
    } else {
      answer({Answer::Yes, Answer::Yes});
      create("01/04/2008");
    }
    EXPECT_EQ(lines(tab(printed ? 1 : 2)).at(0).at(4), "7.5");
  }
  messages();
}

// --- over an existing year ----------------------------------------------------------------------

TEST_F(CreationTest, AsksBeforeItOverwritesAndLeavesEverythingOnNo) {
  addYear("C1", 2008, {{"Cash", "BANKS", 5}});
  const auto before = held("C1");
  third& form = choose(&third::mnucreate, "C1");
  host().refuse("CheckPass");
  typeYear(form, "01/04/2008");
  EXPECT_TRUE(messages().empty()) << "without the right there is nothing to be asked";
  answer({Answer::No});
  form.press(keys::Enter);
  EXPECT_EQ(asked(), (Rows{{"Duplicate date is not allowed !\r\n\r\n"
                            "Do you want to overwrite previously saved data ?",
                            "YesNo", "question", "No"}}));
  // Cancelled in the deletion form: nothing has changed either.
  answer({Answer::Yes});
  form.press(keys::Enter);
  EXPECT_EQ(deletion().lblheading.caption(),
            "Create Trial Balance -> Overwrite existing for F.Y. 2008-2009");
  deletion().click(deletion().cmdcancel);
  EXPECT_EQ(held("C1"), before);
  messages();

  form.click(form.mnualter);
  form.doubleClick(form.ClGrd1);
  Key enter = keys::Enter;
  form.MaskEdBox2.KeyPress(enter);
  const auto warned = dialogs.takeMessages();
  ASSERT_EQ(warned.size(), 1U);
  EXPECT_EQ(warned[0].message.text, "Duplicate date is not allowed.");
  EXPECT_EQ(warned[0].message.title, "Warning");
}

// Whatever was chosen to be deleted: one row, with the old table and number.
TEST_F(CreationTest, KeepsTableAndNumberAndOneRow) {
  addYear("C1", 2003);
  addYear("C1", 2008, {{"Cash", "BANKS", 5}});
  exec("delete from master where f_yr='01042003'");  // number 1 is free again
  for (const int option : {1, 0, 1}) {
    exec("update master set annex='a',d_of_s='01/01/2010' where f_yr='01042008'");
    third& form = choose(&third::mnucreate, "C1");
    overwrite(form, option);
    deletion().click(deletion().cmddelete);
    EXPECT_EQ(messages().back(), "No previous years available.");
    EXPECT_EQ(registry(),
              (Rows{{"01/04/2008", "31/03/2009", tab(2), "2", "01042008", "31032009"}}));
    EXPECT_EQ(context().table, tab(2));
    EXPECT_EQ(value("select count(*) from " + tab(2)), "0");
    // What was not deleted still hangs on the row.
    EXPECT_EQ(value("select annex from master"), option == 1 ? "a" : "NULL");
  }
  // A year that begins on another day keeps its row too, with the new date.
  third& form = choose(&third::mnucreate, "C1");
  answer({Answer::Yes});
  typeYear(form, "15/06/2008");
  deletion().click(deletion().optMain[1]);
  answer({Answer::Yes});
  deletion().click(deletion().cmddelete);
  EXPECT_EQ(registry(), (Rows{{"15/06/2008", "31/03/2009", tab(2), "2", "01042008", "31032009"}}));
}

// --- failures -----------------------------------------------------------------------------------

// A database error at any statement: one line in the log, what was sent before is done; the same
// command again completes the year.
TEST_F(CreationTest, AFailureAnywhereIsLoggedOnceAndTheSecondTryCompletes) {
  const Texts before{"C1", tab(1), "01042006", "31032007"};
  const Texts after{"C1", tab(2), "01042008", "31032009"};
  const auto everything = [&] { return registryAndLines(tab(2)); };
  failEachStatement({.what = "creating",
                     .arrange =
                         [&] {
                           for (const long each : {1, 2}) exec("delete from " + tab(each));
                           exec("delete from master where code_no='C1'");
                           addYear("C1", 2006, {{"Cash", "BANKS", 5}, {"Asha", "CAPITAL", -5}});
                           select("C1", 2006);
                           third& form = choose(&third::mnucreate, "C1");
                           type(form.MaskEdBox1, "01/04/2008");
                           form.focus(form.MaskEdBox2);
                           answer({Answer::Yes, Answer::Yes});
                         },
                     .act = [&] { home().press(keys::Enter); },
                     .result = everything,
                     .next = {{"the same command, over what was registered already",
                               [&] {
                                 const bool registered = registry().size() == 2;
                                 third& form = choose(&third::mnucreate, "C1");
                                 if (registered) overwrite(form, 1);
                                 answer({Answer::Yes, Answer::Yes});
                                 if (registered) deletion().click(deletion().cmddelete);
                                 if (!registered) typeYear(form, "01/04/2008");
                                 EXPECT_EQ(dialogs.left(), 0U);
                               }},
                              {"the year before is opened",
                               {},
                               {},
                               [&] {
                                 third& form = choose(&third::mnualter, "C1");
                                 form.flexgrid2.setCurrent(1);
                                 form.press(keys::Enter);
                                 EXPECT_EQ(inWork(), before);
                                 EXPECT_EQ(context().desk.active()->name(), "frmcrtb");
                                 context().desk.active()->close();
                               }}},
                     .check =
                         [&] {
                           EXPECT_EQ(inWork(), registry().size() == 2 ? after : before);
                           const bool said = home().lblstatus.caption().find("not taken over") !=
                                             std::string::npos;
                           const bool listed = home().flexgrid2.columns().size() == 2;
                           EXPECT_TRUE(said || listed || registry().size() == 1);
                         }});
  EXPECT_EQ(everything().size(), 4U);
}

// The same over an existing year, for what is deleted of it and for both commands. Whoever gives up
// in the middle and gives the same command again gets the year whole.
TEST_F(CreationTest, AFailureWhileOverwritingIsCompletedByTheNextTry) {
  addYear("C2", 2008, {{"Theirs", "BANKS", 1}});
  const auto everything = [&] { return registryAndLines(tab(2)); };
  const std::pair<Button third::*, std::size_t> commands[] = {{&third::mnucreate, 2},
                                                              {&third::mnumerge, 1}};
  for (const auto& [command, linesMade] : commands) {
    for (const int option : {1, 0}) {
      // Every question is answered with Yes.
      const auto begin = [&, command = command] {
        choose(command, "C1");
        for (int i = 0; i < 10; ++i) answer({Answer::Yes});
      };
      const auto makeYear = [&] {
        third& form = home();
        typeYear(form, "01/04/2008");
        if (deletionOpen()) {
          frmdelwhatinTB& box = deletion();
          box.click(box.optMain[option]);
          box.click(box.cmddelete);
          if (deletionOpen()) box.click(box.cmdcancel);
        }
        if (form.flexgrid2.columns().at(0).tick) form.press(keys::Enter);
      };
      failEachStatement(
          {.what = std::to_string(linesMade) + " lines, option " + std::to_string(option),
           .arrange =
               [&] {
                 exec("delete from master where code_no='C1'");
                 for (const long each : {1, 2}) {
                   exec("delete from " + tab(each) + " where code_no='C1'");
                 }
                 addYear("C1", 2006, {{"Cash", "BANKS", 5}, {"Asha", "CAPITAL", -5}});
                 addYear("C1", 2008, {{"Old", "BANKS", 7}});
                 select("C1", option == 1 ? 2006 : 2008);
                 begin();
               },
           .act = makeYear,
           .result = everything,
           .next = {{"the same command",
                     [&] {
                       begin();
                       makeYear();
                     }}},
           .stops = false,
           .check = [&] { EXPECT_TRUE(inWorkWhole()) << context().table; }});
      EXPECT_EQ(everything().size(), 2 + linesMade);
    }
  }
}

TEST_F(CreationTest, WhatFailedOnTheWayToAnEmptyYearIsSaid) {
  addYear("C1", 2008);
  const std::pair<const char*, const char*> cases[] = {
      {"DELETE FROM JRNL_", "The deletion of 2008-2009 was not completed. Enter begins it again."},
      {"insert into master",
       "The trial balance of 2008-2009 was not created in full. Enter begins it again."}};
  for (const auto& [statement, said] : cases) {
    third& form = choose(&third::mnucreate, "C1");
    overwrite(form, 0);
    host().statements().failNext(statement);
    deletion().click(deletion().cmddelete);
    if (deletionOpen()) deletion().click(deletion().cmdcancel);
    EXPECT_EQ(form.lblstatus.caption(), said);
    log();
    messages();
  }
}

// Two people at once: the row goes while the deletion form is open. The year is registered anew.
TEST_F(CreationTest, ARowThatGoesMeanwhileIsWrittenAnew) {
  addYear("C1", 2008, {{"Old", "BANKS", 7}});
  addYear("C2", 2008);
  for (Button third::*command : {&third::mnucreate, &third::mnumerge}) {
    third& form = choose(command, "C1");
    overwrite(form, 1);
    exec("delete from master where code_no='C1'");
    deletion().click(deletion().cmddelete);
    EXPECT_EQ(registry(),
              (Rows{{"01/04/2008", "31/03/2009", tab(1), "1", "01042008", "31032009"}}));
    if (command == &third::mnumerge) {
      exec("delete from master where code_no='C1'");
      answer({Answer::Yes});
      form.press(keys::Enter);
      EXPECT_EQ(registry().size(), 1U) << "and again between listing and merging";
    }
    messages();
  }
}

TEST_F(CreationTest, FailuresAreLoggedUnderTheirProcedure) {
  addYear("C1", 2006, {{"Cash", "BANKS", 5}});
  const std::pair<const char*, const char*> cases[] = {
      {"SELECT * FROM master", "MASKEDBOX2_KEYPRESS"},
      {"select count from", "GETTABLE"},
      {"insert into master", "MASKEDBOX2_KEYPRESS"},
      {"max(srno)", "DATA_TRANSFER"}};
  for (const auto& [statement, procedure] : cases) {
    dialogs.clear();
    third& form = choose(&third::mnucreate, "C1");
    host().statements().failNext(statement);
    answer({Answer::Yes, Answer::No});
    typeYear(form, "01/04/2008");
    EXPECT_EQ(trapped(), Texts{std::string("third\t") + procedure}) << statement;
  }
  dialogs.clear();
  third& form = home();
  host().statements().failNext("select * from master");
  EXPECT_EQ(form.newYear.GETTABLE1("01042006", "31032007"), std::nullopt);
  EXPECT_EQ(trapped(), Texts{"third\tGETTABLE1"});
  EXPECT_EQ(form.newYear.GETTABLE1("01042006", "31032007"), tab(1));
  EXPECT_EQ(form.newYear.GETTABLE1("01041996", "31031997"), "");
}

}  // namespace
}  // namespace quillet::support
