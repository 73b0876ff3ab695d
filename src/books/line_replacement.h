// A save replaces lines of a trial balance: it takes some out and puts one in, by statements sent
// one by one. Lines that a failed one left out are kept here until the next deed has put them back.
#pragma once

#include <optional>
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
  const std::vector<Line>& missing() const { return missing_; }
  bool complete() const { return missing_.empty(); }
  // The client's other lines, read anew after the failure.
  void setStanding(std::vector<Line> lines) { standing_ = std::move(lines); }

  // Books that have changed otherwise since may hold the lines by now, or have no place for them;
  // with its year, a line is gone.
  enum class State { asLeft, changed, yearGone };
  State state();
  void putBack();
  void forget() { missing_.clear(); }

 private:
  Money takeOutReplaced(const std::optional<Line>& altered, LedgerGroup pair);
  void takeOut(const Line& line);
  bool namesKnown(const Line& line);

  ServiceObject& host_;
  const AccountGroups& groups_;
  std::optional<TrialBalance> books_;
  std::vector<Line> lines_;
  std::vector<Line> missing_;
  std::vector<Line> standing_;
  bool named_ = true;  // the masters knew ledger and group of each missing line
};

}  // namespace quillet
