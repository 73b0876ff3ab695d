#include "property/books.h"

#include <algorithm>
#include <array>
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

Paise Book::balance(const Pair& pair) const {
  Paise sum = 0;
  for (const auto& [each, amount] : lines) sum += each == pair ? amount : 0;
  return sum;
}

Paise Book::posted(const Pair& pair) const {
  Paise sum = 0;
  for (const auto& [number, voucher] : vouchers) {
    for (const auto& [each, amount] : voucher.lines) sum += each == pair ? amount : 0;
  }
  return sum;
}

std::pair<Paise, Paise> Book::sides() const {
  std::pair<Paise, Paise> sums;
  for (const auto& [pair, amount] : lines) (amount > 0 ? sums.first : sums.second) += amount;
  return {sums.first, -sums.second};
}

void Book::enter(const Pair& pair, Paise amount) {
  const Paise sum = balance(pair) + amount;
  std::erase_if(lines, [&](const Entry& line) { return line.first == pair; });
  if (sum != 0) lines.emplace(pair, sum);
}

void Book::post(const Voucher& voucher, int sign) {
  for (const auto& [pair, amount] : voucher.lines) enter(pair, sign * amount);
}

void Book::take(const Entry& line) {
  if (const auto at = lines.find(line); at != lines.end()) lines.erase(at);
}

const std::map<std::string, int>& groups() {
  static const std::map<std::string, int> all{
      {"BANKS", 9},          {"CAPITAL", 1},   {"CLOSING STOCK", 7},  {"CREDITORS", 12},
      {"DEPRECIATION", 29},  {"GOODWILL", 29}, {"OPENING STOCK", 18}, {"PURCHASES", 19},
      {"PRIMARY WAGES", 20}, {"RENT", 22},     {"SALES", 15},         {"DEBTORS", 10},
      {"OTHER INCOME", 17}};
  return all;
}

Rows rowsOf(const Book& book) {
  Rows rows;
  for (const auto& [pair, amount] : book.lines) {
    rows.push_back({pair.first, pair.second, plain(amount), sideOf(amount)});
  }
  return rows;
}

Rows rowsOf(long number, const Voucher& voucher) {
  Rows rows;
  for (const auto& [pair, amount] : voucher.lines) {
    rows.push_back({std::to_string(number), voucher.date, voucher.narration, pair.first,
                    pair.second, plain(amount), sideOf(amount)});
  }
  return rows;
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
  // By group and ledger: before, in vouchers, after; of each the debit and the credit.
  std::map<Pair, std::array<Paise, 6>> figures;
  const auto add = [&](const Pair& pair, std::size_t at, Paise amount) {
    figures[{pair.second, pair.first}][at + (amount > 0 ? 0 : 1)] += std::llabs(amount);
  };
  for (const auto& [number, voucher] : book.vouchers) {
    for (const auto& [pair, amount] : voucher.lines) add(pair, 2, amount);
  }
  for (const auto& [pair, amount] : book.lines) add(pair, 0, 0);
  for (const auto& [key, row] : figures) {
    const Pair pair{key.second, key.first};
    add(pair, 0, book.balance(pair) - book.posted(pair));
    add(pair, 4, book.balance(pair));
  }
  Rows rows;
  const auto write = [&](const std::string& name, const auto& row, const char* zero) {
    auto& cells = rows.emplace_back(std::vector<std::string>{name});
    for (const Paise figure : row) cells.push_back(figure == 0 ? zero : grouped(figure));
  };
  std::array<Paise, 6> all{}, ofGroup{};
  for (auto at = figures.begin(); at != figures.end();) {
    const auto& [group, ledger] = at->first;
    if (rows.empty() || rows.back()[0] == "Total") rows.push_back({group, "", "", "", "", "", ""});
    write(ledger, at->second, "-");
    for (std::size_t i = 0; i < 6; ++i) ofGroup[i] += at->second[i], all[i] += at->second[i];
    if (++at != figures.end() && at->first.first == group) continue;
    write("Total", std::exchange(ofGroup, {}), "-");
  }
  if (!rows.empty()) write("Grant Total", all, "0.00");
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
