#include "windows/host/late_workbook.h"

#include <utility>

namespace quillet::windows {

LateWorkbook::LateWorkbook(Late workbook) : workbook_(std::move(workbook)) {
  const Late sheets = workbook_.object("Worksheets");
  const long count = asLong(sheets.call("Count"));
  for (long i = 1; i <= count; ++i) {
    sheets_.push_back(sheets.object("Item", i));
    names_.push_back(asText(sheets_.back().call("Name")));
  }
}

LateWorkbook::~LateWorkbook() {
  if (!workbook_) return;
  try {
    workbook_.call("Close", false);
  } catch (const std::exception&) {
    // The application quits without it.
  }
}

void LateWorkbook::Cells(int worksheet, int row, int column, const std::string& text) {
  written_[worksheet].set(row, column, text);
}

void LateWorkbook::Cells(int worksheet, int row, int column, double number) {
  written_[worksheet].set(row, column, number);
}

void LateWorkbook::Save() {
  for (const auto& [worksheet, cells] : std::exchange(written_, {})) {
    cells.writeTo(sheets_.at(static_cast<std::size_t>(worksheet)));
  }
  workbook_.call("Save");
}

void LateWorkbook::Close() {
  sheets_.clear();
  workbook_.call("Close");
  workbook_ = {};
}

}  // namespace quillet::windows
