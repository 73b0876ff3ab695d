#include "import/proposals.h"

#include <algorithm>
#include <array>
#include <memory>
#include <unordered_set>

#include "import/name_lookup.h"

namespace quillet {
namespace {

constexpr std::array<std::string_view, 4> ledgerStates{"Known", "Nearly known", "New", "No name"};
constexpr std::array<std::string_view, 8> groupStates{
    "Chosen",     "From the source",  "From the year", "From last year",
    "Remembered", "From the heading", "Proposed",      "Missing"};

std::unordered_map<long, std::string> byId(const std::vector<NamedId>& names) {
  std::unordered_map<long, std::string> map;
  for (const NamedId& name : names) map.emplace(name.id, name.name);
  return map;
}

// The same for lines that become one.
std::string pairKey(const ProposedLine& line) {
  const std::string ledger =
      line.partId != 0 ? std::to_string(line.partId) : '"' + nameKey(line.ledger);
  const std::string group =
      line.allId != 0 ? std::to_string(line.allId) : '"' + nameKey(line.sourceGroup);
  return ledger + '\n' + group;
}

class Proposing {
 public:
  Proposing(const KnownBooks& books, const RowChoices& choices)
      : books_(books), choices_(choices), groups_(books) {}

  void add(const ImportRow& row) {
    const auto found = choices_.find(row.number);
    const RowChoice choice = found == choices_.end() ? RowChoice{} : found->second;
    ProposedLine line;
    line.row = row.number;
    line.balance = row.balance();
    line.unread = row.kind == RowKind::error;
    line.taken = choice.taken.value_or(true);
    name(line, row, choice);
    line.question = questionOf(line, row, choice);
    lines_.push_back(std::move(line));
  }

  std::vector<ProposedLine> takeLines() { return std::move(lines_); }

 private:
  void name(ProposedLine& line, const ImportRow& row, const RowChoice& choice) const {
    const FoundLedger ledger = findLedger(books_, row.name, choice.usesNearest);
    line.ledgerState = ledger.state;
    line.ledger = ledger.name;
    line.partId = ledger.partId;
    line.nearest = ledger.nearest;
    line.sourceGroup = row.group.empty() ? row.section : row.group;
    const FoundGroup group = groups_.find(ledger, row.group, row.section, choice.group);
    line.groupState = group.state;
    line.allId = group.allId;
    if (group.allId != 0) line.group = books_.groupNames.at(group.allId);
  }

  // What must be answered; the row's own problem first. Notes which lines stand twice.
  std::string questionOf(ProposedLine& line, const ImportRow& row, const RowChoice& choice) {
    if (row.kind == RowKind::error) return row.reason;
    if (!line.taken) return {};
    line.doubleOf = earlier(rowsByPair_, pairKey(line), line.row);
    const int alike = line.partId == 0 ? earlierAlike(line) : 0;
    if (!row.question.empty()) return row.question;
    if (line.ledgerState == LedgerState::nearKnown) {
      return "Is this ledger \"" + line.nearest.name + "\", or a new one?";
    }
    if (choice.confirmed) return {};
    if (row.bothSides)
      return "Debit and credit are both filled: is their difference to be entered?";
    if (line.doubleOf != 0) {
      return "The ledger stands in row " + std::to_string(line.doubleOf) +
             " too: are the amounts to be added up?";
    }
    if (alike != 0) {
      return "Row " + std::to_string(alike) + " has nearly the same name: is this another ledger?";
    }
    return {};
  }

  static int earlier(std::unordered_map<std::string, int>& rows, const std::string& key, int row) {
    const auto [found, isFirst] = rows.emplace(key, row);
    return isFirst ? 0 : found->second;
  }

  // The row of a new ledger that is alike, written otherwise.
  int earlierAlike(const ProposedLine& line) {
    const std::string key = nameKey(line.ledger);
    const auto [found, isFirst] =
        newNames_.emplace(alikeKey(line.ledger), std::pair(key, line.row));
    return isFirst || found->second.first == key ? 0 : found->second.second;
  }

  const KnownBooks& books_;
  const RowChoices& choices_;
  GroupLookup groups_;
  std::vector<ProposedLine> lines_;
  std::unordered_map<std::string, int> rowsByPair_;
  std::unordered_map<std::string, std::pair<std::string, int>> newNames_;
};

std::vector<LineToEnter> linesToEnter(const std::vector<ProposedLine>& lines) {
  std::vector<LineToEnter> entered;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const ProposedLine& line = lines[i];
    if (!line.taken || line.unread) continue;
    if (line.doubleOf == 0) {
      entered.push_back({i, line.balance});
      continue;
    }
    const auto first = std::lower_bound(
        entered.begin(), entered.end(), line.doubleOf,
        [&](const LineToEnter& each, int row) { return lines[each.line].row < row; });
    first->balance += line.balance;
  }
  return entered;
}

}  // namespace

KnownBooks::KnownBooks(std::vector<NamedId> ledgerList, std::vector<NamedId> groupList)
    : ledgers(ledgerList),
      groups(groupList),
      ledgerNames(byId(ledgerList)),
      groupNames(byId(groupList)) {}

NameKnowledge KnownBooks::names() const {
  auto ofClient = std::make_shared<std::unordered_set<std::string>>();
  for (const auto* lines : {&current, &previous}) {
    for (const Line& line : *lines) {
      const auto name = ledgerNames.find(line.partId);
      if (name != ledgerNames.end()) ofClient->insert(nameKey(name->second));
    }
  }
  for (const auto& [name, group] : rememberedGroups) ofClient->insert(name);
  const auto isGroup = [this](const std::string& name) {
    const auto distance = groups.find(name).distance;
    return distance == NearestNames::Distance::same || distance == NearestNames::Distance::alike;
  };
  const auto isLedger = [ofClient](const std::string& name) {
    return ofClient->contains(nameKey(name));
  };
  return {isGroup, isLedger};
}

std::map<int, RowKind> kindsOf(const RowChoices& choices) {
  std::map<int, RowKind> kinds;
  for (const auto& [row, choice] : choices) {
    if (choice.kind) kinds.emplace(row, *choice.kind);
  }
  return kinds;
}

std::string_view nameOf(LedgerState state) { return ledgerStates[static_cast<std::size_t>(state)]; }

std::string_view nameOf(GroupState state) { return groupStates[static_cast<std::size_t>(state)]; }

Proposals propose(const ImportRows& rows, const KnownBooks& books, const RowChoices& choices) {
  Proposing proposing(books, choices);
  for (const ImportRow& row : rows.rows) {
    if (row.kind == RowKind::ledger || row.kind == RowKind::error) proposing.add(row);
  }
  Proposals proposals;
  proposals.lines = proposing.takeLines();
  proposals.ledgers = rows.ledgers;
  proposals.source = rows.stated.value_or(rows.ledgers);
  proposals.explained = rows.explained;
  proposals.toEnter = linesToEnter(proposals.lines);
  for (const LineToEnter& line : proposals.toEnter) {
    (line.balance < Money() ? proposals.entered.credit : proposals.entered.debit) +=
        abs(line.balance);
  }
  return proposals;
}

}  // namespace quillet
