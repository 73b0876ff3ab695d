#include "masters/master_form.h"

#include <algorithm>
#include <sstream>
#include <unordered_set>
#include <utility>

#include "data/text.h"

namespace quillet {
namespace {

// As these forms write it.
constexpr char flushed[] = "Flush Tables";
constexpr int idColumn = 0;
// How many missing tables are named before they are only counted.
constexpr std::size_t tablesNamed = 6;

}  // namespace

MasterForm::MasterForm(Context& context, std::string name)
    : Form(context.desk, std::move(name)), context_(context) {
  lblstatus.quiet = true;
}

void MasterForm::FORM_UNLOAD(bool& cancel) {
  trap("FORM_UNLOAD", [&] { cancel = entryBegun() && !ask("Do you want to Cancel this Entry?"); });
}

bool MasterForm::entryStands(Grid& grid, bool& adding) {
  if (!adding) return grid.current() > 0;
  if (const int row = addedId_ == 0 ? 0 : grid.find(idColumn, std::to_string(addedId_)); row > 0) {
    adding = false;
    grid.setCurrent(row);
  }
  return true;
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

void MasterForm::change(const Sql& sql) { context_.change(sql, flushed); }

void MasterForm::flush() { context_.host->ConQuery(flushed); }

bool MasterForm::rowSelected(Grid& grid, const std::string& refusal) {
  if (grid.current() > 0) return true;
  tell(refusal);
  focus(grid);
  return false;
}

bool MasterForm::walk(const std::string& text, const TablePrefixes& prefixes,
                      const std::function<bool(const YearTable& table)>& visit) {
  TableNames missing;
  const bool found = walkYearTables(*context_.host, text, prefixes, missing, visit);
  tellMissing(missing);
  return found;
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

void MasterForm::refill(Grid& grid, const std::function<void()>& fill) {
  const std::string current =
      grid.current() > 0 ? grid.cell(grid.current(), idColumn) : std::string();
  std::unordered_set<std::string> ticked;
  for (int row = 1; row <= grid.rows(); ++row) {
    if (grid.ticked(row)) ticked.insert(grid.cell(row, idColumn));
  }
  grid.clearRows();
  fill();
  grid.sortAgain();
  for (int row = 1; row <= grid.rows() && !ticked.empty(); ++row) {
    if (ticked.contains(grid.cell(row, idColumn))) grid.tick(row, true);
  }
  if (!current.empty()) grid.setCurrent(grid.find(idColumn, current));
}

void MasterForm::showRow(Grid& grid, std::vector<std::string> cells) {
  const std::string id = cells.front();
  int row = grid.find(idColumn, id);
  if (row == 0) row = grid.addRow({});
  for (std::size_t c = 0; c < cells.size(); ++c) {
    grid.setCell(row, static_cast<int>(c), std::move(cells[c]));
  }
  grid.sortAgain();
  makeCurrent(grid, grid.find(idColumn, id));
}

void MasterForm::dropRow(Grid& grid, long id) {
  grid.removeRowsIf([&](int row) { return grid.cell(row, idColumn) == std::to_string(id); });
  status("It is there no more: somebody has deleted it.");
}

std::optional<NamedId> MasterForm::taken(const std::string& name, const Sql& select,
                                         const Names& names, long except) {
  const auto rows = context_.query(select);
  auto found = bestMatch(*rows, names.idField, names.nameField, name);
  if (found && sameName(found->name, name)) return found;
  const std::string key = nameKey(name);
  for (int row = 1; row <= names.grid.rows(); ++row) {
    if (nameKey(names.grid.cell(row, names.column)) != key) continue;
    const long id = std::stol(names.grid.cell(row, idColumn));
    if (id == except || (names.counts && !names.counts(row))) continue;
    const auto stored = context_.query(names.rowOf + sqlNumber(id));
    auto still = bestMatch(*stored, names.idField, names.nameField, name);
    if (still && sameName(still->name, name)) return still;
  }
  return found;
}

void MasterForm::searchByTyping(Grid& grid, int column, Key& key) {
  // The blank is for ticking.
  if (!keys::typesText(key) || key == keys::Space || grid.rows() == 0) return;
  const char32_t wanted = upperCase(key);
  key = keys::none;
  for (int step = 1; step <= grid.rows(); ++step) {
    const int row = (grid.current() + step - 1) % grid.rows() + 1;
    const std::string& cell = grid.cell(row, column);
    std::size_t at = 0;
    if (cell.empty() || grid.rowHidden(row)) continue;
    if (upperCase(nextCharacter(cell, at)) != wanted) continue;
    grid.setCurrent(row);
    return;
  }
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

WordSearch::WordSearch(std::string_view text) {
  std::istringstream words(nameKey(text));
  for (std::string word; words >> word;) words_.push_back(word);
}

bool WordSearch::finds(std::string_view text) const {
  if (words_.empty()) return true;
  const std::string key = nameKey(text);
  return std::all_of(words_.begin(), words_.end(),
                     [&](const std::string& word) { return key.find(word) != std::string::npos; });
}

}  // namespace quillet
