#include "review/review_vouchers.h"

#include <algorithm>

#include "books/amount.h"
#include "data/names.h"
#include "review/frmvchimport.h"

namespace quillet {

ReviewVouchers::ReviewVouchers(frmvchimport& form, const ServiceObject& host, VoucherReview& review)
    : form_(form), host_(host), review_(review) {
  form.vsfi.setColumns({{.heading = "Take", .width = 5, .tick = true},
                        {.heading = "Row", .align = Align::right, .width = 6},
                        {.heading = "Voucher", .width = 9},
                        {.heading = "Date", .width = 11},
                        {.heading = "Voucher Is", .width = 12},
                        {.heading = "Ledger", .width = 20, .stretch = true},
                        {.heading = "State", .width = 11},
                        {.heading = "Group", .width = 16},
                        {.heading = "Debit", .align = Align::right, .width = 13},
                        {.heading = "Credit", .align = Align::right, .width = 13},
                        {.heading = "Narration", .width = 16, .stretch = true},
                        {.heading = "Remark", .width = 28, .stretch = true}});
  form.vsfi.AfterEdit = [this](int row, int) { tickChanged(row); };
  // The lines of a voucher belong together.
  form.vsfi.AfterSort = [this] {
    form_.vsfi.clearSort();
    show();
  };
  form.vsft.setColumns({{.heading = "Totals", .width = 20},
                        {.heading = "Vouchers", .align = Align::right, .width = 12},
                        {.heading = "Debit", .align = Align::right, .width = 16},
                        {.heading = "Credit", .align = Align::right, .width = 16}});
  form.vsft.setFixedRows(2);
  form.vsft.tabStop = false;
  for (const char* shown : {"All vouchers", "To be entered", "Questions", "Left out"}) {
    form.cboshow.addItem(shown);
  }
  form.cboshow.setChosen(1);
  form.cboshow.Click = [this] { form_.reviewed(); };
}

const VoucherRow& ReviewVouchers::rowAt(int row) const {
  return review_.rows().at(listed_.at(static_cast<std::size_t>(form_.vsfi.rowId(row)) - 1));
}

const VoucherRow* ReviewVouchers::current() const {
  return form_.vsfi.current() == 0 ? nullptr : &rowAt(form_.vsfi.current());
}

// --- listing ------------------------------------------------------------------------------------

// A voucher is shown as a whole.
bool ReviewVouchers::isListed(const VoucherRow& row) const {
  const ReviewedVoucher& voucher = *row.voucher;
  switch (static_cast<Shown>(std::max(0, form_.cboshow.chosen() - 1))) {
    case Shown::entered:
      return voucher.taken;
    case Shown::questions:
      return !voucher.voucher.reason.empty();
    case Shown::leftOut:
      return !voucher.taken;
    default:
      return true;
  }
}

void ReviewVouchers::list() {
  listed_.clear();
  const std::vector<VoucherRow>& rows = review_.rows();
  for (std::size_t at = 0; at < rows.size(); ++at) {
    if (isListed(rows[at])) listed_.push_back(at);
  }
  form_.vsfi.setRows(static_cast<int>(listed_.size()), [this](int id) {
    return cellsOf(review_.rows().at(listed_.at(static_cast<std::size_t>(id) - 1)));
  });
  for (int row = 1; row <= form_.vsfi.rows(); ++row) {
    form_.vsfi.setRowEmphasised(row, rowAt(row).isFirst());
  }
  showTotals();
}

void ReviewVouchers::show() {
  const int place = form_.vsfi.current();
  list();
  form_.vsfi.setCurrent(std::min(place, form_.vsfi.rows()));
}

void ReviewVouchers::begin() {
  form_.cboshow.setChosen(1);
  list();
  if (!nextQuestion()) form_.vsfi.setCurrent(std::min(1, form_.vsfi.rows()));
}

bool ReviewVouchers::nextQuestion() {
  const int rows = form_.vsfi.rows();
  for (int step = 1; step <= rows; ++step) {
    const int row = (form_.vsfi.current() + step - 1) % rows + 1;
    if (rowAt(row).question.empty()) continue;
    form_.vsfi.setCurrent(row);
    return true;
  }
  return false;
}

// --- what a choice is about ---------------------------------------------------------------------

std::vector<int> ReviewVouchers::ofSameLedger() const {
  const VoucherRow* current = this->current();
  std::vector<int> numbers;
  if (!current || !current->line) return numbers;
  const std::string key = nameKey(current->line->ledger);
  for (const VoucherRow& row : review_.rows()) {
    const bool same = row.line && row.line->ledgerState == current->line->ledgerState &&
                      nameKey(row.line->ledger) == key;
    if (same) numbers.push_back(row.number());
  }
  return numbers;
}

std::vector<int> ReviewVouchers::toGroup() const {
  const VoucherRow* current = this->current();
  std::vector<int> numbers;
  if (!current || !current->line) return numbers;
  const std::string key = nameKey(current->line->ledger);
  for (const VoucherRow& row : review_.rows()) {
    const bool lacks =
        row.line && row.line->groupState == GroupState::missing && nameKey(row.line->ledger) == key;
    if (lacks || row.line == current->line) numbers.push_back(row.number());
  }
  return numbers;
}

std::vector<int> ReviewVouchers::withoutGroup() const {
  std::vector<int> numbers;
  for (const std::size_t at : listed_) {
    const VoucherRow& row = review_.rows()[at];
    if (row.line && row.line->groupState == GroupState::missing) numbers.push_back(row.number());
  }
  return numbers;
}

void ReviewVouchers::tickChanged(int row) {
  review_.take(*rowAt(row).voucher, form_.vsfi.ticked(row));
  form_.reviewed();
}

// --- what is shown ------------------------------------------------------------------------------

std::string ReviewVouchers::shownAmount(Money amount) const {
  return amount.isZero() ? std::string() : groupedAmount(host_, amount);
}

std::vector<std::string> ReviewVouchers::cellsOf(const VoucherRow& row) const {
  const ImportedVoucher& voucher = row.voucher->voucher;
  const bool first = row.isFirst();
  std::vector<std::string> cells{row.voucher->taken ? "1" : "", std::to_string(row.number()),
                                 first ? voucher.number : "", first ? voucher.date : "",
                                 first ? nameOf(*row.voucher) : ""};
  if (row.line) {
    const ImportedVoucherLine& line = *row.line;
    const Money amount = line.line.amount;
    const bool isNew = line.ledgerState == LedgerState::isNew;
    cells.insert(cells.end(),
                 {line.ledger, isNew ? "New ledger" : std::string(nameOf(line.ledgerState)),
                  line.group, shownAmount(line.line.debit ? amount : Money()),
                  shownAmount(line.line.debit ? Money() : amount)});
  } else {
    cells.insert(cells.end(), 5, "");
  }
  std::string remark = row.question;
  if (remark.empty() && row.line && row.line->ledgerState == LedgerState::isNew &&
      row.line->nearest.id != 0) {
    remark = "Known is \"" + row.line->nearest.name + "\".";
  }
  cells.insert(cells.end(), {first ? voucher.narration : "", remark});
  return cells;
}

void ReviewVouchers::showTotals() {
  struct {
    const char* what;
    int vouchers;
    VoucherTotals amounts;
  } totals[] = {{"Source", 0, {}}, {"To be entered", 0, {}}};
  for (const ReviewedVoucher& each : review_.vouchers()) {
    const VoucherTotals of = each.voucher.totals();
    for (auto& total : totals) {
      if (&total == &totals[1] && !each.taken) continue;
      ++total.vouchers;
      total.amounts.debit += of.debit;
      total.amounts.credit += of.credit;
    }
  }
  form_.vsft.clearRows();
  for (const auto& total : totals) {
    form_.vsft.addRow({total.what, std::to_string(total.vouchers),
                       groupedAmount(host_, total.amounts.debit),
                       groupedAmount(host_, total.amounts.credit)});
  }
}

}  // namespace quillet
