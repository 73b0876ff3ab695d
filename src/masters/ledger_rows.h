// The rows of the ledger master's grid, known by the ids of their ledgers: which of them are in
// use, which are shown, and which are ticked to be replaced. A ledger with several names has a row
// for each.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "controls/grid.h"
#include "data/names.h"
#include "data/word_search.h"

namespace quillet {

class LedgerRows {
 public:
  enum Column { nameColumn, inUseColumn, linkColumn };
  using Ids = std::unordered_set<long>;

  explicit LedgerRows(Grid& grid) : grid_(grid) {}

  // The ledger that the ticked ones are replaced by, 0 for none. Choosing one forgets the ticks.
  void setTarget(long id);
  long target() const { return target_; }

  // Adds rows; the ledgers of `used` are in use.
  void add(std::vector<NamedId> ledgers, const Ids& used);
  // Puts the rows of one ledger in place of those that it has; its mark stays.
  void replace(long id, std::vector<NamedId> rows);
  void remove(const Ids& ids);

  Ids used() const;
  void mark(long id, bool used);
  // Marks those that were found; the others are in no use only when the search was complete.
  void markFound(const Ids& used, bool complete);
  // Whether the last search was complete.
  bool marksComplete() const { return complete_; }

  // Shows the rows of that use (both when not given) in which the search finds its words. The
  // target is not among them. `kept` stays in sight, 0 for none.
  struct Filter {
    bool used = true;
    bool unused = true;
  };
  void show(Filter filter, const WordSearch& search, int kept);
  // How many rows are shown and ticked, in words, and whether marks are missing.
  std::string count() const;
  std::vector<long> shown() const;

  // The first row of the ledger that is shown, 0 when there is none.
  int shownRow(long id) const;
  // The shown row that a person goes on with when the current ledger is gone; 0 for none.
  int neighbour() const;

  std::vector<long> ticked() const;
  std::vector<std::string> tickedNames() const;

 private:
  bool isTicked(int row) const;

  Grid& grid_;
  long target_ = 0;
  bool complete_ = true;
};

}  // namespace quillet
