#include "books/line_replacement.h"

#include <algorithm>

#include "books/registry.h"

namespace quillet {

Line LineReplacement::replace(const ClientTable& books, const std::vector<Line>& lines,
                              const std::optional<Line>& altered, LedgerGroup pair, Money amount) {
  books_.emplace(host_, books);
  lines_ = standing_ = lines;
  missing_.clear();
  named_ = true;
  const Money balance = amount + takeOutReplaced(altered, pair);
  Line line{.partId = pair.partId,
            .allId = pair.allId,
            .amount = abs(balance).rupees(),
            .nid = balance < Money() ? credit : debit};
  if (!balance.isZero()) {
    line.srno = books_->nextSerial();
    books_->insert(line);
  }
  missing_.clear();
  return line;
}

// Returns the balance of the pair's lines.
Money LineReplacement::takeOutReplaced(const std::optional<Line>& altered, LedgerGroup pair) {
  if (altered) takeOut(*altered);
  Money balance;
  for (const Line& line : books_->linesOf(pair, TrialBalance::Spelling::editor)) {
    takeOut(line);
    balance += Money::rounded(line.balance());
  }
  return balance;
}

void LineReplacement::takeOut(const Line& line) {
  books_->takeOut(line, lines_);
  missing_.push_back(line);
  named_ = named_ && groups_.contains(line.allId) && !host_.GetPart_MastPartId(line.partId).empty();
  const auto found = std::find(standing_.begin(), standing_.end(), line);
  if (found != standing_.end()) standing_.erase(found);
  host_.ConQuery(flushTables);
}

LineReplacement::State LineReplacement::state() {
  if (!Registry(host_).has(books_->books().table, books_->books().client)) return State::yearGone;
  const std::vector<Line> lines = books_->lines();
  bool same = std::is_permutation(lines.begin(), lines.end(), standing_.begin(), standing_.end());
  for (const Line& line : missing_) {
    // Lines that had no names before go back as they were.
    if (named_) same = namesKnown(line) && same;
  }
  return same ? State::asLeft : State::changed;
}

bool LineReplacement::namesKnown(const Line& line) {
  const auto group =
      host_.query("select allid from mast_allgrp where allid=" + sqlNumber(line.allId));
  return !group->EOF_() && !host_.GetPart_MastPartId(line.partId).empty();
}

void LineReplacement::putBack() {
  while (!missing_.empty()) {
    books_->insert(missing_.back());
    standing_.push_back(missing_.back());
    missing_.pop_back();
    host_.ConQuery(flushTables);
  }
}

}  // namespace quillet
