// Which rows are sums of others. A row is one when it equals the rows that follow, or those above,
// and something else speaks for it: its place, its look, its name, or the source's own total.
// Several readings are compared by that total; what it does not decide is asked.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/money.h"

namespace quillet {

enum class RowKind : std::uint8_t {
  ledger,
  heading,  // a name without an amount
  parent,   // the sum of the rows that follow
  total,    // the sum of the rows above
  blank,
  skipped,
  error  // an amount or a name that cannot be read, or an amount without a name
};
// As it stands in the review: "Ledger", "Heading", "Sum of rows below", ...
std::string_view nameOf(RowKind kind);
std::optional<RowKind> rowKindNamed(std::string_view name);

// Debit and credit as two columns add up.
struct SideTotals {
  Money debit;
  Money credit;

  Money difference() const { return debit - credit; }
  bool isZero() const { return debit.isZero() && credit.isZero(); }
  SideTotals& operator+=(const SideTotals& other);
  bool operator==(const SideTotals&) const = default;
};

// A row with an amount, or a heading between such rows.
struct SumRow {
  enum class Name : std::uint8_t {
    other,
    ledger,     // of the client
    group,      // of the practice
    totalWord,  // "Total Current Assets"; a ledger may be called so
    total,      // "Grand Total", or no name at all
  };

  SideTotals amount;
  bool heading = false;
  bool sideless = false;  // the amount says no side, as totals do where ledgers name theirs
  bool grouped = false;   // has a group of its own: no sum, unless the source's total says so
  bool unnamed = false;
  Name name = Name::other;
  bool bold = false;
  int indent = 0;
  std::optional<RowKind> fixed;  // by a person

  // What is found:
  RowKind kind = RowKind::ledger;
  std::optional<std::size_t> parent;  // the sum that this row is part of
  std::string reason;
  std::string question;
};

struct ExplainedSums {
  std::optional<SideTotals> stated;  // by the source's grand total
  bool explained = true;             // the rows add up to it
};

// `sided` says whether debit and credit add up apart; a signed column has one net total, which says
// nothing when it is zero.
ExplainedSums explainSums(std::vector<SumRow>& rows, bool sided);

}  // namespace quillet
