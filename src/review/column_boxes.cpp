#include "review/column_boxes.h"

#include <algorithm>

#include "data/text.h"
#include "review/source_form.h"

namespace quillet {
namespace {

constexpr std::size_t headingRowsOffered = 30;
constexpr std::size_t textLength = 28;

std::string columnLetters(std::size_t column) {
  std::string letters;
  for (std::size_t left = column + 1; left > 0; left = (left - 1) / 26) {
    letters.insert(letters.begin(), static_cast<char>('A' + (left - 1) % 26));
  }
  return letters;
}

std::string shortened(const std::string& text) {
  return lengthOf(text) <= textLength ? text : text.substr(0, offsetOf(text, textLength)) + "...";
}

std::string cellText(const SourceRow& row, std::size_t column) {
  return column < row.cells.size() ? std::string(trimmed(row.cells[column].text)) : std::string();
}

std::string textOfRow(const SourceRow& row) {
  std::string text;
  for (const SourceCell& cell : row.cells) {
    if (!trimmed(cell.text).empty()) text += (text.empty() ? "" : ", ") + cell.text;
  }
  return shortened(text);
}

}  // namespace

ColumnBoxes::ColumnBoxes(SourceForm& form, ImportReview& review, std::vector<ColumnRole> roles)
    : form_(form), review_(review), roles_(std::move(roles)) {
  for (const char* mark : {"As found", "Point", "Comma"}) form.cbodecimals.addItem(mark);
  form.cboheading.Click = [this] { headingChosen(); };
  for (std::size_t box = 0; box < roles_.size(); ++box) {
    form.cbocolumn[static_cast<int>(box)].Click = [this, box] { columnChosen(box); };
  }
  form.cbodecimals.Click = [this] { figuresChosen(); };
  form.chkround.Click = [this] { figuresChosen(); };
}

void ColumnBoxes::headingChosen() {
  const auto [row, rows] = headings_.at(static_cast<std::size_t>(form_.cboheading.chosen() - 1));
  review_.chooseHeadings(row, rows);
  form_.reviewed();
}

void ColumnBoxes::columnChosen(std::size_t box) {
  const long column = form_.cbocolumn[static_cast<int>(box)].chosenData();
  review_.setColumn(roles_[box], column == 0 ? std::nullopt
                                             : std::optional(static_cast<std::size_t>(column - 1)));
  form_.reviewed();
}

void ColumnBoxes::figuresChosen() {
  review_.setFigures({static_cast<DecimalMark>(std::max(0, form_.cbodecimals.chosen() - 1)),
                      form_.chkround.checked()});
  form_.reviewed();
}

void ColumnBoxes::show() {
  showHeadings();
  const Mapping& mapping = review_.mapping();
  const std::vector<std::string> names = columnNames();
  for (std::size_t box = 0; box < roles_.size(); ++box) {
    ComboBox& combo = form_.cbocolumn[static_cast<int>(box)];
    combo.clearItems();
    combo.addItem("(none)", 0);
    for (std::size_t at = 0; at < names.size(); ++at) {
      combo.addItem(names[at], static_cast<long>(at) + 1);
    }
    const auto column = mapping.column(roles_[box]);
    combo.setChosen(column ? static_cast<int>(*column) + 2 : 1);
  }
  form_.cbodecimals.setChosen(static_cast<int>(mapping.figures.decimals) + 1);
  form_.chkround.setChecked(mapping.figures.rounds);
}

void ColumnBoxes::showHeadings() {
  const Mapping& mapping = review_.mapping();
  form_.cboheading.clearItems();
  headings_.assign(1, {0, 0});
  form_.cboheading.addItem("No headings");
  form_.cboheading.setChosen(1);
  const SourceSheet* sheet = review_.sheet();
  if (!sheet) return;
  const std::size_t offered = std::max(headingRowsOffered, mapping.headingRow + 1);
  for (std::size_t row = 0; row < std::min(offered, sheet->rows.size()); ++row) {
    const SourceRow& source = sheet->rows[row];
    const bool chosen = mapping.headingRows > 0 && row == mapping.headingRow;
    const std::size_t rows = chosen ? mapping.headingRows : 1;
    const std::string text = textOfRow(source);
    if (text.empty()) continue;
    const std::string last =
        rows > 1 ? "-" + std::to_string(source.number + static_cast<int>(rows) - 1) : "";
    form_.cboheading.addItem("Row " + std::to_string(source.number) + last + ": " + text);
    headings_.emplace_back(row, rows);
    if (chosen) form_.cboheading.setChosen(form_.cboheading.size());
  }
}

std::vector<std::string> ColumnBoxes::columnNames() const {
  const SourceSheet* sheet = review_.sheet();
  if (!sheet) return {};
  std::size_t columns = 0;
  for (const SourceRow& row : sheet->rows) columns = std::max(columns, row.cells.size());
  const Mapping& mapping = review_.mapping();
  std::vector<std::string> names;
  for (std::size_t column = 0; column < columns; ++column) {
    std::string name = columnLetters(column);
    const std::size_t end = std::min(mapping.firstRow(), sheet->rows.size());
    std::string heading;
    for (std::size_t row = mapping.headingRow; row < end; ++row) {
      const std::string text = cellText(sheet->rows[row], column);
      if (!text.empty()) heading += (heading.empty() ? "" : " ") + text;
    }
    names.push_back(heading.empty() ? name : name + "  " + shortened(heading));
  }
  return names;
}

}  // namespace quillet
