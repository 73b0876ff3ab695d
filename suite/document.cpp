#include "suite/document.h"

#include <algorithm>
#include <utility>

#include "data/paths.h"
#include "data/text.h"
#include "suite/printer_codes.h"

namespace quillet::suite {
namespace {

// Whether a mask marks the cell; a lone character stands for all cells.
bool marks(const std::string& mask, std::size_t cell) {
  if (mask.size() == 1) return mask[0] == '1';
  return cell < mask.size() && mask[cell] == '1';
}

template <class T>
T at(const std::vector<T>& values, std::size_t index) {
  return index < values.size() ? values[index] : T{};
}

// The row ends with the cell that the third mask marks.
std::size_t cellsOf(const Document::Written& row) {
  const std::string& last = row.masks[2];
  const std::size_t marked = last.size() > 1 ? last.find('1') : std::string::npos;
  return marked == std::string::npos ? row.values.size() : std::min(marked + 1, row.values.size());
}

// Some titles name the firm themselves.
bool names(const std::string& title, const std::string& firm) {
  return (' ' + title + ' ').find(' ' + firm + ' ') != std::string::npos;
}

}  // namespace

std::vector<ReportHeading> Document::pageHeadings() const {
  std::vector<ReportHeading> lines = headings_;
  const std::string title = lines.empty() ? "" : lines.front().text;
  if (!lines.empty()) lines.front().emphasised = true;
  if (!firm_.empty() && !names(title, firm_)) lines.insert(lines.begin(), {firm_, true});
  if (!subject_.empty()) lines.push_back({subject_});
  return lines;
}

std::string Document::fileName() const {
  // What the title says of firm and period does not name the report.
  std::string title = headings_.empty() ? "Report" : headings_.front().text;
  for (const char* rest : {" of ", " For the Period"})
    title.erase(std::min(title.find(rest), title.size()));
  // Systems take 255 bytes, an ending and a number included.
  constexpr std::size_t longest = 200;
  std::string subject = fileSubject_;
  while (subject.size() + title.size() + 1 > longest) {
    const std::size_t length = lengthOf(subject);
    if (length == 0) break;
    subject.erase(offsetOf(subject, length - 1));
  }
  std::string name = asFileName(subject.empty() ? title : subject + " " + title);
  // A point in front would hide the file.
  if (name.starts_with('.')) name.front() = '-';
  return name;
}

std::size_t Document::columns(int table) const { return at(columns_, table); }

Document::Span Document::spanOf(const DocumentRow& row, std::size_t cell) const {
  const std::size_t cells = row.cells.size();
  const std::size_t all = columns(row.table);
  const bool spread = row.heading && cells >= 2 && cells < all && (all - 1) % (cells - 1) == 0;
  if (!spread) return {cell, cell + 1 == cells && cells < all ? all - cell : 1};
  const std::size_t each = (all - 1) / (cells - 1);
  return cell == 0 ? Span{0, 1} : Span{1 + (cell - 1) * each, each};
}

void Document::addHeading(const std::string& text) {
  PrintedText printed = withoutPrinterCodes(text, emphasis_);
  const bool onlyCodes = printed.text.empty() && !text.empty();
  if (!onlyCodes) headings_.push_back({std::move(printed.text), printed.emphasised});
}

void Document::beginTable() { ++tables_; }

void Document::addRow(const Written& written) {
  DocumentRow row;
  row.heading = written.heading;
  row.table = std::max(tables_ - 1, 0);
  row.masks = written.masks;
  for (std::size_t i = 0; i < cellsOf(written); ++i) {
    PrintedText printed = withoutPrinterCodes(
        at(written.before, i) + written.values[i] + at(written.after, i), emphasis_);
    ReportCell cell;
    cell.text = std::move(printed.text);
    cell.align = at(written.alignments, i);
    cell.width = std::max(at(written.widths, i), 0L);
    cell.ruled = marks(written.masks[0], i);
    cell.emphasised = printed.emphasised || marks(written.masks[1], i);
    cell.printed = marks(written.masks[3], i);
    row.cells.push_back(std::move(cell));
  }
  const std::size_t table = row.table;
  columns_.resize(std::max(columns_.size(), table + 1));
  columns_[table] = std::max(columns_[table], row.cells.size());
  rows_.push_back(std::move(row));
}

}  // namespace quillet::suite
