// What trial balances and journals are by the rules alone, in whole paise. Nothing of the module is
// used here: what the module does is compared with it.
#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace quillet::support {

using Paise = long long;
using Pair = std::pair<std::string, std::string>;  // ledger, group
using Rows = std::vector<std::vector<std::string>>;

std::string plain(Paise amount);    // "1234.50", without a sign
std::string grouped(Paise amount);  // "1,234.50", without a sign
inline const char* sideOf(Paise amount) { return amount > 0 ? "DR" : "CR"; }

using Entry = std::pair<Pair, Paise>;  // debit positive
using Lines = std::multiset<Entry>;

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

  Paise balance(const Pair& pair) const;
  // What the vouchers add to the pair.
  Paise posted(const Pair& pair) const;
  // The sums of the debits and of the credits, both positive.
  std::pair<Paise, Paise> sides() const;
  // All rows of the pair become one, or none.
  void enter(const Pair& pair, Paise amount);
  void post(const Voucher& voucher, int sign);
  // One such row goes, if there is one.
  void take(const Entry& line);
  friend bool operator==(const Book&, const Book&) = default;
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
const std::map<std::string, int>& groups();

// Ledger, group and amount of each line; those of a voucher behind its number, date and narration.
Rows rowsOf(const Book& book);
Rows rowsOf(long number, const Voucher& voucher);
// Caption and value of each summary row.
Rows summaryOf(const Book& book);
// The subsidiary trial balance below its headings.
Rows subsidiaryOf(const Book& book);
// Number, date as listed, particular, debit, credit of each row of the list of vouchers, narrations
// included; in order of the text, since rows of one voucher and amount may stand either way.
Rows listOf(const Book& book);

}  // namespace quillet::support
