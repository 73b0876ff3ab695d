#include "masters/ledger_rows.h"

#include <algorithm>
#include <utility>

namespace quillet {

void LedgerRows::setTarget(long id) {
  target_ = id;
  for (int row = 1; row <= grid_.rows(); ++row) grid_.setCell(row, linkColumn, "");
}

void LedgerRows::add(std::vector<NamedId> ledgers, const Ids& used) {
  grid_.reserve(grid_.rows() + static_cast<int>(ledgers.size()));
  for (NamedId& ledger : ledgers) {
    grid_.addRow({std::move(ledger.name), used.contains(ledger.id) ? "Y" : "N"}, ledger.id);
  }
}

void LedgerRows::replace(long id, std::vector<NamedId> rows) {
  const int shown = grid_.findId(id);
  const bool used = shown > 0 && grid_.cell(shown, inUseColumn) == "Y";
  remove({id});
  add(std::move(rows), used ? Ids{id} : Ids{});
}

void LedgerRows::remove(const Ids& ids) {
  grid_.removeRowsIf([&](int row) { return ids.contains(grid_.rowId(row)); });
}

// --- use ----------------------------------------------------------------------------------------

LedgerRows::Ids LedgerRows::used() const {
  Ids ids;
  for (int row = 1; row <= grid_.rows(); ++row) {
    if (grid_.cell(row, inUseColumn) == "Y") ids.insert(grid_.rowId(row));
  }
  return ids;
}

void LedgerRows::mark(long id, bool used) {
  for (int row = 1; row <= grid_.rows(); ++row) {
    if (grid_.rowId(row) == id) grid_.setCell(row, inUseColumn, used ? "Y" : "N");
  }
}

void LedgerRows::markFound(const Ids& used, bool complete) {
  complete_ = complete;
  for (int row = 1; row <= grid_.rows(); ++row) {
    if (used.contains(grid_.rowId(row))) {
      grid_.setCell(row, inUseColumn, "Y");
    } else if (complete) {
      grid_.setCell(row, inUseColumn, "N");
    }
  }
}

// --- what is shown ------------------------------------------------------------------------------

void LedgerRows::show(Filter filter, const WordSearch& search, int kept) {
  for (int row = 1; row <= grid_.rows(); ++row) {
    const bool wanted = grid_.cell(row, inUseColumn) == "Y" ? filter.used : filter.unused;
    const bool isTarget = target_ != 0 && grid_.rowId(row) == target_;
    const bool show = wanted && !isTarget && search.finds(grid_.cell(row, nameColumn));
    grid_.setRowHidden(row, !show && row != kept);
  }
}

std::string LedgerRows::count() const {
  int shown = 0;
  int ticked = 0;
  int hidden = 0;
  for (int row = 1; row <= grid_.rows(); ++row) {
    if (!grid_.rowHidden(row)) ++shown;
    if (!isTicked(row)) continue;
    ++ticked;
    if (grid_.rowHidden(row)) ++hidden;
  }
  std::string count = std::to_string(shown) + " of " + std::to_string(grid_.rows());
  if (ticked > 0) count += ", " + std::to_string(ticked) + " ticked";
  if (hidden > 0) count += " (" + std::to_string(hidden) + " not listed)";
  if (!complete_) count += ", not all that is in use is marked";
  return count;
}

std::vector<long> LedgerRows::shown() const {
  std::vector<long> ids;
  Ids known;
  for (int row = 1; row <= grid_.rows(); ++row) {
    const long id = grid_.rowId(row);
    if (!grid_.rowHidden(row) && known.insert(id).second) ids.push_back(id);
  }
  return ids;
}

int LedgerRows::shownRow(long id) const {
  for (int row = 1; row <= grid_.rows(); ++row) {
    if (grid_.rowId(row) == id && !grid_.rowHidden(row)) return row;
  }
  return 0;
}

int LedgerRows::neighbour() const {
  const auto stays = [&](int row) {
    return !grid_.rowHidden(row) && grid_.rowId(row) != grid_.currentId();
  };
  for (int row = grid_.current() + 1; row <= grid_.rows(); ++row) {
    if (stays(row)) return row;
  }
  for (int row = grid_.current() - 1; row > 0; --row) {
    if (stays(row)) return row;
  }
  return 0;
}

// --- ticks --------------------------------------------------------------------------------------

bool LedgerRows::isTicked(int row) const {
  return target_ != 0 && grid_.rowId(row) != target_ && grid_.ticked(row);
}

std::vector<long> LedgerRows::ticked() const {
  std::vector<long> ids;
  for (int row = 1; row <= grid_.rows(); ++row) {
    if (isTicked(row)) ids.push_back(grid_.rowId(row));
  }
  return ids;
}

std::vector<std::string> LedgerRows::tickedNames() const {
  std::vector<std::string> names;
  for (int row = 1; row <= grid_.rows(); ++row) {
    if (isTicked(row)) names.push_back(grid_.cell(row, nameColumn));
  }
  return names;
}

}  // namespace quillet
