// Made books, from their cells to the lines that would be entered: right, or asked about.
#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <set>

#include "import/columns.h"
#include "import/made_book.h"
#include "import/refusals.h"

namespace quillet {
namespace {

using namespace support;

std::string nothingRecalled(const std::string&) { return {}; }

KnownBooks booksOf(const MadeBook& made, bool groupsKnown) {
  std::vector<NamedId> ledgers;
  std::vector<NamedId> groups;
  for (const std::string& name : made.groups) {
    if (groupsKnown) groups.push_back({static_cast<long>(groups.size()) + 1, name});
  }
  groups.push_back({1000, "OTHERS"});
  std::set<std::string> seen;
  for (const auto& [row, line] : made.ledgers) {
    if (seen.insert(line.ledger).second) {
      ledgers.push_back({static_cast<long>(ledgers.size()) + 1, line.ledger});
    }
  }
  KnownBooks books(ledgers, groups);
  for (const NamedId& ledger : ledgers) books.usualGroups[ledger.id] = 1000;
  return books;
}

struct Outcome {
  bool right = false;
  bool asked = false;
  std::string first;  // what differs or is asked first
};

// Groups that are missing are no excuse for anything else.
Outcome recognised(const MadeBook& made, bool groupsKnown) {
  const KnownBooks books = booksOf(made, groupsKnown);
  const FoundColumns found = findColumns(made.book, nothingRecalled);
  const auto sheet = sheetOf(made.book, found.mapping);
  const ImportRows rows =
      readRows(made.book.sheets[sheet.value()], found.mapping, books.names(), {});
  const Proposals proposals = propose(rows, books, {});
  Outcome outcome{true, !found.doubts.empty(), {}};
  for (const Refusal& refusal : refusalsOf(found.mapping, rows, proposals, false)) {
    if (refusal.text.starts_with("Choose the group")) continue;
    outcome.asked = true;
    if (outcome.first.empty()) {
      outcome.first = std::to_string(refusal.row) + ": " + refusal.text;
    }
  }
  std::map<int, TrueLine> read;
  for (const ProposedLine& line : proposals.lines) {
    const bool grouped =
        groupsKnown && !made.ledgers.empty() && line.groupState == GroupState::fromSource;
    read[line.row] = {line.ledger, grouped ? line.group : "", line.balance};
  }
  for (const auto& [row, line] : made.ledgers) {
    TrueLine expected = line;
    if (!groupsKnown) expected.group.clear();
    const auto at = read.find(row);
    if (at != read.end() && at->second == expected) continue;
    if (outcome.right) outcome.first += " | row " + std::to_string(row) + " " + line.ledger;
    outcome.right = false;
  }
  for (const auto& [row, line] : read) {
    if (made.ledgers.contains(row)) continue;
    if (outcome.right)
      outcome.first += " | row " + std::to_string(row) + " is none: " + line.ledger;
    outcome.right = false;
  }
  return outcome;
}

int runs() {
  const char* count = std::getenv("QUILLET_CAMPAIGN_RUNS");
  return count == nullptr ? 6 : std::atoi(count);
}

class RecognitionCampaign : public testing::TestWithParam<int> {};

TEST_P(RecognitionCampaign, NoneIsWrongInSilence) {
  const int shape = GetParam();
  for (const bool groupsKnown : {true, false}) {
    int right = 0;
    int rightAsked = 0;
    int wrongAsked = 0;
    int spoilt = 0;
    std::string first;
    for (int seed = 1; seed <= runs(); ++seed) {
      const MadeBook made = madeBook(shape, static_cast<std::uint32_t>(seed), 300);
      const Outcome outcome = recognised(made, groupsKnown);
      EXPECT_TRUE(outcome.right || outcome.asked)
          << nameOfShape(shape) << ", seed " << seed << ": " << outcome.first;
      EXPECT_TRUE(!made.spoilt || outcome.asked) << nameOfShape(shape) << ", seed " << seed;
      (made.spoilt ? spoilt : !outcome.right ? wrongAsked : outcome.asked ? rightAsked : right)++;
      if (outcome.asked && !made.spoilt && first.empty())
        first = " e.g. seed " + std::to_string(seed) + ": " + outcome.first;
    }
    std::cout << nameOfShape(shape) << (groupsKnown ? "" : " (groups unknown)") << ": " << right
              << " right, " << rightAsked << " right and asked, " << wrongAsked
              << " wrong and asked, " << spoilt << " spoilt" << first << '\n';
  }
}

INSTANTIATE_TEST_SUITE_P(Shapes, RecognitionCampaign, testing::Range(0, shapes));

}  // namespace
}  // namespace quillet
