// The heads that a statement prescribed by law has: those of Schedule VI and those of the
// income-tax return. Account groups are mapped to them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quillet {

enum class Scheme : std::uint8_t { schedule6, incomeTax };
inline constexpr Scheme schemes[] = {Scheme::schedule6, Scheme::incomeTax};

// The first two stand in the balance sheet, the others in the statement of profit and loss.
enum class HeadKind : std::uint8_t { liability, asset, income, expense };  // capital: liability

// What a head takes that no ledger carries. In the balance sheet a role of stock says what kind of
// stock is mapped there; in the statement of profit and loss, what takes it off the costs.
enum class HeadRole : std::uint8_t {
  none,
  result,        // the result of the year, in the balance sheet
  closingStock,  // stock at the year's end, of whatever no other head takes
  rawMaterialStock,
  workInProgressStock
};

// In the balance sheet, or in the statement of profit and loss.
inline bool inBalanceSheet(HeadKind kind) {
  return kind == HeadKind::liability || kind == HeadKind::asset;
}

struct StatutoryHead {
  long id = 0;  // never 0, one of a kind within its scheme
  Scheme scheme = Scheme::schedule6;
  HeadKind kind = HeadKind::liability;
  std::string section;  // "Non-current assets"
  std::string heading;  // within the section, "Fixed assets"; mostly ""
  std::string name;     // at most 100 characters, one of a kind within its scheme
  int note = 0;         // the number of its note, 0 for none
  HeadRole role = HeadRole::none;
};

struct StatutoryHeadList {
  // In the order of the statements, each scheme, kind, section and heading in one piece; heads
  // without a heading stand anywhere in their section.
  std::vector<StatutoryHead> heads;
  // What could not be taken from the practice's own list, a sentence each, for a person.
  std::vector<std::string> refused;

  // Null when there is none of that number.
  const StatutoryHead* find(Scheme scheme, long id) const {
    for (const StatutoryHead& head : heads) {
      if (head.scheme == scheme && head.id == id) return &head;
    }
    return nullptr;
  }
};

class StatutoryHeads {
 public:
  virtual ~StatutoryHeads() = default;
  // As the list is now: a practice may have changed it.
  virtual StatutoryHeadList read() = 0;
};

}  // namespace quillet
