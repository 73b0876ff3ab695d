// Statements by heads: final accounts as they are worked out by hand.
#include <gtest/gtest.h>

#include "books/statements_by_head.h"

namespace quillet {
namespace {

using Rows = std::vector<std::vector<std::string>>;
using enum HeadKind;

const StatutoryHeadList& list() {
  static const StatutoryHeadList made = [] {
    StatutoryHeadList heads;
    const auto add = [&](Scheme scheme, HeadKind kind, const char* name,
                         HeadRole role = HeadRole::none) {
      const auto id = static_cast<long>(heads.heads.size()) + 1;
      heads.heads.push_back({id, scheme, kind, "Section", "", name, 0, role});
    };
    const Scheme s = Scheme::schedule6;
    add(s, liability, "Capital");
    add(s, liability, "Reserves", HeadRole::result);
    add(s, liability, "Borrowings");
    add(s, liability, "Payables");
    add(s, asset, "Fixed assets");
    add(s, asset, "Investments");
    add(s, asset, "Inventories");
    add(s, asset, "Cash and receivables");
    add(s, income, "Revenue");
    add(s, income, "Other income");
    add(s, expense, "Materials", HeadRole::rawMaterialStock);
    add(s, expense, "Changes in inventories", HeadRole::closingStock);
    add(s, expense, "Other expenses");
    add(s, expense, "Tax");
    add(Scheme::incomeTax, asset, "Raw material in stock", HeadRole::rawMaterialStock);
    add(Scheme::incomeTax, liability, "Own funds", HeadRole::result);
    add(Scheme::incomeTax, liability, "Accumulated result", HeadRole::result);
    return heads;
  }();
  return made;
}

// Books of a year in rupees. Groups get their ids in the order in which they come.
class Statements : public ::testing::Test {
 protected:
  // Debit positive, of this year and of last year.
  void line(const std::string& group, const std::string& head, long primary, long now,
            long before = 0, const std::string& ledger = "L") {
    const LedgerGroup pair{ledgerId(ledger), groupId(group, head, primary)};
    for (const auto& [year, amount] : {std::pair{0, now}, {1, before}}) {
      if (amount != 0) books_.lines[year].push_back({pair, rupees(amount)});
    }
  }
  void stock(const std::string& group, const std::string& head, long now, long before = 0) {
    const LedgerGroup pair{ledgerId("Stock"), groupId(group, head, 7)};
    for (const auto& [year, amount] : {std::pair{0, now}, {1, before}}) {
      if (amount != 0) books_.stock[year].push_back({pair, rupees(amount)});
    }
  }
  long groupId(const std::string& name, const std::string& head, long primary) {
    for (const auto& [id, group] : books_.groups) {
      if (group.name == name) return id;
    }
    const long id = static_cast<long>(books_.groups.size()) + 1;
    books_.groups[id] = {name, primary, 0};
    for (const StatutoryHead& each : list().heads) {
      if (each.name == head) mappings_[id].head(each.scheme) = {each.id, each.name};
    }
    return id;
  }
  long ledgerId(const std::string& name) {
    for (const auto& [id, known] : books_.ledgers) {
      if (known == name) return id;
    }
    const long id = static_cast<long>(books_.ledgers.size()) + 1;
    books_.ledgers[id] = name;
    return id;
  }
  static Money rupees(long amount) { return Money::ofPaise(amount * 100); }

  StatementsByHead made(Scheme scheme = Scheme::schedule6) const {
    return statementsByHead(books_, mappings_, list(), scheme);
  }
  static std::string text(const TwoAmounts& amounts) {
    const auto figure = [](Money money) {
      return std::to_string(money.paise() / 100) +
             (money.paise() % 100 == 0 ? "" : '.' + std::to_string(money.paise() % 100));
    };
    return figure(amounts[0]) + '|' + figure(amounts[1]);
  }
  // Heads, groups without one, and the total.
  static Rows of(const StatementsByHead& statements, HeadKind kind) {
    Rows rows;
    for (const HeadFigures& head : statements.of(kind).heads) {
      rows.push_back({head.head.name, text(head.amounts)});
    }
    for (const ScheduleGroup& group : statements.of(kind).unmapped.groups) {
      rows.push_back({'?' + group.name, text(group.amounts)});
    }
    rows.push_back({"", text(statements.of(kind).total)});
    return rows;
  }

  void soleTrader() {
    line("CAPITAL", "Capital", 1, -500'000, 0, "Own");
    line("CAPITAL", "Capital", 1, 40'000, 0, "Drawings");
    line("OPENING STOCK", "Changes in inventories", 18, 60'000);
    line("PURCHASES", "Materials", 19, 320'000);
    line("SALES", "Revenue", 15, -480'000);
    line("WAGES", "Other expenses", 20, 30'000);
    line("SALARIES", "Other expenses", 21, 45'000);
    line("RENT", "Other expenses", 22, 24'000);
    line("COMMISSION", "Other income", 17, -10'000);
    line("FURNITURE", "Fixed assets", 5, 80'000);
    line("PLANT", "Fixed assets", 5, 200'000);
    line("DEBTORS", "Cash and receivables", 8, 110'000);
    line("BANKS", "Cash and receivables", 9, 151'000);
    line("CREDITORS", "Payables", 12, -70'000);
    stock("CLOSING STOCK", "Inventories", 75'000);
  }

  StatementBooks books_;
  GroupMappings mappings_;
};

// Gross profit 145,000, net profit 86,000, both sides 616,000.
TEST_F(Statements, ASoleTradersFinalAccounts) {
  soleTrader();
  const StatementsByHead statements = made();
  EXPECT_EQ(of(statements, income),
            (Rows{{"Revenue", "480000|0"}, {"Other income", "10000|0"}, {"", "490000|0"}}));
  EXPECT_EQ(of(statements, expense), (Rows{{"Materials", "320000|0"},
                                           {"Changes in inventories", "-15000|0"},
                                           {"Other expenses", "99000|0"},
                                           {"", "404000|0"}}));
  EXPECT_EQ(text(statements.result), "86000|0");
  EXPECT_EQ(of(statements, liability), (Rows{{"Capital", "460000|0"},
                                             {"Reserves", "86000|0"},
                                             {"Payables", "70000|0"},
                                             {"", "616000|0"}}));
  EXPECT_EQ(of(statements, asset), (Rows{{"Fixed assets", "280000|0"},
                                         {"Inventories", "75000|0"},
                                         {"Cash and receivables", "261000|0"},
                                         {"", "616000|0"}}));
  EXPECT_EQ(text(statements.difference()), "0|0");
  const HeadFigures& capital = statements.of(liability).heads.front();
  ASSERT_EQ(capital.groups.size(), 1U);
  EXPECT_EQ(capital.groups[0].ledgers[0].name, "Drawings");
  EXPECT_EQ(text(capital.groups[0].ledgers[0].amounts), "-40000|0");
}

// A company: profit before tax 3,10,000 and 1,40,000, after tax 2,17,000 and 98,000; a head that
// one of the years uses alone; last year's loss in the reserves.
TEST_F(Statements, ACompanysFinalAccountsOfTwoYears) {
  line("SHARE CAPITAL", "Capital", 1, -1'000'000, -1'000'000);
  line("GENERAL RESERVE", "Reserves", 2, -98'000, 50'000);
  line("TERM LOANS", "Borrowings", 3, -400'000, -600'000);
  line("CREDITORS", "Payables", 12, -150'000, -120'000);
  line("PROVISION FOR TAX", "Payables", 13, -93'000, -42'000);
  line("PLANT", "Fixed assets", 5, 900'000, 1'000'000);
  line("SHARES", "Investments", 6, 120'000);
  line("DEBTORS", "Cash and receivables", 8, 480'000, 310'000);
  line("BANKS", "Cash and receivables", 9, 48'000, 210'000);
  line("SALES", "Revenue", 15, -2'500'000, -1'800'000);
  line("OPENING STOCK", "Changes in inventories", 18, 290'000, 150'000);
  line("PURCHASES", "Materials", 19, 1'700'000, 1'300'000);
  line("ADMINISTRATION", "Other expenses", 22, 510'000, 400'000);
  line("DEPRECIATION", "Other expenses", 29, 100'000, 100'000);
  line("INCOME TAX", "Tax", 25, 93'000, 42'000);
  stock("CLOSING STOCK", "Inventories", 410'000, 290'000);
  const StatementsByHead statements = made();
  EXPECT_EQ(text(statements.result), "217000|98000");
  EXPECT_EQ(of(statements, expense), (Rows{{"Materials", "1700000|1300000"},
                                           {"Changes in inventories", "-120000|-140000"},
                                           {"Other expenses", "610000|500000"},
                                           {"Tax", "93000|42000"},
                                           {"", "2283000|1702000"}}));
  EXPECT_EQ(of(statements, liability), (Rows{{"Capital", "1000000|1000000"},
                                             {"Reserves", "315000|48000"},
                                             {"Borrowings", "400000|600000"},
                                             {"Payables", "243000|162000"},
                                             {"", "1958000|1810000"}}));
  EXPECT_EQ(of(statements, asset), (Rows{{"Fixed assets", "900000|1000000"},
                                         {"Investments", "120000|0"},
                                         {"Inventories", "410000|290000"},
                                         {"Cash and receivables", "528000|520000"},
                                         {"", "1958000|1810000"}}));
  const std::vector<ScheduleGroup>& reserves = statements.of(liability).heads[1].groups;
  ASSERT_EQ(reserves.size(), 2U);
  EXPECT_EQ(text(reserves[0].amounts), "98000|-50000");
  EXPECT_EQ(text(reserves[1].amounts), "217000|98000") << "the result, last";
}

TEST_F(Statements, WhatHasNoHeadCountsWhereItsPrimaryGroupStands) {
  soleTrader();
  // One group of each side loses its head, in one way or another.
  const auto lose = [&](const char* name, const NamedId& head) {
    mappings_[groupId(name, "", 0)].schedule6 = head;
  };
  lose("CREDITORS", {});
  lose("PLANT", {999, "Machines"});
  lose("COMMISSION", {999, ""});
  mappings_.erase(groupId("RENT", "", 0));
  lose("CLOSING STOCK", {});
  const StatementsByHead statements = made();
  EXPECT_EQ(of(statements, income)[1], (Rows::value_type{"?COMMISSION", "10000|0"}));
  EXPECT_EQ(of(statements, expense)[3], (Rows::value_type{"?RENT", "24000|0"}));
  EXPECT_EQ(of(statements, expense)[1], (Rows::value_type{"Changes in inventories", "-15000|0"}));
  EXPECT_EQ(of(statements, liability), (Rows{{"Capital", "460000|0"},
                                             {"Reserves", "86000|0"},
                                             {"?CREDITORS", "70000|0"},
                                             {"", "616000|0"}}));
  EXPECT_EQ(of(statements, asset), (Rows{{"Fixed assets", "80000|0"},
                                         {"Cash and receivables", "261000|0"},
                                         {"?CLOSING STOCK", "75000|0"},
                                         {"?PLANT", "200000|0"},
                                         {"", "616000|0"}}));
  EXPECT_EQ(statements.of(asset).unmapped.groups[1].lostHead, "Machines");
  EXPECT_EQ(statements.of(income).unmapped.groups[0].lostHead, "number 999");
  EXPECT_EQ(statements.of(liability).unmapped.groups[0].lostHead, "");
}

// Every primary group on its side; one of the practice's own by its grand group; one that nobody
// knows by its balance, this year's before last year's.
TEST_F(Statements, TheSideOfEveryPrimaryGroup) {
  std::string sides;
  for (long primary = 1; primary <= 34; ++primary) {
    books_ = {};
    line("G", "", primary, 5);
    books_.groups[1].grand = primary > 29 && primary < 34 ? primary - 29 : 0;
    const StatementsByHead statements = made();
    for (const HeadKind kind : {liability, asset, income, expense}) {
      if (!statements.of(kind).unmapped.groups.empty() &&
          statements.of(kind).unmapped.groups[0].name == "G") {
        sides += "LAIE"[static_cast<std::size_t>(kind)];
      }
    }
  }
  EXPECT_EQ(sides, "LLLLAAAAAAALLAIEIEEEEEEEEEALEALIEA");
  books_ = {};
  books_.lines[1] = {{{1, 77}, rupees(-9)}};
  EXPECT_EQ(of(made(), liability), (Rows{{"?Group 77", "0|9"}, {"", "0|9"}}));
  books_.lines[0] = {{{1, 77}, rupees(9)}};
  EXPECT_EQ(of(made(), asset), (Rows{{"?Group 77", "9|-9"}, {"", "9|-9"}}));
}

TEST_F(Statements, ADifferenceIsThatOfTheTrialBalanceToThePaisa) {
  soleTrader();
  books_.lines[0].push_back({{1, groupId("BANKS", "", 0)}, Money::ofPaise(1)});
  line("BANKS", "", 9, 0, -250);
  EXPECT_EQ(text(made().difference()), "0.1|-250");
}

// The head of the costs that takes a stock: as an asset that its group is mapped to in either list
// says, by the binding, or the usual one; without such a head the stock still counts.
TEST_F(Statements, StockTakesOffTheCostsThatItBelongsTo) {
  stock("RAW", "Inventories", 10);
  stock("CLOTH", "Inventories", 20, 7);
  stock("YARN", "Inventories", 40);
  stock("GOODS", "Changes in inventories", 80);
  mappings_[1].incomeTax = {15, ""};
  books_.boundStock[0][2] = HeadRole::rawMaterialStock;
  books_.boundStock[0][3] = HeadRole::workInProgressStock;
  const StatementsByHead statements = made();
  EXPECT_EQ(of(statements, expense),
            (Rows{{"Materials", "-30|0"}, {"Changes in inventories", "-120|-7"}, {"", "-150|-7"}}));
  EXPECT_EQ(of(statements, asset),
            (Rows{{"Inventories", "70|7"}, {"?GOODS", "80|0"}, {"", "150|7"}}));
  // No head of the other list takes stock off the costs.
  const StatementsByHead tax = made(Scheme::incomeTax);
  EXPECT_EQ(of(tax, expense).back(), (Rows::value_type{"", "-150|-7"}));
  EXPECT_EQ(of(tax, asset)[0], (Rows::value_type{"Raw material in stock", "10|0"}));
  EXPECT_EQ(text(tax.difference()), "0|0");
}

// Of several heads that take the result the first one in use does, or else the first one.
TEST_F(Statements, TheResultGoesWhereTheOwnersFundsStand) {
  line("SALES", "", 15, -5);
  EXPECT_EQ(of(made(Scheme::incomeTax), liability)[0][0], "Own funds");
  line("CAPITAL", "Accumulated result", 1, -3);
  EXPECT_EQ(of(made(Scheme::incomeTax), liability),
            (Rows{{"Accumulated result", "8|0"}, {"", "8|0"}}));
}

}  // namespace
}  // namespace quillet
