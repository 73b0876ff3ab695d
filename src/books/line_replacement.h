// A save replaces lines of a trial balance: it takes some out and puts one in, by statements sent
// one by one. Lines that a failed one left out are kept here until the next deed has put them back.
#pragma once

#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "books/account_groups.h"
#include "books/trial_balance.h"

namespace quillet {

class LineReplacement {
 public:
  LineReplacement(ServiceObject& host, const AccountGroups& groups)
      : host_(host), groups_(groups) {}

  // Takes out the line that is altered, if there is one, and the lines of the pair; then writes one
  // line with the balance of the latter and the amount. `lines` are the client's as read last.
  // Returns the line, whose flush is the caller's; it has no serial number when the balance is
  // zero, as no row is written then.
  Line replace(const ClientTable& books, const std::vector<Line>& lines,
               const std::optional<Line>& altered, LedgerGroup pair, Money amount);

  // --- after a failure

  // Lines that are still to be put back.
  const std::vector<Line>& missing() const { return left_.missing; }
  bool complete() const { return left_.missing.empty(); }
  // The client's other lines, read anew after the failure.
  void setStanding(std::vector<Line> lines) { left_.standing = std::move(lines); }

  // Books that have changed otherwise since may hold the lines by now, or have no place for them;
  // with its year, a line is gone.
  enum class State { asLeft, changed, yearGone };
  State state();
  void putBack();
  void forget() { left_.missing.clear(); }

  // What is remembered, to be restored when the host takes back what was changed since.
  struct Left {
    std::shared_ptr<TrialBalance> books;
    std::vector<Line> missing;
    std::vector<Line> standing;
    bool named = true;  // the masters knew ledger and group of each missing line
  };
  const Left& left() const { return left_; }
  void restore(Left left) { left_ = std::move(left); }

 private:
  Money takeOutReplaced(const std::optional<Line>& altered, LedgerGroup pair);
  void takeOut(const Line& line);
  bool namesKnown(const Line& line);

  ServiceObject& host_;
  const AccountGroups& groups_;
  std::vector<Line> lines_;
  Left left_;
};

}  // namespace quillet
