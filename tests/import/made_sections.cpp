#include "import/made_sections.h"

#include <algorithm>
#include <array>

namespace quillet::support {
namespace {

constexpr std::array<const char*, 16> groupNames{"CAPITAL ACCOUNT",
                                                 "TERM LOANS",
                                                 "SUNDRY CREDITORS",
                                                 "STATUTORY DUES",
                                                 "PLANT AND MACHINERY",
                                                 "FIXED DEPOSITS",
                                                 "SUNDRY DEBTORS",
                                                 "CASH IN HAND",
                                                 "BANK BALANCES",
                                                 "DEPOSITS",
                                                 "SALES",
                                                 "PURCHASES",
                                                 "FREIGHT",
                                                 "SALARIES",
                                                 "RENT",
                                                 "PRINTING"};
constexpr std::array<const char*, 12> firstNames{"Amit",  "Bharat",  "Chandra", "Deepak",
                                                 "Eswar", "Falguni", "Ganesh",  "Harsh",
                                                 "Indra", "Jyoti",   "Kamal",   "Lalit"};
constexpr std::array<const char*, 8> trades{"Traders", "& Co.",      "Textiles", "Agencies",
                                            "Motors",  "Industries", "Sales",    "Foods"};

std::int64_t amount(Chance& chance, AmountStyle style) {
  constexpr std::int64_t rupee = 100;
  switch (style) {
    case AmountStyle::few:
      return (below(chance, 12) + 1) * 500 * rupee;
    case AmountStyle::rupees:
      return (below(chance, 3000) + 1) * rupee;
    default:
      return below(chance, 90'000'000) + 1;
  }
}

std::string ledgerName(Chance& chance, int index) {
  if (index == 3) return "Total Quality Services";
  const auto first = static_cast<std::size_t>(below(chance, 12));
  const auto trade = static_cast<std::size_t>(below(chance, 8));
  return firstNames[first] + std::string(" ") + trades[trade] + ' ' + std::to_string(index);
}

// Liabilities and sales are mostly in credit, the others in debit.
bool inCredit(Chance& chance, std::size_t section) {
  const bool liability = section < 4 || section == 10;
  return (below(chance, 10) == 0) != liability;
}

}  // namespace

std::vector<MadeSection> madeSections(Chance& chance, AmountStyle style, int ledgers) {
  std::vector<MadeSection> sections;
  std::int64_t sum = 0;
  int index = 0;
  for (std::size_t i = 0; i < groupNames.size() && index < ledgers; ++i) {
    MadeSection& section = sections.emplace_back();
    section.group = groupNames[i];
    const int left = ledgers - index;
    const int wanted = below(chance, 2 * ledgers / static_cast<int>(groupNames.size())) + 1;
    const int count = i + 1 == groupNames.size() ? left : std::min(left, wanted);
    for (int n = 0; n < count; ++n) {
      const std::int64_t size = amount(chance, style);
      section.ledgers.push_back({ledgerName(chance, index++), inCredit(chance, i) ? -size : size});
      sum += section.ledgers.back().balance;
    }
  }
  if (sum != 0) sections.front().ledgers.push_back({"Suspense", -sum});
  return sections;
}

}  // namespace quillet::support
