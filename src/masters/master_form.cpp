#include "masters/master_form.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "data/names.h"

namespace quillet {
namespace {

// As these forms write it.
constexpr char flushed[] = "Flush Tables";
// How many missing tables are named before they are only counted.
constexpr std::size_t tablesNamed = 6;

}  // namespace

MasterForm::MasterForm(Context& context, std::string name)
    : Form(context.openForms, std::move(name)), context_(context) {
  lblstatus.setQuiet(true);
}

void MasterForm::FORM_UNLOAD(bool& cancel) {
  cancel = entryBegun() && !ask("Do you want to Cancel this Entry?");
}

bool MasterForm::entryStands(Grid& grid, bool& adding) {
  if (!adding) return grid.current() > 0;
  if (const int row = addedId_ == 0 ? 0 : grid.findId(addedId_); row > 0) {
    adding = false;
    grid.setCurrent(row);
  }
  return true;
}

// --- what is changed by somebody else meanwhile -------------------------------------------------

std::vector<std::string> MasterForm::cellsOf(const Grid& grid, long id, int columns) {
  std::vector<std::string> cells;
  for (int row = 1; row <= grid.rows() && id != 0; ++row) {
    if (grid.rowId(row) != id) continue;
    for (int column = 0; column < columns; ++column) cells.push_back(grid.cell(row, column));
  }
  return cells;
}

void MasterForm::showMoved() {
  const auto before = atStake();
  reread();
  if (atStake() != before) movedIn_ = openForms().acts.number();
}

// The fields of an entry hold what was there when it began; grids show what others have stored, if
// not in this very act.
bool MasterForm::asSeen() {
  const auto now = atStake();
  if (modifying() ? now == seen_ : movedIn_ != openForms().acts.number()) return true;
  if (modifying()) showEntry();
  tell(now.empty() ? "Somebody else has deleted this meanwhile. Nothing was stored."
                   : "Somebody else has changed this meanwhile. It is shown as it is stored now; "
                     "please look, and enter your change again.");
  return false;
}

// --- telling and asking -------------------------------------------------------------------------

void MasterForm::status(const std::string& text) {
  const std::string before = lblstatus.caption();
  if (before.find(text) != std::string::npos) return;
  lblstatus.setCaption(before.empty() ? text : before + " " + text);
  // A line too long for the window is cut.
  lblstatus.setToolTip(lblstatus.caption());
}

void MasterForm::tell(const std::string& text) {
  context_.MsgBox(text, Buttons::OK, Icon::information, Answer::OK, caption());
}

bool MasterForm::ask(const std::string& text, const std::string& title) {
  return context_.MsgBox(text, Buttons::YesNo, Icon::question, Answer::No,
                         title.empty() ? caption() : title) == Answer::Yes;
}

void MasterForm::flush() { context_.host->ConQuery(flushed); }

bool MasterForm::rowSelected(Grid& grid, const std::string& refusal) {
  if (grid.current() > 0) return true;
  tell(refusal);
  focus(grid);
  return false;
}

void MasterForm::tellMissing(const TableNames& missing) {
  if (missing.empty()) return;
  std::string names;
  for (std::size_t i = 0; i < std::min(missing.size(), tablesNamed); ++i) {
    names += (i == 0 ? "" : ", ") + missing[i];
  }
  if (missing.size() > tablesNamed) {
    names += " and " + std::to_string(missing.size() - tablesNamed) + " more";
  }
  status("Missing and passed over: " + names + ".");
}

// --- grids --------------------------------------------------------------------------------------

std::string MasterForm::nameIn(const Choice& list, long number) {
  const int position = list.findData(number);
  if (position > 0) return list.items()[position - 1];
  return number == 0 ? "" : std::to_string(number);
}

void MasterForm::refill(Grid& grid, const std::function<void()>& fill) {
  const long current = grid.currentId();
  std::unordered_set<long> ticked;
  for (int row = 1; row <= grid.rows(); ++row) {
    if (grid.ticked(row)) ticked.insert(grid.rowId(row));
  }
  grid.clearRows();
  fill();
  grid.sortAgain();
  for (int row = 1; row <= grid.rows() && !ticked.empty(); ++row) {
    if (ticked.contains(grid.rowId(row))) grid.tick(row, true);
  }
  if (current != 0) grid.setCurrent(grid.findId(current));
}

bool MasterForm::showRows(std::string_view procedure, Grid& grid, long id, const ReadRows& read) {
  const auto readOne = [&] {
    auto found = read(id);
    if (found.empty()) {
      dropRow(grid, id);
      return;
    }
    int row = grid.findId(id);
    if (row == 0) row = grid.addRow({}, id);
    for (int c = 0; auto& cell : found.front().cells) grid.setCell(row, c++, std::move(cell));
    grid.sortAgain();
    makeCurrent(grid, grid.findId(id));
  };
  if (id > 0 && wasRead(grid) && attempt(procedure, readOne)) return true;
  return fillGrids(procedure, {&grid}, [&] {
    auto rows = read(0);
    refill(grid, [&] {
      for (auto& row : rows) grid.addRow(std::move(row.cells), row.id);
    });
    if (id > 0) grid.setCurrent(grid.findId(id));
  });
}

void MasterForm::dropRow(Grid& grid, long id) {
  grid.removeRowsIf([&](int row) { return grid.rowId(row) == id; });
  status("It is there no more: somebody has deleted it.");
}

std::vector<long> MasterForm::alike(const Grid& grid, int column, const std::string& name,
                                    long except) {
  const std::string key = nameKey(name);
  std::vector<long> ids;
  for (int row = 1; row <= grid.rows(); ++row) {
    const long id = grid.rowId(row);
    if (id != except && nameKey(grid.cell(row, column)) == key) ids.push_back(id);
  }
  return ids;
}

void MasterForm::makeCurrent(Grid& grid, int row) {
  if (grid.current() != row) {
    grid.setCurrent(row);
  } else {
    grid.RowColChange();
  }
}

void MasterForm::enterIsTab(Key& key) {
  if (key != keys::Enter) return;
  key = keys::none;
  focusNext();
}

}  // namespace quillet
