#include "property/books.h"

#include <algorithm>
#include <cstdlib>

namespace quillet::support {
namespace {

// Rounded as on paper.
Paise quotient(Paise part, Paise whole, Paise scale) {
  const Paise size = (std::llabs(part) * scale * 2 / std::llabs(whole) + 1) / 2;
  return (part < 0) == (whole < 0) ? size : -size;
}

std::string bracketed(Paise amount) {
  return amount < 0 ? "(" + grouped(amount) + ")" : grouped(amount);
}

}  // namespace

std::string plain(Paise amount) {
  const Paise size = std::llabs(amount);
  const std::string fraction = std::to_string(size % 100);
  return std::to_string(size / 100) + (fraction.size() == 1 ? ".0" : ".") + fraction;
}

std::string grouped(Paise amount) {
  std::string text = plain(amount);
  for (std::size_t at = text.size() - 3; at > 3;) text.insert(at -= 3, ",");
  return text;
}

Paise Voucher::total() const {
  Paise sum = 0;
  for (const auto& [pair, amount] : lines) sum += amount;
  return sum;
}

Paise Book::balance(const Pair& pair) const {
  Paise sum = 0;
  for (const auto& [each, amount] : lines) sum += each == pair ? amount : 0;
  return sum;
}

Paise Book::original(const Pair& pair) const {
  Paise sum = balance(pair);
  for (const auto& [number, voucher] : vouchers) {
    for (const auto& [each, amount] : voucher.lines) sum -= each == pair ? amount : 0;
  }
  return sum;
}

void Book::enter(const Pair& pair, Paise amount) {
  const Paise sum = balance(pair) + amount;
  std::erase_if(lines, [&](const auto& line) { return line.first == pair; });
  if (sum != 0) lines.emplace_back(pair, sum);
}

void Book::post(const Voucher& voucher, int sign) {
  for (const auto& [pair, amount] : voucher.lines) enter(pair, sign * amount);
}

Book Book::without(const std::set<Pair>& pairs) const {
  Book rest = *this;
  std::erase_if(rest.lines, [&](const auto& line) { return pairs.contains(line.first); });
  return rest;
}

void Book::sort() { std::sort(lines.begin(), lines.end()); }

const std::map<std::string, int>& groups() {
  static const std::map<std::string, int> all{
      {"BANKS", 9},          {"CAPITAL", 1},   {"CLOSING STOCK", 7},  {"CREDITORS", 12},
      {"DEPRECIATION", 29},  {"GOODWILL", 29}, {"OPENING STOCK", 18}, {"PURCHASES", 19},
      {"PRIMARY WAGES", 20}, {"RENT", 22},     {"SALES", 15},         {"DEBTORS", 10},
      {"OTHER INCOME", 17}};
  return all;
}

Rows summaryOf(const Book& book) {
  std::map<int, Paise> B;
  Paise depreciation = 0;
  for (const auto& [pair, amount] : book.lines) {
    (pair.second == "DEPRECIATION" ? depreciation : B[groups().at(pair.second)]) += amount;
  }
  const auto sum = [&](std::initializer_list<int> all) {
    Paise total = 0;
    for (const int g : all) total += B[g];
    return total;
  };
  const Paise stock = book.stock;
  const Paise cost = sum({18, 19, 20, 16}) - stock;
  const Paise profit = cost + B[15];
  const Paise expenses = sum({21, 22, 23, 24, 25, 26, 29});
  const Paise net = profit + expenses + B[17];
  const Paise carried = net + depreciation;
  const Paise currentAssets = sum({7, 8, 9, 10, 11}) + stock;
  const Paise owed = sum({12, 13});
  const auto rate = [](Paise part, Paise whole, Paise scale) {
    return whole == 0 ? std::string("-") : bracketed(quotient(part, whole, scale));
  };
  return {{"Opening Stock", bracketed(B[18])},
          {"Purchases", bracketed(B[19])},
          {"Direct Expenses", bracketed(sum({20, 16}))},
          {"Less : Closing Stock", bracketed(stock)},
          {"Cost of Goods Sold", bracketed(cost)},
          {"Sales", bracketed(-B[15])},
          {"Gross Profit/(Loss)", bracketed(-profit)},
          {"Expenses", bracketed(expenses)},
          {"Incomes", bracketed(-B[17])},
          {"Net Profit/(Loss)", bracketed(-net)},
          {"Profit Tr. to B/S", bracketed(-carried)},
          {"Total Assets", bracketed(currentAssets + sum({5, 6, 14, 27}))},
          {"Total Liabilities", bracketed(-(carried + sum({1, 2, 3, 4, 28}) + owed))},
          {"Current Assets", bracketed(currentAssets)},
          {"Current Liabilities", bracketed(-owed)},
          {"Working Capital", bracketed(currentAssets + owed)},
          {"GP Rate", rate(-profit, -B[15], 10'000)},
          {"NP Rate", rate(-carried, -B[15], 10'000)},
          {"Current Ratio", rate(currentAssets, -owed, 100)}};
}

Rows subsidiaryOf(const Book& book) {
  std::map<std::pair<std::string, std::string>, std::vector<Paise>> figures;  // group, ledger
  const auto of = [&](const Pair& pair) -> std::vector<Paise>& {
    auto& row = figures[{pair.second, pair.first}];
    row.resize(6);
    return row;
  };
  for (const auto& [number, voucher] : book.vouchers) {
    for (const auto& [pair, amount] : voucher.lines) {
      of(pair)[amount > 0 ? 2 : 3] += std::llabs(amount);
    }
  }
  for (const auto& [pair, amount] : book.lines) of(pair);
  for (auto& [key, row] : figures) {
    const Pair pair{key.second, key.first};
    const Paise before = book.original(pair), after = book.balance(pair);
    row[before > 0 ? 0 : 1] = std::llabs(before);
    row[after > 0 ? 4 : 5] = std::llabs(after);
  }
  Rows rows;
  const auto write = [&](const std::string& name, const std::vector<Paise>& row, const char* zero) {
    auto& cells = rows.emplace_back(std::vector<std::string>{name});
    for (const Paise figure : row) cells.push_back(figure == 0 ? zero : grouped(figure));
  };
  std::vector<Paise> all(6), ofGroup(6);
  std::string group;
  for (const auto& [key, row] : figures) {
    if (key.first != group) {
      if (!group.empty()) write("Total", ofGroup, "-");
      group = key.first;
      rows.push_back({group, "", "", "", "", "", ""});
      ofGroup.assign(6, 0);
    }
    for (std::size_t i = 0; i < 6; ++i) ofGroup[i] += row[i], all[i] += row[i];
    write(key.second, row, "-");
  }
  if (figures.empty()) return rows;
  write("Total", ofGroup, "-");
  write("Grant Total", all, "0.00");
  return rows;
}

Rows listOf(const Book& book) {
  Rows rows;
  for (const auto& [number, voucher] : book.vouchers) {
    const auto part = [&](std::size_t from, std::size_t size) {
      return std::to_string(std::stoi(voucher.date.substr(from, size)));
    };
    const std::string date = part(8, 2) + "-" + part(5, 2) + "-" + part(0, 4);
    const auto add = [&](const std::string& what, Paise amount) {
      rows.push_back({std::to_string(number), date, what, amount > 0 ? grouped(amount) : "",
                      amount < 0 ? grouped(amount) : ""});
    };
    for (const auto& [pair, amount] : voucher.lines) {
      add((amount > 0 ? "By " : "To ") + pair.first, amount);
    }
    if (!voucher.narration.empty()) add("    " + voucher.narration, 0);
  }
  std::sort(rows.begin(), rows.end());
  return rows;
}

}  // namespace quillet::support
