// Creating a year from the home form.
#include "years/years_fixture.h"

namespace quillet::support {
namespace {

class CreationTest : public YearsTest {
 protected:
  third& begin(const std::string& client = "C1") { return choose(&third::mnucreate, client); }
  void create(const std::string& first, const std::string& client = "C1") {
    typeYear(begin(client), first);
  }
};

TEST_F(CreationTest, BeginsWithTheDatesAndProposesTheSecond) {
  third& form = begin();
  EXPECT_EQ(form.MaskEdBox1.text(), "01/04/####");
  EXPECT_EQ(form.MaskEdBox2.text(), "31/03/####");
  EXPECT_EQ(form.active(), &form.MaskEdBox1);
  press(form, "200\r");
  EXPECT_EQ(messages(), Texts{"Invalid date."});
  EXPECT_EQ(form.active(), &form.MaskEdBox1);
  EXPECT_EQ(form.MaskEdBox1.text(), "01/04/200#");
  press(form, "8\r");
  EXPECT_EQ(form.active(), &form.MaskEdBox2);
  EXPECT_EQ(form.MaskEdBox2.text(), "31/03/2009");
  form.press(keys::Escape);
  EXPECT_TRUE(form.ClGrd1.shown());
}

TEST_F(CreationTest, ShowsTheYearsAndTakesTheNextOneByAKey) {
  clock.set({2009, 3, 31});
  EXPECT_EQ(begin().lblproposal.caption(),
            "Down takes 2007-2008, the year that ended last. The client has none yet.");
  clock.set({2009, 4, 1});
  EXPECT_EQ(begin().lblproposal.caption().substr(0, 20), "Down takes 2008-2009");
  addYear("C1", 2005, {{"Cash", "BANKS", 12.5}});
  addYear("C1", 2003);
  third& form = begin();
  EXPECT_EQ(form.lblproposal.caption(), "Down takes 2006-2007, the year after the latest one.");
  EXPECT_EQ(form.MaskEdBox1.text(), "01/04/####");
  EXPECT_EQ(shown(form.grdyears),
            (Rows{{"01/04/2003", "31/03/2004", "0", "0.00", "0.00", "", ""},
                  {"01/04/2005", "31/03/2006", "1", "12.50", "0.00", "12.50 Debit", ""}}));
  form.press(keys::Down);
  EXPECT_EQ(form.active(), &form.MaskEdBox2);
  EXPECT_EQ(form.MaskEdBox2.text(), "31/03/2007");
  answer({Answer::No});
  form.press(keys::Enter);
  EXPECT_EQ(registry().size(), 3U);
  // The button does what Enter does, the second date unseen; also for a merge.
  begin();
  type(form.MaskEdBox1, "01/04/2007");
  answer({Answer::No});
  form.click(form.cmdyear);
  EXPECT_EQ(registry().back().at(4), "01042007");
  EXPECT_EQ(form.active(), &form.flexgrid2);
  choose(&third::mnumerge, "C1").press(keys::Down);
  messages();
  form.click(form.cmdyear);
  EXPECT_EQ(messages(), Texts{"No year of specified date is available."});
  // Nothing follows the last year that there is, and what cannot be read is not shown.
  addYear("C1", 9998);
  EXPECT_EQ(begin().lblproposal.caption(), "");
  host().statements().failNext("Count(*)");
  EXPECT_EQ(begin().lblproposal.caption(), "What the years hold could not be read.");
  EXPECT_EQ(form.grdyears.rows(), 0);
  EXPECT_EQ(trapped(), Texts{"third\tYEARFIGURES"});
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
  third& form = begin();
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
  press(form, "2008");
  EXPECT_EQ(form.MaskEdBox1.text(), "01/04/2008");
  typeYear(form, "01/04/2008", "31/02/2009");
  EXPECT_EQ(form.active(), &form.MaskEdBox2);
}

TEST_F(CreationTest, RegistersTheFirstYear) {
  third& form = begin();
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
                   "order by s_yr",
                   "select * from master where code_no='C1' ORDER BY s_yr",
                   "Select 0,Count(*),Sum(If(Nid=1,Amt,0)),Sum(If(Nid=2,Amt,0)),(Select "
                   "Max(VDate) From " +
                       jrnl(1) + " Where Code_No='C1') From " + tab(1) + " Where Code_No='C1'"}));
  EXPECT_EQ(messages(), Texts{"No previous years available."});
  EXPECT_EQ(inWork(), (Texts{"C1", tab(1), "01041980", "31031981"}));
  // The list shows the new year, and Enter goes on into it.
  EXPECT_EQ(form.active(), &form.flexgrid2);
  EXPECT_EQ(form.flexgrid2.cell(form.flexgrid2.current(), 0), "01/04/1980");
  form.press(keys::Enter);
  EXPECT_NE(context().openForms.find("frmcrtb"), nullptr);
}

TEST_F(CreationTest, TakesTheLowestFreeNumberOrNone) {
  for (int year = 2001; year < 2001 + tableNumbers; ++year) addYear("C1", year);
  exec("delete from master where count=3");
  answer({Answer::No});
  create("01/04/2010");
  EXPECT_EQ(registry().back(),
            (Texts{"01/04/2010", "31/03/2011", tab(3), "3", "01042010", "31032011"}));
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
    third& form = begin();
    answer({Answer::Yes, figures ? Answer::Yes : Answer::No});
    statements();
    typeYear(form, "01/04/2008");
    EXPECT_EQ(asked(),
              (Rows{{"Do you want to load previous year particulars.", "YesNo", "question", "Yes"},
                    {"Do you want to Import Figures also?", "YesNo", "question", "No"}}));
    Rows copied = source;
    Texts inserts;
    for (std::size_t i = 0; i < 2; ++i) {
      Texts& line = copied[i];
      line[0] = std::to_string(8 + i);
      if (!figures) line[4] = "0";
      inserts.push_back("insert into " + tab(4) + "(srno,code_no,partid,allid,amt,nid) values(" +
                        line[0] + ",'C1'," + line[2] + ',' + line[3] + ',' + line[4] + ',' +
                        line[5] + ')');
    }
    EXPECT_EQ(lines(tab(4)), (Rows{{"7", "C1", "1", "1", "5", "1"}, copied[0], copied[1]}));
    EXPECT_EQ(lines(tab(2)), source);
    const Texts sent = statements();
    const auto at = std::ranges::find(
        sent, "Select max(srno) as maxsrno from " + tab(4) + " Where Code_No='C1'");
    ASSERT_GE(sent.end() - at, 5);
    EXPECT_EQ(Texts(at + 1, at + 5),
              (Texts{"SELECT * FROM " + tab(2) + " WHERE CODE_NO='C1' ORDER BY SrNo", inserts[0],
                     inserts[1], "flush tables"}));
    EXPECT_FALSE(frontEnd.busy);
    EXPECT_EQ(frontEnd.progress, "Loading previous year....");
    EXPECT_EQ(frontEnd.done, 2) << "each row moves the bar";
    EXPECT_EQ(frontEnd.total, 2);
  }
  addClient("c'3", "Third's");
  addYear("c'3", 2007, {{"Cash", "BANKS", 1}});
  answer({Answer::Yes, Answer::Yes});
  create("01/04/2008", "c'3");
  EXPECT_EQ(value("select count(*) from " + tab(2) + " where code_no='c\\'3'"), "1");
}

// A voucher that was posted by half belongs to the figures that are taken over, and printed.
TEST_F(CreationTest, TakesOverWhatIsNotPostedYet) {
  for (const bool printed : {true, false}) {
    exec("delete from master");
    for (const long each : {1, 2}) exec("delete from " + tab(each));
    addYear("C1", 2007, {{"Cash", "BANKS", 5}});
    context().unposted.add({tab(1), "C1"}, {ledger("Cash"), group("BANKS")}, Money::ofPaise(250));
    answer({Answer::Yes, Answer::Yes});
    if (printed) {
      choose(&third::mnualpha, "C1").press(keys::Enter);
      EXPECT_EQ(dialogs.left(), 2U);
      dialogs.clear();
    } else {
      create("01/04/2008");
    }
    EXPECT_EQ(lines(tab(printed ? 1 : 2)).at(0).at(4), "7.5");
  }
}

TEST_F(CreationTest, AFailureAnywhereIsLoggedOnceAndTheSecondTryCompletes) {
  const Texts before{"C1", tab(1), "01042006", "31032007"};
  const Texts after{"C1", tab(2), "01042008", "31032009"};
  FailingDeed deed{.what = "creating"};
  deed.arrange = [&] {
    emptyClient();
    addYear("C1", 2006, {{"Cash", "BANKS", 5}, {"Asha", "CAPITAL", -5}});
    select("C1", 2006);
    third& form = begin();
    type(form.MaskEdBox1, "01/04/2008");
    form.focus(form.MaskEdBox2);
    answer({Answer::Yes, Answer::Yes});
  };
  deed.act = [&] { home().press(keys::Enter); };
  deed.result = [&] { return registryAndLines(tab(2)); };
  const auto again = [&] {
    const bool registered = registry().size() == 2;
    third& form = begin();
    if (registered) {
      overwrite(form, 1);
      answer({Answer::Yes, Answer::Yes});
      deletion().click(deletion().cmddelete);
    } else {
      answer({Answer::Yes, Answer::Yes});
      typeYear(form, "01/04/2008");
    }
    EXPECT_EQ(dialogs.left(), 0U);
  };
  const auto opensTheYearBefore = [&] {
    third& form = choose(&third::mnualter, "C1");
    form.flexgrid2.setCurrent(1);
    form.press(keys::Enter);
    EXPECT_EQ(inWork(), before);
    EXPECT_EQ(context().openForms.active()->name(), "frmcrtb");
    context().openForms.active()->close();
  };
  deed.next = {{"the same command, over what was registered already", again},
               {"the year before is opened", {}, {}, opensTheYearBefore}};
  deed.check = [&] {
    EXPECT_EQ(inWork(), registry().size() == 2 ? after : before);
    const std::string status = home().lblstatus.caption();
    const bool said = status.find("not taken over") != std::string::npos ||
                      status.find("not created in full") != std::string::npos ||
                      status.ends_with("could not be read.");
    const bool listed = home().flexgrid2.shown();
    EXPECT_TRUE(said || listed || registry().size() == 1);
  };
  failEachStatement(deed);
  EXPECT_EQ(registryAndLines(tab(2)).size(), 4U);
}

TEST_F(CreationTest, FailuresAreLoggedUnderTheirProcedure) {
  addYear("C1", 2006, {{"Cash", "BANKS", 5}});
  const std::pair<const char*, const char*> cases[] = {
      {"SELECT * FROM master", "MASKEDBOX2_KEYPRESS"},
      {"select count from", "GETTABLE"},
      {"insert into master", "MASKEDBOX2_KEYPRESS"},
      {"max(srno)", "DATA_TRANSFER"}};
  for (const auto& [statement, procedure] : cases) {
    third& form = begin();
    host().statements().failNext(statement);
    answer({Answer::Yes, Answer::No});
    typeYear(form, "01/04/2008");
    EXPECT_EQ(trapped(), Texts{std::string("third\t") + procedure}) << statement;
    dialogs.clear();
  }
  third& form = home();
  host().statements().failNext("select * from master");
  EXPECT_EQ(form.newYear.GETTABLE1("01042006", "31032007"), std::nullopt);
  EXPECT_EQ(trapped(), Texts{"third\tGETTABLE1"});
  EXPECT_EQ(form.newYear.GETTABLE1("01042006", "31032007"), tab(1));
  EXPECT_EQ(form.newYear.GETTABLE1("01041996", "31031997"), "");
}

}  // namespace
}  // namespace quillet::support
