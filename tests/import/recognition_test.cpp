// Made books, from their cells to the lines that would be entered: right, or asked about.
#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <iostream>
#include <set>

#include "import/columns.h"
#include "import/made_cells.h"
#include "import/odd_book.h"
#include "import/refusals.h"
#include "import/voucher_rows.h"

namespace quillet::support {
namespace {

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
  const FoundColumns found = findColumns(made.book, [&](const std::string& headings) {
    const auto& before = made.before.sheets;
    const bool known = !before.empty() && headings == headingFingerprint(before.front());
    return known ? made.remembered : std::string();
  });
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
  const bool hasGroups = found.mapping.column(ColumnRole::group).has_value();
  std::map<int, TrueLine> read;
  for (const ProposedLine& line : proposals.lines) {
    const bool grouped = hasGroups && line.groupState != GroupState::missing;
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

// Vouchers of one day each, between two ledgers, dates written in one of the ways there are.
struct MadeVouchers {
  SourceSheet sheet;
  std::map<std::string, std::string> dates;  // by number, as dd/mm/yyyy
};

MadeVouchers madeVouchers(std::uint32_t seed) {
  std::mt19937 chance(seed);
  const auto below = [&](unsigned limit) { return static_cast<int>(chance() % limit); };
  const int style = below(4);
  const auto rows = [](const std::vector<std::vector<std::string>>& texts, SourceSheet& sheet) {
    for (const auto& each : texts) {
      SourceRow& row = sheet.rows.emplace_back();
      row.number = static_cast<int>(sheet.rows.size());
      for (const std::string& content : each) row.cells.push_back(text(content));
    }
  };
  MadeVouchers made;
  rows({{"Date", "Voucher No", "Particulars", "Debit", "Credit"}}, made.sheet);
  for (int i = 1; i <= 30; ++i) {
    const int month = below(12) + 1;
    const int year = month < 4 ? 2026 : 2025;
    std::array<char, 48> day{};
    std::array<char, 48> date{};
    const int dayOfMonth = below(28) + 1;
    std::snprintf(day.data(), day.size(), "%02d/%02d/%04d", dayOfMonth, month, year);
    constexpr std::array<const char*, 4> styles{"%1$d/%2$d/%3$04d", "%2$d/%1$d/%3$04d",
                                                "%2$02d-%1$02d-%3$04d", "%3$04d-%2$02d-%1$02d"};
    std::snprintf(date.data(), date.size(), styles[static_cast<std::size_t>(style)], dayOfMonth,
                  month, year);
    const std::string number = std::to_string(i);
    made.dates[number] = day.data();
    rows({{date.data(), number, "One", "5", ""}, {"", number, "Other", "", "5"}}, made.sheet);
  }
  return made;
}

TEST(RecognitionCampaignOfDates, NoneIsWrongInSilence) {
  KnownBooks books({{1, "One"}, {2, "Other"}}, {{1, "OTHERS"}});
  books.usualGroups = {{1, 1}, {2, 1}};
  int right = 0;
  for (int seed = 1; seed <= 4 * runs(); ++seed) {
    const MadeVouchers made = madeVouchers(static_cast<std::uint32_t>(seed));
    const Mapping mapping = findColumns(made.sheet, [](const std::string&) { return ""; }).mapping;
    const auto read = readVouchers(made.sheet, mapping, books, {"01/04/2025", "31/03/2026"}, {});
    EXPECT_EQ(read.size(), made.dates.size());
    for (const ImportedVoucher& voucher : read) {
      const bool same = voucher.date == made.dates.at(voucher.number);
      EXPECT_TRUE(same || !voucher.reason.empty())
          << "seed " << seed << ", voucher " << voucher.number << ": " << voucher.date;
      right += same && voucher.reason.empty() ? 1 : 0;
    }
  }
  EXPECT_GT(right, 0);
}

INSTANTIATE_TEST_SUITE_P(Shapes, RecognitionCampaign, testing::Range(0, shapes + oddities));

}  // namespace
}  // namespace quillet::support
