// What acts changed in a period: the books of a client's year, or the masters that all clients
// share.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "suite/history/act_notes.h"
#include "suite/history/names_as_of.h"
#include "suite/history/row_matching.h"
#include "suite/history/version_query.h"
#include "suite/history/year_tables.h"

namespace quillet::suite {

struct Change {
  enum class Of { year, line, voucher, stock, binding, ledger, group, mapping, head };

  Instant at = 0;
  Of of = Of::line;
  RowPair rows;  // only after: added; only before: deleted

  const BookRow& any() const { return rows.any(); }
  // "Added", "Deleted", "Changed"
  const char* what() const;
  bool hasAmounts() const { return of == Of::line || of == Of::voucher || of == Of::stock; }
};

struct Changes {
  explicit Changes(UnitOfWork& unit) : names(unit) {}

  std::vector<Change> list;  // the last act first
  ActNotes acts;
  NamesAsOf names;
  std::size_t actCount = 0;
};

// `ledger` is an id; 0 takes all, with what happened to the year itself. Of a year that is gone the
// changes up to its deletion.
Changes changesOfYear(UnitOfWork& unit, const ClientYear& year, const Period& period,
                      long ledger = 0);
Changes changesOfMasters(UnitOfWork& unit, const Period& period, long ledger = 0);

// The last act that changed the books of the year; 0 when none did since the history began.
Instant lastChange(UnitOfWork& unit, const ClientYear& year);
// The same of all years of the client, by their second dates, as a person reads it.
std::map<std::string, std::string> lastChanges(UnitOfWork& unit, const std::string& client);

}  // namespace quillet::suite
