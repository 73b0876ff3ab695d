#include "masters/master_form.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "data/text.h"

namespace quillet {
namespace {

// As these forms write it.
constexpr char flushed[] = "Flush Tables";

}  // namespace

MasterForm::MasterForm(Context& context, std::string name)
    : Form(context.desk, std::move(name)), context_(context) {}

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

int MasterForm::putRow(Grid& grid, std::vector<std::string> cells, int from) {
  int row = grid.find(0, cells.front(), from);
  if (row == 0) row = grid.addRow({});
  for (std::size_t c = 0; c < cells.size(); ++c) {
    grid.setCell(row, static_cast<int>(c), std::move(cells[c]));
  }
  return row;
}

std::optional<NamedId> MasterForm::taken(const std::string& name, std::optional<NamedId> found,
                                         const Grid& grid, int nameColumn, long except) {
  if (found && sameName(found->name, name)) return found;
  const std::string key = nameKey(name);
  for (int row = 1; row <= grid.rows(); ++row) {
    if (nameKey(grid.cell(row, nameColumn)) != key) continue;
    const long id = std::stol(grid.cell(row, 0));
    if (id != except) return NamedId{id, grid.cell(row, nameColumn)};
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
