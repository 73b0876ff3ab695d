// What each row of a source is: a ledger, or a heading, a sum or nothing that is entered. Sums are
// told by what they add up to and by the source's own total; what is not explained is asked.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "import/mapping.h"
#include "import/sums.h"

namespace quillet {

struct ImportRow {
  int number = 0;         // as the source's program counts
  std::size_t index = 0;  // among the sheet's rows
  bool hidden = false;
  RowKind kind = RowKind::blank;
  bool chosen = false;   // the kind is a person's
  std::string reason;    // why it is of that kind; "" for a plain ledger
  std::string question;  // what a person has to confirm or correct; "" when nothing
  std::string name;
  std::string group;    // as the source's column says
  std::string section;  // the nearest heading or parent above
  std::string code;
  Money debit;  // as it stands in the source; a signed amount stands on its side
  Money credit;
  bool bothSides = false;

  Money balance() const { return debit - credit; }
};

struct ImportRows {
  std::vector<ImportRow> rows;  // one for each row of the sheet
  // What the source says by itself; nothing when it has no grand total.
  std::optional<SideTotals> stated;
  SideTotals ledgers;  // of the rows that are ledgers
  // Whether the rows add up to what the source says; true when it says nothing.
  bool explained = true;
};

// What the books know of names.
struct NameKnowledge {
  std::function<bool(const std::string& name)> isGroup;
  std::function<bool(const std::string& name)> isLedger;
};

// `chosen` are kinds that a person gave to rows, by their number.
ImportRows readRows(const SourceSheet& sheet, const Mapping& mapping, const NameKnowledge& known,
                    const std::map<int, RowKind>& chosen);

}  // namespace quillet
