#include "suite/sheets/worksheet.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "data/dates.h"

namespace quillet::suite {
namespace {

using Kind = SourceCell::Kind;

constexpr int mostColumns = 16'384;  // of any workbook
constexpr const char* notCalculated = "(not calculated)";

[[noreturn]] void misplaced() {
  throw SourceError(
      "is damaged: one of its cells has no place in a sheet. Open it in a spreadsheet program and "
      "save it again.");
}

void fail(SourceCell& cell, std::string shown) {
  cell.kind = Kind::error;
  cell.text = std::move(shown);
}

std::optional<double> numberIn(std::string_view text) {
  double number = 0;
  const auto end = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool whole = end.ec == std::errc() && end.ptr == text.data() + text.size();
  return whole && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

// "2026-03-31T00:00:00"
void readDay(SourceCell& cell) {
  const std::string day = cell.text.substr(0, 10);
  const auto part = [&](std::size_t at, std::size_t length) {
    int number = 0;
    if (day.size() == 10) std::from_chars(day.data() + at, day.data() + at + length, number);
    return number;
  };
  cell.kind = Kind::date;
  if (exists({part(0, 4), part(5, 2), part(8, 2)})) {
    cell.text = day;
  } else {
    fail(cell, cell.text);
  }
}

}  // namespace

// "AB12": rows and columns from 0.
Worksheet::Place Worksheet::placeOf(std::string_view reference) {
  Place place{0, 0};
  std::size_t at = 0;
  for (; at < reference.size() && reference[at] >= 'A' && reference[at] <= 'Z'; ++at) {
    place.column = place.column * 26 + (reference[at] - 'A' + 1);
    if (place.column > mostColumns) misplaced();
  }
  const char* end = reference.data() + reference.size();
  const auto digits = std::from_chars(reference.data() + at, end, place.row);
  if (digits.ptr != end || place.column == 0 || place.row < 1 || place.row > mostSourceRows) {
    misplaced();
  }
  return {place.row - 1, place.column - 1};
}

void Worksheet::begin(std::string_view name, const XmlAttributes& attributes) {
  if (name == "c") return beginCell(attributes);
  if (inCell_) {
    inValue_ = name == "v";
    isFormula_ = isFormula_ || name == "f";
    return inline_.begin(name, attributes);
  }
  if (name == "row") return beginRow(attributes);
  if (name == "col") return hideColumns(attributes);
  if (name == "mergeCell") merge(attributes.get("ref"));
}

void Worksheet::end(std::string_view name) {
  if (!inCell_) return;
  inline_.end(name);
  inValue_ = false;
  if (name == "c") endCell();
}

void Worksheet::text(std::string_view text) {
  if (!inCell_) return;
  if (inValue_) value_ += text;
  inline_.text(text);
}

void Worksheet::beginRow(const XmlAttributes& attributes) {
  row_ = attributes.number("r", row_ + 2) - 1;
  if (row_ < 0 || row_ >= mostSourceRows) misplaced();
  column_ = -1;
  const bool flat = attributes.has("ht") && numberIn(attributes.get("ht")) == 0.0;
  rowIsHidden_ = flat || attributes.flag("hidden");
}

void Worksheet::beginCell(const XmlAttributes& attributes) {
  ++column_;
  if (attributes.has("r")) column_ = placeOf(attributes.get("r")).column;
  if (row_ < 0 || column_ >= mostColumns) misplaced();
  style_ = attributes.number("s");
  type_ = attributes.get("t");
  inCell_ = true;
  isFormula_ = false;
  value_.clear();
}

void Worksheet::hideColumns(const XmlAttributes& attributes) {
  const bool narrow = attributes.has("width") && numberIn(attributes.get("width")) == 0.0;
  if (!narrow && !attributes.flag("hidden")) return;
  const int first = std::max(attributes.number("min"), 1);
  const int last = std::min(attributes.number("max"), mostSourceColumns);
  for (int column = first; column <= last; ++column) sheet_.hiddenColumns.push_back(column - 1);
}

void Worksheet::merge(std::string_view area) {
  const auto colon = area.find(':');
  if (colon == std::string_view::npos) return;
  const Place first = placeOf(area.substr(0, colon));
  const Place last = placeOf(area.substr(colon + 1));
  SourceCell* cell = builder_.at(first.row, first.column);
  if (cell == nullptr) return;
  cell->columns = std::max(last.column - first.column + 1, 1);
  cell->rows = std::max(last.row - first.row + 1, 1);
}

void Worksheet::endCell() {
  inCell_ = false;
  builder_.place(row_, column_, cell());
  if (!rowIsHidden_ || static_cast<std::size_t>(row_) >= sheet_.rows.size()) return;
  sheet_.rows[static_cast<std::size_t>(row_)].hidden = true;
}

SourceCell Worksheet::cell() {
  const auto format = content_.formats.of(style_);
  SourceCell cell;
  cell.bold = format.bold;
  cell.indent = format.indent;
  RichText written = inline_.take();
  if (type_ == "s" || type_ == "inlineStr") {
    if (type_ == "s") {
      std::size_t index = 0;
      std::from_chars(value_.data(), value_.data() + value_.size(), index);
      const RichText* shared = value_.empty() ? nullptr : content_.texts.at(index);
      if (shared == nullptr && !value_.empty()) misplaced();
      if (shared != nullptr) written = *shared;
    }
    cell.kind = Kind::text;
    cell.bold = cell.bold || written.bold;
    cell.text = std::move(written.text);
    return cell;
  }
  cell.text = std::move(value_);
  if (type_ == "str") {
    cell.kind = Kind::text;
    cell.text = withoutEscapes(std::move(cell.text));
  } else if (cell.text.empty()) {
    if (isFormula_) fail(cell, notCalculated);
  } else if (type_ == "b") {
    cell.kind = Kind::truth;
    cell.text = cell.text == "0" || cell.text == "false" ? "FALSE" : "TRUE";
  } else if (type_ == "e") {
    cell.kind = Kind::error;
  } else if (type_ == "d") {
    readDay(cell);
  } else {
    readNumber(cell);
  }
  return cell;
}

void Worksheet::readNumber(SourceCell& cell) {
  const auto number = numberIn(cell.text);
  if (!number) return fail(cell, cell.text);
  if (isFormula_ && *number == 0) zeros_.push_back({row_, column_});
  anyCalculated_ = anyCalculated_ || (isFormula_ && *number != 0);
  const NumberFormat& format = *content_.formats.of(style_).number;
  switch (format.shows(*number)) {
    case NumberFormat::Shows::date:
      cell.kind = Kind::date;
      cell.text = dayText(*number, content_.parts.from1904);
      if (cell.text.empty()) fail(cell, "#####");
      break;
    case NumberFormat::Shows::percent:
      cell.kind = Kind::text;
      cell.text = percentText(*number);
      break;
    case NumberFormat::Shows::time:
      cell.kind = Kind::text;
      cell.text = timeText(*number);
      break;
    case NumberFormat::Shows::number:
      cell.kind = Kind::number;
      cell.side = format.side(*number);
      const bool unsignedShown = cell.side != 0 && format.hidesSign(*number);
      cell.text = decimalText(unsignedShown ? -*number : *number);
      break;
  }
}

// Programs without a calculator of their own write 0 for every formula.
void Worksheet::finish() {
  if (content_.parts.calculatesFirst && !anyCalculated_) {
    for (const Place& place : zeros_) {
      if (SourceCell* cell = builder_.at(place.row, place.column)) fail(*cell, notCalculated);
    }
  }
  std::sort(sheet_.hiddenColumns.begin(), sheet_.hiddenColumns.end());
  builder_.finish();
}

}  // namespace quillet::suite
