// The lines that a source's ledgers become: which ledger, which group, which amount, and what a
// person has to be asked before.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "books/lines.h"
#include "books/unposted_changes.h"
#include "import/nearest_name.h"
#include "import/row_kinds.h"

namespace quillet {

// What the books know, handed in by who can read them.
struct KnownBooks {
  KnownBooks(std::vector<NamedId> ledgerNames, std::vector<NamedId> groupNames);

  NearestNames ledgers;
  NearestNames groups;
  std::unordered_map<long, std::string> ledgerNames;
  std::unordered_map<long, std::string> groupNames;
  std::vector<Line> current;                               // the client's lines in the year
  std::vector<Line> previous;                              // in the year before
  std::unordered_map<long, long> usualGroups;              // of a ledger, in all books
  std::unordered_map<std::string, long> rememberedGroups;  // by nameKey, for the client

  // For readRows: groups of the practice, ledgers of the client.
  NameKnowledge names() const;
};

// What a person decided about a row of the source; what is empty is proposed.
struct RowChoice {
  std::optional<RowKind> kind;
  std::optional<bool> taken;
  // The nearest known ledger instead of a new one, or a new one although that is near.
  std::optional<bool> usesNearest;
  std::optional<long> group;
  // Both sides are filled, or the ledger stands twice: entered all the same, doubles added up.
  bool confirmed = false;
};
using RowChoices = std::map<int, RowChoice>;  // by the row's number

std::map<int, RowKind> kindsOf(const RowChoices& choices);

enum class LedgerState : std::uint8_t { known, nearKnown, isNew, unnamed };
enum class GroupState : std::uint8_t {
  chosen,      // by a person
  fromSource,  // its column names a group of the practice
  fromYear,    // the ledger stands under it in the year
  fromLastYear,
  remembered,  // chosen for the client in an earlier import
  fromHeading,
  proposed,  // where the ledger mostly stands
  missing
};
std::string_view nameOf(LedgerState state);
std::string_view nameOf(GroupState state);

struct ProposedLine {
  int row = 0;  // the number of the source's row
  bool taken = true;
  bool unread = false;  // name or amount cannot be read; never entered
  LedgerState ledgerState = LedgerState::isNew;
  std::string ledger;  // the name that is entered: the master's own for a known one
  long partId = 0;     // 0 for a new one
  NamedId nearest;     // id 0 when no known name is near
  GroupState groupState = GroupState::missing;
  std::string group;        // "" when missing
  std::string sourceGroup;  // as the source names it, known or not
  long allId = 0;
  Money balance;     // debit positive
  int doubleOf = 0;  // the row with the same ledger and group before this one
  // What must be answered before it can be entered; "" when nothing.
  std::string question;

  LedgerGroup pair() const { return {partId, allId}; }
};

// What is to stand of a ledger in a group; doubles are added up.
struct LineToEnter {
  std::size_t line = 0;  // the first of them among the proposed ones
  Money balance;
};

struct Proposals {
  std::vector<ProposedLine> lines;  // of the rows that are ledgers, errors included
  // In the order of the source. An amount of zero is to leave nothing.
  std::vector<LineToEnter> toEnter;
  SideTotals source;      // the source's own total, else the sum of its ledgers
  SideTotals ledgers;     // of the rows that are ledgers
  bool explained = true;  // they add up to the source's total
  SideTotals entered;     // of what is to be entered
  bool balanced() const { return entered.difference().isZero(); }
};

Proposals propose(const ImportRows& rows, const KnownBooks& books, const RowChoices& choices);

}  // namespace quillet
