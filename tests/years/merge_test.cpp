// Merging other clients' trial balances into a year.
#include "years/years_fixture.h"

namespace quillet::support {
namespace {

class MergeTest : public YearsTest {
 protected:
  MergeTest() {
    addClient("C3", "Third's");
    addClient("c'4", "Fourth");
    suite::Client person;
    person.code = "P1";
    person.first = "Meera";
    person.middle = "R";
    person.last = "Shah";
    suite::addClient(practice.database(), person);
    // Groups and ledgers in the order of their ids.
    for (const char* each : {"CAPITAL", "BANKS", "SALES"}) group(each);
    for (const char* each : {"Asha", "Cash", "Sales", "Loan"}) ledger(each);
    addYear("C3", 2008,
            {{"Cash", "BANKS", 100.10}, {"Sales", "SALES", -70}, {"Asha", "CAPITAL", -0.30}});
    addYear("P1", 2008,
            {{"Sales", "SALES", -30},
             {"Cash", "BANKS", 0.20},
             {"Loan", "BANKS", -50},
             {"Asha", "BANKS", 30.10},
             {"Asha", "CAPITAL", 0.20}});
    addYear("c'4", 2008, {{"Asha", "CAPITAL", 0.10}});
    addYear("C2", 2007, {{"Cash", "BANKS", 9}});
  }
  third& list(const std::string& client = "C1", const std::string& first = "01/04/2008") {
    third& form = choose(&third::mnumerge, client);
    typeYear(form, first);
    return form;
  }
  // Ticks rows and confirms.
  void merge(third& form, std::initializer_list<int> ticked = {}) {
    for (const int row : ticked) form.flexgrid2.tick(row, true);
    answer({Answer::Yes});
    form.press(keys::Enter);
  }
  Rows lines(const std::string& table) {
    return rows("select srno,particular,allgrp,amt,nid from " + table +
                " t join Mast_Part p on p.PartId=t.partid join Mast_AllGrp g on g.ALLID=t.allid "
                "where code_no='C1' order by srno");
  }
  void addStock(const std::string& client, long count, const std::string& of, double amount) {
    exec("insert into TRADE_" + host().GETTBNAME(count) + " values('" + client + "'," +
         std::to_string(ledger(of)) + "," + std::to_string(group("STOCK", 7)) + "," +
         std::to_string(amount) + ")");
  }
  Rows stock(long count, const std::string& client = "C1") {
    return rows("select particular,allgrp,amt from TRADE_" + host().GETTBNAME(count) +
                " t join Mast_Part p on p.PartId=t.partid join Mast_AllGrp g on g.ALLID=t.allid "
                "where code_no='" +
                client + "' order by particular");
  }
};

TEST_F(MergeTest, ListsTheOtherClientsOfTheYear) {
  third& form = choose(&third::mnumerge, "C1");
  EXPECT_EQ(form.MaskEdBox1.text(), "01/04/####");
  statements();
  typeYear(form, "01/04/2008");
  EXPECT_EQ(statements().at(1),
            "select *  from master where f_yr ='01042008' and s_yr ='31032009' And code_no <> "
            "'C1' order by code_no");
  EXPECT_EQ(shown(form.flexgrid2),
            (Rows{{"", "c'4", "Fourth", "1", "0.10", "0.00", "0.10 Debit"},
                  {"", "C3", "Third's", "3", "100.10", "70.30", "29.80 Debit"},
                  {"", "P1", "Meera R Shah", "5", "30.50", "80.00", "49.50 Credit"}}));
  EXPECT_EQ(form.active(), &form.flexgrid2);
  form.press(keys::Escape);
  EXPECT_TRUE(form.ClGrd1.shown());
  EXPECT_EQ(value("select count(*) from master where code_no='C1'"), "0") << "nothing yet";

  list("C1", "01/04/2015");
  EXPECT_EQ(messages(), Texts{"No year of specified date is available."});
}

TEST_F(MergeTest, SumsTheTickedOnesIntoANewYear) {
  addYear("C1", 2001, {{"Cash", "BANKS", 1}});
  const auto others = held("P1");
  third& form = list();
  for (const Key key : {keys::Space, keys::Down, keys::Space, keys::Down, keys::Space}) {
    form.press(key);
  }
  EXPECT_TRUE(form.flexgrid2.ticked(3));
  form.flexgrid2.tick(1, false);
  form.flexgrid2.tick(1, true);
  answer({Answer::No, Answer::Yes});
  form.press(keys::Enter);
  EXPECT_EQ(value("select count(*) from master where code_no='C1'"), "1") << "declined";
  statements();
  frontEnd.done = 0;
  form.press(keys::Enter);
  const Texts question = {
      "Merge into the Trial Balance of 'Asha Traders' for F.Y. 2008-2009 the Trial Balances "
      "of\r\n - Fourth (c'4)\r\n - Third's (C3)\r\n - Meera R Shah (P1)\r\n\r\nConfirm Merge ?",
      "YesNo", "question", "No"};
  EXPECT_EQ(asked(), (Rows{question, question}));
  // Asha's capital nets to zero, though not in binary; the others stand by group, then particular.
  EXPECT_EQ(lines(tab(2)), (Rows{{"1", "Asha", "BANKS", "30.1", "1"},
                                 {"2", "Cash", "BANKS", "100.3", "1"},
                                 {"3", "Loan", "BANKS", "50", "2"},
                                 {"4", "Sales", "SALES", "100", "2"}}));
  EXPECT_EQ(
      rows("select tbl_nm,count,f_year_dt from master where code_no='C1' and f_yr='01042008'"),
      (Rows{{tab(2), "2", "01/04/2008"}}));
  EXPECT_EQ(held("P1"), others);
  EXPECT_EQ(lines(tab(1)).size(), 1U);
  EXPECT_EQ(context().table, tab(2));
  EXPECT_EQ(frontEnd.progress, "Merging Trial Balances....");
  EXPECT_EQ(frontEnd.done, 4);
  // Every change is followed by its flush.
  const Texts sent = statements();
  for (std::size_t i = 0; i < sent.size(); ++i) {
    const std::string verb = upperCase(sent[i].substr(0, 6));
    if (verb != "INSERT" && verb != "DELETE") continue;
    ASSERT_LT(i + 1, sent.size());
    EXPECT_EQ(sent[i + 1], "flush tables");
  }
  // The list shows the years now, also when it has to be read anew; Enter opens one.
  exec("delete from master where code_no='C1' and f_yr='01042001'");
  form.flexgrid2.setCurrent(1);
  form.press(keys::Enter);
  EXPECT_EQ(form.flexgrid2.rows(), 1);
  form.press(keys::Enter);
  EXPECT_NE(context().openForms.find("frmcrtb"), nullptr);
}

// In place of what the client has; the stock of others in the same tables is not touched.
TEST_F(MergeTest, CarriesTheClosingStock) {
  addYear("C3", 2009, {{"Sales", "SALES", -1}});
  addYear("P1", 2009, {{"Sales", "SALES", -1}});
  addStock("C3", 2, "Goods", 3540000);
  addStock("C3", 2, "Old goods", 10.1);
  addStock("P1", 2, "Goods", 12700000);
  addStock("P1", 2, "Goods", 80000.5);
  addStock("P1", 2, "Old goods", -10.1);
  addStock("C2", 2, "Goods", 7);
  addStock("C1", 1, "Left over", 99);
  third& form = list("C1", "01/04/2009");
  merge(form, {1, 2});
  EXPECT_EQ(stock(1), (Rows{{"Goods", "STOCK", "16320000.5"}}));
  EXPECT_EQ(stock(2, "P1").size(), 3U);
  EXPECT_EQ(form.lblstatus.caption(), "2 merged into 2009-2010: 1 lines, 1 of closing stock.");
}

TEST_F(MergeTest, OverwritesAnExistingYearWhateverIsDeleted) {
  addYear("C1", 2001);
  addYear("C1", 2008, {{"Loan", "BANKS", 77}});
  exec("delete from master where f_yr='01042001'");
  for (const int option : {1, 0}) {
    third& form = choose(&third::mnumerge, "C1");
    answer({Answer::No, Answer::Cancel});
    typeYear(form, "01/04/2008");
    form.press(keys::Enter);
    EXPECT_FALSE(deletionOpen());
    overwrite(form, option);
    EXPECT_EQ(asked().back(), (Texts{"Do you want to overwrite previously saved data?",
                                     "YesNoCancel", "question", "No"}));
    EXPECT_EQ(deletion().lblheading.caption(),
              "Merge Trial Balance -> Overwrite existing for F.Y. 2008-2009");
    deletion().click(deletion().cmddelete);
    const Rows row{{"01/04/2008", "31/03/2009", tab(2), "2", "01042008", "31032009"}};
    EXPECT_EQ(registry(), row);
    // Without a tick the current one is taken.
    form.press(keys::Down);
    merge(form);
    EXPECT_EQ(lines(tab(2)), (Rows{{"1", "Asha", "CAPITAL", "0.3", "2"},
                                   {"2", "Cash", "BANKS", "100.1", "1"},
                                   {"3", "Sales", "SALES", "70", "2"}}));
    EXPECT_EQ(registry(), row);
  }
}

// Yes loses no year for a merge of which nothing would come.
TEST_F(MergeTest, LooksForOthersBeforeItDeletes) {
  addYear("C1", 2015, {{"Loan", "BANKS", 77}});
  third& form = choose(&third::mnumerge, "C1");
  answer({Answer::Yes});
  typeYear(form, "01/04/2015");
  EXPECT_EQ(messages(), (Texts{"Do you want to overwrite previously saved data?",
                               "No year of specified date is available."}));
  EXPECT_FALSE(deletionOpen());
  EXPECT_EQ(lines(tab(1)).size(), 1U);
}

// Two people at once: a source is deleted after it was listed, and its table holds another year.
TEST_F(MergeTest, ASourceThatIsGoneIsSaidAndNotRead) {
  third& form = list();
  exec("delete from master where code_no='C3' and f_yr='01042008'");
  merge(form, {2});
  EXPECT_EQ(messages().back(),
            "The Trial Balance of 'Third's' for F.Y. 2008-2009 does not exist any more.");
  EXPECT_EQ(form.flexgrid2.rows(), 2);
  EXPECT_EQ(value("select count(*) from master where code_no='C1'"), "0");
  exec("delete from master");
  merge(form);
  EXPECT_EQ(messages().back(), "No year of specified date is available.");
  EXPECT_EQ(form.flexgrid2.rows(), 0);
}

// Two people at once: the year did not exist when its dates were typed.
TEST_F(MergeTest, AYearMadeInTheMeantimeIsAskedAbout) {
  third& form = list();
  addYear("C1", 2008, {{"Loan", "BANKS", 77}});
  answer({Answer::Yes, Answer::No});
  form.press(keys::Enter);
  EXPECT_EQ(messages().back(), "Do you want to overwrite previously saved data?");
  EXPECT_EQ(lines(tab(1)), (Rows{{"1", "Loan", "BANKS", "77", "1"}}));
}

TEST_F(MergeTest, BooksUnderAPasswordAreReadWithItOnly) {
  third& form = list();
  for (int row = 1; row <= 3; ++row) form.flexgrid2.tick(row, true);
  suite::Passwords::set(practice.database(), suite::PasswordKind::client, "P1", "secret");
  for (const bool known : {false, true}) {
    statements();
    answer({Answer::Yes});
    dialogs.queuePassword(known ? std::optional<std::string>("secret") : std::nullopt);
    form.press(keys::Enter);
    EXPECT_EQ(statements().empty(), !known);
    EXPECT_EQ(lines(tab(1)).size(), known ? 4U : 0U);
  }
  messages();
}

TEST_F(MergeTest, WithoutAFreeNumberNothingIsMerged) {
  for (int year = 1990; year < 1990 + tableNumbers; ++year) addYear("C1", year);
  merge(list());
  EXPECT_EQ(messages().back(), "No blank database available. Delete one or more years database.");
  EXPECT_EQ(value("select count(*) from master where code_no='C1'"), std::to_string(tableNumbers));
}

TEST_F(MergeTest, AFailureAnywhereIsLoggedOnceAndEnterAgainCompletes) {
  addStock("C3", 1, "Goods", 5);
  addStock("P1", 1, "Old goods", 7);
  FailingDeed deed{.what = "merging"};
  deed.arrange = [&] {
    emptyClient();
    context().forgetYear();
    third& form = list();
    for (int row = 1; row <= 3; ++row) form.flexgrid2.tick(row, true);
    answer({Answer::Yes});
  };
  deed.act = [&] { home().press(keys::Enter); };
  deed.result = [&] {
    Rows all = lines(tab(1));
    for (const auto& line : stock(1)) all.push_back(line);
    return all;
  };
  const auto once = [&] { EXPECT_EQ(registry().size(), 1U); };
  deed.next = {{"Enter again", [&] { merge(home()); }, {}, once}};
  deed.check = [&] {
    EXPECT_TRUE(inWorkWhole()) << context().table;
    const std::string said = home().lblstatus.caption();
    EXPECT_TRUE(said.ends_with(" Enter begins it again.") || said.ends_with("could not be read.") ||
                inWork()[1].empty())
        << said;
  };
  failEachStatement(deed);
  EXPECT_EQ(stock(1).size(), 2U);
}

}  // namespace
}  // namespace quillet::support
