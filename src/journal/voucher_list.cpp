#include "journal/voucher_list.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "books/amount.h"
#include "journal/proper_case.h"

namespace quillet {

namespace {

constexpr int particularsColumn = 1;
constexpr std::size_t sideLength = 3;  // "By ", "To "

}  // namespace

VoucherList::VoucherList(Grid& grid, ServiceObject& host) : grid_(grid), host_(host) {
  // What addLine and addNarration fill, and the printout shows.
  grid.setColumns(
      {{.heading = "Date", .width = 12, .dated = true},
       {.heading = "Particulars", .width = 50, .stretch = true},
       {.heading = "Debit Amount", .align = Align::right, .width = 18, .numeric = true},
       {.heading = "Credit Amount", .align = Align::right, .width = 18, .numeric = true}});
  grid.outline = true;
  // Letters look for the name, without the word that tells its side and a narration's indent.
  grid.searchedText = [&grid](int row) {
    const std::string_view text = grid.cell(row, particularsColumn);
    const std::size_t start = text.starts_with(' ') ? text.find_first_not_of(' ') : sideLength;
    return text.substr(std::min(start, text.size()));
  };
}

std::string VoucherList::show(const Journal& journal, const std::string& from,
                              const std::string& to) {
  names_.clear();
  std::string unbalanced;
  int heading = 0;
  long vid = 0;
  std::string narration;
  Money sum;
  const auto endVoucher = [&] {
    if (heading == 0) return;
    addNarration(narration, vid);
    if (unbalanced.empty() && !sum.isZero()) unbalanced = grid_.cell(heading, 0);
    sum = Money();
  };
  journal.eachRow(from, to, [&](Journal::Row row) {
    const bool first = heading == 0 || row.vid != vid;
    if (first) {
      endVoucher();
      heading = grid_.rows() + 1;
    }
    vid = row.vid;
    sum += row.line.balance();
    addLine(row, first);
    narration = std::move(row.narration);
  });
  endVoucher();
  return unbalanced;
}

void VoucherList::addLine(const Journal::Row& row, bool first) {
  const VoucherLine& line = row.line;
  const std::string amount = groupedAmount(host_, line.amount);
  const int added = grid_.addRow(
      {first ? host_.formatgen(row.date, "d-m-yyyy") : std::string(),
       (line.debit ? "By " : "To ") + nameOf(line.pair.partId), line.debit ? amount : std::string(),
       line.balance() < Money() ? amount : std::string()},
      row.vid);
  if (first) grid_.setRowEmphasised(added, true);
}

void VoucherList::addNarration(const std::string& narration, long vid) {
  if (!narration.empty()) grid_.addRow({"", "    " + narration}, vid);
}

const std::string& VoucherList::nameOf(long partId) {
  const auto [name, isNew] = names_.try_emplace(partId);
  if (isNew) name->second = properCase(host_.GetPart_MastPartId(partId));
  return name->second;
}

void VoucherList::fold(int heading, bool folded) {
  if (headingOf(grid_.current()) == heading && folded) grid_.setCurrent(heading);
  for (int row = heading + 1; row <= grid_.rows() && !grid_.rowEmphasised(row); ++row) {
    grid_.setRowHidden(row, folded);
  }
}

void VoucherList::foldAll(bool folded) {
  for (int row = 1; row <= grid_.rows(); ++row) {
    if (grid_.rowEmphasised(row)) fold(row, folded);
  }
}

int VoucherList::headingOf(int row) const {
  while (row > 0 && !grid_.rowEmphasised(row)) --row;
  return row;
}

std::string VoucherList::lastDate() const {
  long last = 0;
  std::string date;
  for (int row = 1; row <= grid_.rows(); ++row) {
    if (!grid_.rowEmphasised(row) || grid_.rowId(row) <= last) continue;
    last = grid_.rowId(row);
    date = grid_.cell(row, 0);
  }
  return date;
}

void VoucherList::select(long vid) {
  if (vid != 0) grid_.setCurrent(grid_.findId(vid));
}

}  // namespace quillet
