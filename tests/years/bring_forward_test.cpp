// Bringing a year forward, by its books: what the next year begins with, what is offered later, and
// that it is written as a whole. The figures are worked out by hand.
#include "books/ledger_master.h"
#include "books/ledger_use.h"
#include "data/errors.h"
#include "years/bring_forward_fixture.h"

namespace quillet::support {
namespace {

TEST_F(BringForwardTest, OpensTheNextYear) {
  const std::vector<Line> three{{"A", "CAPITAL", -10},
                                {"B", "CAPITAL", -20},
                                {"C", "CAPITAL", -30},
                                {"Bank", "BANKS", 60.05},
                                {"Sales", "SALES", -0.05}};
  const std::vector<Line> trader{{"Asha", "CAPITAL", -1000},
                                 {"RM", "OS RM", 200},
                                 {"Goods", "PURCHASES", 900},
                                 {"Sales", "SALES", -300},
                                 {"Bank", "BANKS", 200}};
  const struct {
    const char* what;
    std::vector<Line> lines, stock;
    std::vector<std::pair<const char*, const char*>> bound;
    std::vector<std::pair<const char*, long>> shares;
    std::vector<std::pair<std::string, long>> opening;  // in paise, debit positive
    long profit, difference;
    const char* question;
  } cases[] = {
      {"a proprietor's profit",
       {{"Asha", "CAPITAL", -1000},
        {"Drawn", "CAPITAL", 100},
        {"Bank", "BANKS", 1400},
        {"Sales", "SALES", -800},
        {"Shop", "RENT", 300}},
       {},
       {},
       {},
       {{"Asha", -150000}, {"Drawn", 10000}, {"Bank", 140000}, {"Sales", 0}, {"Shop", 0}},
       50000,
       0,
       ""},
      {"a loss, depreciation in it",
       {{"Asha", "CAPITAL", -1000},
        {"Bank", "BANKS", 400},
        {"Shop", "RENT", 500},
        {"Written off", "DEPRECIATION", 100}},
       {},
       {},
       {},
       {{"Asha", -40000}, {"Bank", 40000}, {"Shop", 0}, {"Written off", 0}},
       -60000,
       0,
       ""},
      // Of 5 paise 1.666665, 1.666665 and 1.66667.
      {"partners' odd paise",
       three,
       {},
       {},
       {{"A", 333333}, {"B", 333333}, {"C", 333334}},
       {{"A", -1002}, {"B", -2001}, {"C", -3002}, {"Bank", 6005}, {"Sales", 0}},
       5,
       0,
       ""},
      {"nobody chosen",
       three,
       {},
       {},
       {},
       {{"A", -1000}, {"B", -2000}, {"C", -3000}, {"Bank", 6005}, {"Sales", 0}},
       5,
       5,
       "Choose whose capital takes the profit."},
      {"not the whole",
       three,
       {},
       {},
       {{"A", 333333}, {"B", 566667}},
       {{"A", -1000}, {"B", -2000}, {"C", -3000}, {"Bank", 6005}, {"Sales", 0}},
       5,
       5,
       "The shares of the profit come to 90 per cent. They have to come to 100."},
      // 650.25 + 100.50 in stock and 300 sold, of 1,100 bought: a loss of 49.25.
      {"stock by the binding, and besides",
       trader,
       {{"RM", "CS RM", 650.25}, {"Goods", "CS GOODS", 100.50}},
       {{"CS RM", "OS RM"}},
       {},
       {{"Asha", -95075},
        {"RM", 65025},
        {"Goods", 0},
        {"Sales", 0},
        {"Bank", 20000},
        {"Opening Stock", 10050}},
       -4925,
       0,
       ""},
      {"stock without a binding",
       trader,
       {{"Iron", "CS RM", 650.25}, {"Goods", "CS GOODS", 100.50}},
       {},
       {},
       {{"Asha", -95075}, {"RM", 75075}, {"Goods", 0}, {"Sales", 0}, {"Bank", 20000}},
       -4925,
       0,
       ""},
      {"what did not agree",
       {{"Asha", "CAPITAL", -100}, {"Bank", "BANKS", 90.01}},
       {},
       {},
       {},
       {{"Asha", -10000}, {"Bank", 9001}},
       0,
       -999,
       ""},
      {"nothing", {}, {}, {}, {}, {}, 0, 0, "The old year has nothing to bring forward."},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    const std::string table = oldYear(c.lines, c.stock, c.bound);
    ForwardBooks books = read();
    if (!c.shares.empty()) books.choices.shares.clear();
    for (const auto& [name, millionths] : c.shares) {
      books.choices.shares.push_back(
          {.pair = {ledger(name), group("CAPITAL")}, .millionths = millionths});
    }
    const Opening opening = openingOf(books.closing, books.choices);
    std::vector<std::pair<std::string, long>> found;
    for (const OpeningLine& line : opening.lines) {
      found.emplace_back(nameOfLine(line), line.opening.paise());
      EXPECT_FALSE(line.reason.empty());
    }
    EXPECT_EQ(found, c.opening);
    EXPECT_EQ(opening.profit.paise(), c.profit);
    EXPECT_EQ(opening.difference.paise(), c.difference);
    EXPECT_EQ(opening.question, c.question);
    for (const char* name : {"master", table.c_str(), "TRADE_1", "RMGRP_1"}) {
      exec("delete from " + std::string(name));
    }
  }
}

TEST_F(BringForwardTest, ReadsPerCents) {
  const struct {
    const char* text;
    long millionths;  // -1: none
  } cases[] = {{"100", 1'000'000}, {"33.3333", 333333}, {" 12.5 %", 125000}, {".5", 5000},
               {"0", 0},           {"100.0001", -1},    {"33.33333", -1},    {"-5", -1},
               {"", -1},           {".", -1},           {"1e1", -1}};
  for (const auto& c : cases) EXPECT_EQ(typedPercent(c.text).value_or(-1), c.millionths) << c.text;
  EXPECT_EQ(percentText(333300), "33.33");
  EXPECT_EQ(percentText(1'000'000), "100");
  // No amount is too large to be shared to the paisa.
  const Money most = Money::ofPaise(9'223'372'036'854'775'807);
  const auto shares =
      amountsOf(-most, {{.pair = {}, .millionths = 333333}, {.pair = {}, .millionths = 666667}});
  EXPECT_EQ(shares[0] + shares[1], -most);
}

TEST_F(BringForwardTest, MakesTheYearAndOffersWhatChangesLater) {
  const std::string old = oldYear({{"Asha", "CAPITAL", -1000},
                                   {"Bank", "BANKS", 1500},
                                   {"Cash", "BANKS", 20},
                                   {"Sales", "SALES", -820},
                                   {"Shop", "RENT", 300}});
  EXPECT_EQ(bring(read()), ForwardEnd::done);
  const std::string table = value("select tbl_nm from master where f_yr='01042008'");
  EXPECT_EQ(value("select f_year_dt from master where f_yr='01042008'"), "01/04/2008");
  EXPECT_EQ(year(table), (Rows{{"Asha", "CAPITAL", "1520", "2"},
                               {"Bank", "BANKS", "1500", "1"},
                               {"Cash", "BANKS", "20", "1"},
                               {"Sales", "SALES", "0", "2"},
                               {"Shop", "RENT", "0", "1"}}));
  EXPECT_EQ(offered(), Rows{});
  EXPECT_EQ(check(), Rows{});
  // The year's own work: figures typed, and a voucher of 30 from bank to cash.
  set(table, "Sales", "700");
  set(table, "Cash", "55");
  set(table, "Bank", "1470");
  for (const auto& [name, amount] : {std::pair{"Bank", "-30"}, {"Cash", "30"}}) {
    exec("insert into JRNL" + table.substr(3) + " values('C1',1,1,'2008-05-01'," +
         std::to_string(ledger(name)) + ',' + std::to_string(group("BANKS")) + ',' + amount +
         ",'')");
  }
  EXPECT_EQ(offered(), Rows{});
  EXPECT_EQ(check(), Rows{}) << "movement of the year is no difference";
  // In the old year the bank and the sales were 100.10 too low, and 20 of cash were found missing.
  set(old, "Bank", "1600.10");
  set(old, "Sales", "920.10");
  exec("delete from " + old + " where partid=" + std::to_string(ledger("Cash")));
  EXPECT_EQ(check(), (Rows{{"Asha", "CAPITAL", "-162010", "-152000"},
                           {"Bank", "BANKS", "160010", "150000"},
                           {"Cash", "BANKS", "0", "2000"}}));
  EXPECT_EQ(offered(), (Rows{{"Asha", "Old year changed", "-152000", "-162010", "taken"},
                             {"Bank", "Old year changed", "147000", "157010", "taken"},
                             {"Cash", "Differs here", "5500", "3500", ""}}));
  EXPECT_EQ(bring(read()), ForwardEnd::done);
  // A replaced line comes last, as after every save.
  EXPECT_EQ(year(table), (Rows{{"Cash", "BANKS", "55", "1"},
                               {"Sales", "SALES", "700", "2"},
                               {"Shop", "RENT", "0", "1"},
                               {"Asha", "CAPITAL", "1620.1", "2"},
                               {"Bank", "BANKS", "1570.1", "1"}}));
  EXPECT_EQ(offered(), (Rows{{"Cash", "Differs here", "5500", "3500", ""}})) << "left once";
  EXPECT_EQ(check(), (Rows{{"Cash", "BANKS", "0", "2000"}}));
  // A year that was emptied begins anew.
  exec("delete from " + table);
  exec("delete from JRNL" + table.substr(3));
  EXPECT_EQ(offered().size(), 4U);
  EXPECT_EQ(offered()[1], (Texts{"Bank", "New", "0", "160010", "taken"}));
}

// What was brought forward goes the way of the ledger, and back.
TEST_F(BringForwardTest, FollowsLedgersThatWereReplaced) {
  oldYear({{"Asha", "CAPITAL", -60},
           {"Ravi", "CAPITAL", -60},
           {"Cash", "BANKS", 100},
           {"Kash", "BANKS", 25},
           {"Sales", "SALES", -5}});
  ForwardBooks books = read();
  for (const char* name : {"Asha", "Ravi"}) {
    books.choices.shares.push_back(
        {.pair = {ledger(name), group("CAPITAL")}, .millionths = wholeShare / 2});
  }
  EXPECT_EQ(bring(books), ForwardEnd::done);
  const auto agrees = [&](std::size_t partners) {
    EXPECT_EQ(offered(), Rows{});
    EXPECT_EQ(check(), Rows{});
    EXPECT_EQ(read().choices.shares.size(), partners);
  };
  const long kash = ledger("Kash");
  suite::TakingBack& takingBack = practice.environment().takingBack();
  {
    const Act act(context().openForms.acts);
    TableNames missing;
    replaceLedger(host(), context().unposted, kash, ledger("Cash"), missing);
    replaceLedger(host(), context().unposted, ledger("Ravi"), ledger("Asha"), missing);
    LedgerMaster(host()).deleteAll({kash, ledger("Ravi")});
  }
  const auto replaced = takingBack.acts("", 1).front().row;
  agrees(1);
  {
    const Act act(context().openForms.acts);
    exec("delete from Mast_Part where PartId=" + std::to_string(host().GetMax_MastPartId("Last")));
    EXPECT_EQ(host().GetMax_MastPartId("Meena"), ledger("Sales") + 2) << "no number twice";
  }
  {
    const Act act(context().openForms.acts);
    EXPECT_EQ(takingBack.takeBack(takingBack.inverseOf(replaced)), Texts{});
  }
  agrees(2);
}

// What a person mended in both years is not offered once more; what is lost is, but not by itself.
TEST_F(BringForwardTest, ComparesWithWhatStands) {
  const std::string old =
      oldYear({{"Asha", "CAPITAL", -100}, {"Bank", "BANKS", 70}, {"Cash", "BANKS", 30}});
  EXPECT_EQ(bring(read()), ForwardEnd::done);
  const std::string table = value("select tbl_nm from master where f_yr='01042008'");
  const auto changedSince = [&] {
    return checkOpening(host(), "C1", {"01042008", "31032009"}).changedSince;
  };
  for (const std::string& each : {old, table}) set(each, "Bank", "75");
  EXPECT_EQ(offered(), Rows{});
  EXPECT_EQ(check(), Rows{});
  EXPECT_EQ(changedSince(), 0U);
  set(table, "Cash", "80");
  EXPECT_EQ(offered(), Rows{}) << "a movement of the year";
  EXPECT_EQ(changedSince(), 1U);
  exec("delete from " + table + " where partid=" + std::to_string(ledger("Cash")));
  EXPECT_EQ(offered(), (Rows{{"Cash", "Differs here", "0", "3000", ""}}));
  EXPECT_EQ(changedSince(), 1U);
  // What stands is what is remembered from now on.
  EXPECT_EQ(bring(read()), ForwardEnd::done);
  set(old, "Bank", "80");
  EXPECT_EQ(offered()[0], (Texts{"Bank", "Old year changed", "7500", "8000", "taken"}));
}

TEST_F(BringForwardTest, TakesNothingByItselfOverAYearThatWasMadeOtherwise) {
  oldYear({{"Asha", "CAPITAL", -1000},
           {"Bank", "BANKS", 1000},
           {"Cash", "BANKS", 5},
           {"Sales", "SALES", -5}},
          {{"Iron", "CS RM", 70}, {"Goods", "CS GOODS", 30}}, {{"CS RM", "OS RM"}});
  addYear("C1", 2008,
          {{"Asha", "CAPITAL", -1105},
           {"Bank", "BANKS", 4000},
           {"Sales", "SALES", -9},
           {"RM", "OS RM", 70},
           {"Opening Stock", "OS GOODS", 29.5}});
  EXPECT_EQ(offered(), (Rows{{"Bank", "Differs here", "400000", "100000", ""},
                             {"Cash", "New", "0", "500", ""},
                             {"Iron", "New", "0", "7000", ""},
                             {"Opening Stock", "Differs here", "2950", "3000", ""}}));
  EXPECT_EQ(check(), (Rows{{"Opening stock", "", "3000", "2950"}}));
}

TEST_F(BringForwardTest, LeavesEverythingWhereItDoesNotEnd) {
  const std::string old =
      oldYear({{"Asha", "CAPITAL", -1000}, {"Bank", "BANKS", 1000}, {"Sales", "SALES", -5}},
              {{"Goods", "CS GOODS", 30}});
  const ForwardBooks books = read();
  const Rows before = this->books();
  const auto stands = [&](const char* what) {
    EXPECT_EQ(this->books(), before) << what;
    EXPECT_FALSE(read().year.brought) << what;
  };
  host().stopWork(2);
  EXPECT_EQ(bring(books), ForwardEnd::stopped);
  stands("stopped");
  for (const auto& [statement, spared] :
       {std::pair{"insert into master", 0}, {"insert into TAB_", 3}}) {
    host().statements().failNext(statement, spared);
    EXPECT_THROW(bring(books), RunTimeError) << statement;
    stands(statement);
  }
  set(old, "Bank", "1001");
  EXPECT_EQ(bring(books), ForwardEnd::booksOther);
  set(old, "Bank", "1000");
  stands("a line that changed since");
  addYear("C1", 2008);
  EXPECT_EQ(bring(books), ForwardEnd::booksOther);
  exec("delete from master where code_no='C1'");
  EXPECT_EQ(bring(books), ForwardEnd::yearGone);
  for (int first = 2007; first < 2007 + tableNumbers; ++first) addYear("C1", first * 2 - 2007);
  EXPECT_EQ(bring(read()), ForwardEnd::noTable);
}

}  // namespace
}  // namespace quillet::support
