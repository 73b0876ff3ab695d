// What trial balances and journals are by the rules alone, in whole paise. Nothing of the module is
// used here: what the module does is compared with it.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace quillet::support {

using Paise = long long;
using Pair = std::pair<std::string, std::string>;  // ledger, group
using Rows = std::vector<std::vector<std::string>>;

// "1234.50", without a sign.
inline std::string plain(Paise amount) {
  const Paise size = std::llabs(amount);
  return std::to_string(size / 100) + '.' + std::to_string(100 + size % 100).substr(1);
}
// "1,234.50", without a sign.
inline std::string grouped(Paise amount) {
  std::string text = plain(amount);
  for (std::size_t at = text.size() - 3; at > 3;) text.insert(at -= 3, ",");
  return text;
}
inline std::string sideOf(Paise amount) { return amount > 0 ? "DR" : "CR"; }

using Entry = std::pair<Pair, Paise>;  // debit positive
using Lines = std::multiset<Entry>;

// What the lines hold of the pair.
inline Paise sumOf(const auto& lines, const Pair& pair) {
  Paise sum = 0;
  for (const auto& [each, amount] : lines) sum += each == pair ? amount : 0;
  return sum;
}

struct Voucher {
  std::string date;  // "2008-06-02"
  std::string narration;
  std::vector<Entry> lines;
  friend bool operator==(const Voucher&, const Voucher&) = default;
};

// One client's one year.
struct Book {
  Lines lines;                       // none of zero
  std::map<long, Voucher> vouchers;  // by number
  Paise stock = 0;
  friend bool operator==(const Book&, const Book&) = default;

  Paise balance(const Pair& pair) const { return sumOf(lines, pair); }
  // What the vouchers add to the pair.
  Paise posted(const Pair& pair) const {
    Paise sum = 0;
    for (const auto& [number, voucher] : vouchers) sum += sumOf(voucher.lines, pair);
    return sum;
  }
  // The sums of the debits and of the credits, both positive.
  std::pair<Paise, Paise> sides() const {
    std::pair<Paise, Paise> sums;
    for (const auto& [pair, amount] : lines) (amount > 0 ? sums.first : sums.second) += amount;
    return {sums.first, -sums.second};
  }
  // All rows of the pair become one, or none.
  void enter(const Pair& pair, Paise amount) {
    const Paise sum = balance(pair) + amount;
    std::erase_if(lines, [&](const Entry& line) { return line.first == pair; });
    if (sum != 0) lines.emplace(pair, sum);
  }
  void post(const Voucher& voucher, int sign) {
    for (const auto& [pair, amount] : voucher.lines) enter(pair, sign * amount);
  }
  // One such row goes, if there is one.
  void take(const Entry& line) {
    if (const auto at = lines.find(line); at != lines.end()) lines.erase(at);
  }
};

struct Where {
  int client = 0;
  int year = 0;
  friend auto operator<=>(const Where&, const Where&) = default;
};
inline std::string said(const Where& where) {
  return "client " + std::to_string(where.client + 1) + ", " + std::to_string(where.year);
}
using World = std::map<Where, Book>;

// The groups of these books, each with the number of its primary group.
inline const std::map<std::string, int> groups{
    {"BANKS", 9},          {"CAPITAL", 1},   {"CLOSING STOCK", 7},  {"CREDITORS", 12},
    {"DEPRECIATION", 29},  {"GOODWILL", 29}, {"OPENING STOCK", 18}, {"PURCHASES", 19},
    {"PRIMARY WAGES", 20}, {"RENT", 22},     {"SALES", 15},         {"DEBTORS", 10},
    {"OTHER INCOME", 17}};

// Ledger, group, amount and side of each line.
inline Rows rowsOf(const auto& lines) {
  Rows rows;
  for (const auto& [pair, amount] : lines) {
    rows.push_back({pair.first, pair.second, plain(amount), sideOf(amount)});
  }
  return rows;
}

// The ledgers of the subsidiary trial balance: before, in vouchers, after; of each the debit and
// the credit.
inline Rows subsidiaryOf(const Book& book) {
  std::set<std::pair<std::string, std::string>> pairs;  // by group
  for (const auto& [pair, amount] : book.lines) pairs.emplace(pair.second, pair.first);
  Lines debits, credits;
  for (const auto& [number, voucher] : book.vouchers) {
    for (const Entry& line : voucher.lines) {
      pairs.emplace(line.first.second, line.first.first);
      (line.second > 0 ? debits : credits).insert(line);
    }
  }
  Rows rows;
  for (const auto& [group, ledger] : pairs) {
    const Pair pair{ledger, group};
    const Paise after = book.balance(pair), before = after - book.posted(pair);
    auto& cells = rows.emplace_back(1, ledger);
    for (const Paise figure : {std::max(before, 0LL), std::min(before, 0LL), sumOf(debits, pair),
                               sumOf(credits, pair), std::max(after, 0LL), std::min(after, 0LL)}) {
      cells.push_back(figure == 0 ? "-" : grouped(figure));
    }
  }
  return rows;
}

// Number, date as listed, particular, debit, credit of each row of the list of vouchers, narrations
// included; in order of the text, since rows of one voucher and amount may stand either way.
inline Rows listOf(const Book& book) {
  Rows rows;
  for (const auto& [number, voucher] : book.vouchers) {
    const auto part = [&](std::size_t from, std::size_t size) {
      return std::to_string(std::stoi(voucher.date.substr(from, size)));
    };
    const std::string date = part(8, 2) + '-' + part(5, 2) + '-' + part(0, 4);
    for (const auto& [pair, amount] : voucher.lines) {
      const bool debit = amount > 0;
      rows.push_back({std::to_string(number), date, (debit ? "By " : "To ") + pair.first,
                      debit ? grouped(amount) : "", debit ? "" : grouped(amount)});
    }
    if (voucher.narration.empty()) continue;
    rows.push_back({std::to_string(number), date, "    " + voucher.narration, "", ""});
  }
  std::ranges::sort(rows);
  return rows;
}

}  // namespace quillet::support
