#include "books/line_replacement.h"

#include <algorithm>

#include "books/registry.h"

namespace quillet {

Line LineReplacement::replace(const ClientTable& books, const std::vector<Line>& lines,
                              const std::optional<Line>& altered, LedgerGroup pair, Money amount) {
  left_ = {std::make_shared<TrialBalance>(host_, books), {}, lines, true};
  lines_ = lines;
  const Money balance = amount + takeOutReplaced(altered, pair);
  Line line{.partId = pair.partId,
            .allId = pair.allId,
            .amount = abs(balance).rupees(),
            .nid = balance < Money() ? credit : debit};
  if (!balance.isZero()) {
    line.srno = left_.books->nextSerial();
    left_.books->insert(line);
  }
  left_.missing.clear();
  return line;
}

// Returns the balance of the pair's lines.
Money LineReplacement::takeOutReplaced(const std::optional<Line>& altered, LedgerGroup pair) {
  if (altered) takeOut(*altered);
  Money balance;
  for (const Line& line : left_.books->linesOf(pair, TrialBalance::Spelling::editor)) {
    takeOut(line);
    balance += Money::rounded(line.balance());
  }
  return balance;
}

void LineReplacement::takeOut(const Line& line) {
  left_.books->takeOut(line, lines_);
  left_.missing.push_back(line);
  left_.named =
      left_.named && groups_.contains(line.allId) && !host_.GetPart_MastPartId(line.partId).empty();
  const auto found = std::find(left_.standing.begin(), left_.standing.end(), line);
  if (found != left_.standing.end()) left_.standing.erase(found);
  host_.ConQuery(flushTables);
}

LineReplacement::State LineReplacement::state() {
  if (!Registry(host_).has(left_.books->books().table, left_.books->books().client))
    return State::yearGone;
  const std::vector<Line> lines = left_.books->lines();
  bool same =
      std::is_permutation(lines.begin(), lines.end(), left_.standing.begin(), left_.standing.end());
  for (const Line& line : left_.missing) {
    // Lines that had no names before go back as they were.
    if (left_.named) same = namesKnown(line) && same;
  }
  return same ? State::asLeft : State::changed;
}

bool LineReplacement::namesKnown(const Line& line) {
  const auto group =
      host_.query("select allid from mast_allgrp where allid=" + sqlNumber(line.allId));
  return !group->EOF_() && !host_.GetPart_MastPartId(line.partId).empty();
}

void LineReplacement::putBack() {
  while (!left_.missing.empty()) {
    left_.books->insert(left_.missing.back());
    left_.standing.push_back(left_.missing.back());
    left_.missing.pop_back();
    host_.ConQuery(flushTables);
  }
}

}  // namespace quillet
