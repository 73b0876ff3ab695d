// The cells of one row under their roles: names, and the amount on its side.
#pragma once

#include <string>
#include <vector>

#include "import/mapping.h"
#include "import/row_kinds.h"

namespace quillet {

// What a row's cells say before anybody knows whether it is a ledger.
struct ReadRow {
  bool empty = true;       // no cell holds anything
  bool hasFigure = false;  // an amount, a zero or a dash stands there
  bool hasAmount = false;  // other than zero
  bool sideless = false;   // says no side where others do
  bool bold = false;
  int indent = 0;
  std::string problem;  // of the amount or the name
};

// How the sheet as a whole writes its amounts.
class RowReader {
 public:
  RowReader(const SourceSheet& sheet, const Mapping& mapping);

  // Fills name, group, code and amounts of `row`.
  ReadRow read(const SourceRow& source, ImportRow& row) const;
  // Whether debit and credit are told apart, not by a sign alone.
  bool sided() const { return !column(ColumnRole::amount) || debits_ || credits_; }

 private:
  std::optional<std::size_t> column(ColumnRole role) const { return mapping_.column(role); }
  const SourceCell& cell(const SourceRow& row, ColumnRole role) const;
  void look(const SourceRow& row);
  bool hasMoreFields(const SourceRow& row) const;
  void readSides(const SourceRow& source, ImportRow& row, ReadRow& read) const;
  void readAmount(const SourceRow& source, ImportRow& row, ReadRow& read) const;

  const Mapping& mapping_;
  bool debits_ = false;  // amounts of the one column that say so
  bool credits_ = false;
  bool signedSides_ = true;      // the column of sides repeats what the signs say
  std::size_t columns_ = 0;      // that the headings stand over, 0 when there are none
  bool negativeCredits_ = true;  // the column of credits writes all of them below zero
  int creditFigures_ = 0;
};

}  // namespace quillet
