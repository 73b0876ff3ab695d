#include "review/voucher_review.h"

#include <algorithm>

#include "data/names.h"
#include "data/text.h"

namespace quillet {
namespace {

// What the journal would hold of it.
Voucher voucherOf(const ImportedVoucher& imported) {
  Voucher voucher{imported.date, imported.narration, {}};
  for (const ImportedVoucherLine& line : imported.lines) voucher.lines.push_back(line.line);
  return voucher;
}

// A reason names its row.
bool liesIn(const std::string& reason, int row) {
  return reason.starts_with("Row " + std::to_string(row) + ':');
}

}  // namespace

std::string nameOf(const ReviewedVoucher& voucher) {
  if (!voucher.voucher.reason.empty()) return "Stays out";
  if (voucher.stands) return "Already there";
  return voucher.taken ? "New" : "Left out";
}

void VoucherReview::setJournal(VoucherContents standing, YearDates year) {
  standing_ = std::move(standing);
  year_ = std::move(year);
}

std::string VoucherReview::problem() const {
  if (!source_.mapping().hasVouchers()) {
    return "The columns of the date and of the voucher's number are not chosen.";
  }
  return problemOf(source_.mapping());
}

void VoucherReview::review() {
  rows_.clear();
  vouchers_.clear();
  if (!source_.sheet() || !problem().empty()) return;
  read();
  if (askUsualGroups()) read();
  compare();
  list();
}

void VoucherReview::read() {
  const KnownBooks& books = source_.books().known;
  vouchers_.clear();
  for (ImportedVoucher& each :
       readVouchers(*source_.sheet(), source_.mapping(), books, year_, source_.choices())) {
    for (ImportedVoucherLine& line : each.lines) {
      // Written as the master has it, by whatever name it was remembered.
      const long partId = line.line.pair.partId;
      if (partId != 0) line.ledger = books.ledgerNames.at(partId);
    }
    if (each.reason.empty() && lengthOf(each.narration) > longestNarration) {
      each.reason =
          "Row " + std::to_string(each.row) + ": A narration holds at most 16,000 characters.";
    }
    vouchers_.push_back({std::move(each)});
  }
}

bool VoucherReview::askUsualGroups() {
  std::vector<long> unknown;
  for (const ReviewedVoucher& each : vouchers_) {
    for (const ImportedVoucherLine& line : each.voucher.lines) {
      const LedgerGroup pair = line.line.pair;
      if (pair.partId != 0 && pair.allId == 0) unknown.push_back(pair.partId);
    }
  }
  return source_.learnUsualGroups(std::move(unknown));
}

// A person's tick stands at the voucher's first row.
std::optional<bool> VoucherReview::chosen(const ImportedVoucher& voucher) const {
  const auto choice = source_.choices().find(voucher.row);
  return choice == source_.choices().end() ? std::nullopt : choice->second.taken;
}

// Each voucher of the journal explains one of the source.
void VoucherReview::compare() {
  VoucherContents left = standing_;
  for (ReviewedVoucher& each : vouchers_) {
    if (!each.voucher.reason.empty()) continue;
    const auto found = left.find(contentOf(voucherOf(each.voucher)));
    each.stands = found != left.end() && found->second > 0;
    if (each.stands) --found->second;
    each.taken = chosen(each.voucher).value_or(!each.stands);
  }
}

void VoucherReview::list() {
  for (const ReviewedVoucher& each : vouchers_) {
    const std::size_t first = rows_.size();
    for (const ImportedVoucherLine& line : each.voucher.lines) rows_.push_back({&each, &line, {}});
    if (rows_.size() == first) rows_.push_back({&each, nullptr, {}});
    const std::string& reason = each.voucher.reason;
    if (reason.empty()) continue;
    const auto begin = rows_.begin() + static_cast<std::ptrdiff_t>(first);
    auto at = std::find_if(begin, rows_.end(),
                           [&](const VoucherRow& row) { return liesIn(reason, row.number()); });
    (at == rows_.end() ? begin : at)->question = reason;
  }
}

void VoucherReview::take(const ReviewedVoucher& voucher, bool taken) {
  source_.choose({voucher.voucher.row}, [&](RowChoice& choice) { choice.taken = taken; });
}

std::vector<VoucherToEnter> VoucherReview::toEnter() const {
  std::vector<VoucherToEnter> vouchers;
  for (const ReviewedVoucher& each : vouchers_) {
    if (!each.taken) continue;
    VoucherToEnter entered{voucherOf(each.voucher), {}};
    for (const ImportedVoucherLine& line : each.voucher.lines) {
      entered.ledgers.push_back(line.ledger);
    }
    vouchers.push_back(std::move(entered));
  }
  return vouchers;
}

ImportMemory::Additions VoucherReview::additions(const std::string& note) const {
  ImportMemory::Additions additions = source_.additions(note);
  for (const ReviewedVoucher& each : vouchers_) {
    for (const ImportedVoucherLine& line : each.voucher.lines) {
      const auto choice = source_.choices().find(line.row);
      if (choice == source_.choices().end() || !choice->second.group) continue;
      additions.groups.emplace_back(nameKey(line.ledger), *choice->second.group);
    }
  }
  return additions;
}

}  // namespace quillet
