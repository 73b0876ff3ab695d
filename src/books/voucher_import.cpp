#include "books/voucher_import.h"

#include <stdexcept>

#include "books/all_or_nothing.h"
#include "books/ledger_or_new.h"
#include "books/registry.h"
#include "data/dates.h"

namespace quillet {

ImportEnd VoucherImport::run(const std::vector<VoucherToEnter>& vouchers,
                             const VoucherContents& seen, const std::function<void()>& besides) {
  // What the part takes back was noted as posted.
  const UnpostedChanges before = unposted_;
  try {
    AllOrNothing part(host_);
    const ImportEnd end = enterAll(vouchers, seen);
    if (end == ImportEnd::done) {
      if (besides) besides();
      part.keep();
    } else {
      unposted_ = before;
    }
    return end;
  } catch (...) {
    unposted_ = before;
    throw;
  }
}

ImportEnd VoucherImport::enterAll(const std::vector<VoucherToEnter>& vouchers,
                                  const VoucherContents& seen) {
  if (!Registry(host_).has(books_.table, books_.client)) return ImportEnd::yearGone;
  if (readVoucherContents(host_, books_, from_, to_) != seen) return ImportEnd::booksOther;
  VoucherBook book(host_, unposted_, books_);
  book.posting().postMissing();
  Expected expected{seen, balancesOf(TrialBalance(host_, books_).lines())};
  makeLedgers(vouchers);
  host_.objProgress().Max(static_cast<long>(vouchers.size()));
  for (const VoucherToEnter& each : vouchers) {
    Voucher voucher = withLedgers(each);
    check(voucher);
    book.begin();
    book.store(voucher);
    book.post(book.id());
    for (VoucherLine& line : voucher.lines) {
      line.pair = book.posting().pairInTable(line.pair);
      expected.balances[line.pair] += line.balance();
    }
    ++expected.vouchers[contentOf(voucher)];
    host_.objProgress().update_pg();
    if (host_.objProgress().stopped()) return ImportEnd::stopped;
  }
  verify(std::move(expected));
  return ImportEnd::done;
}

void VoucherImport::makeLedgers(const std::vector<VoucherToEnter>& vouchers) {
  made_.clear();
  std::vector<std::string> names;
  for (const VoucherToEnter& each : vouchers) {
    for (std::size_t i = 0; i < each.voucher.lines.size(); ++i) {
      if (each.voucher.lines[i].pair.partId != 0) continue;
      if (made_.try_emplace(each.ledgers.at(i)).second) names.push_back(each.ledgers[i]);
    }
  }
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i % ledgersAtOnce == 0) {
      const auto end = std::min(names.size(), i + ledgersAtOnce);
      lookUpLedgers(host_, {names.begin() + static_cast<std::ptrdiff_t>(i),
                            names.begin() + static_cast<std::ptrdiff_t>(end)});
    }
    made_[names[i]] = ledgerOrNew(host_, names[i]);
  }
}

Voucher VoucherImport::withLedgers(const VoucherToEnter& entered) {
  Voucher voucher = entered.voucher;
  for (std::size_t i = 0; i < voucher.lines.size(); ++i) {
    long& partId = voucher.lines[i].pair.partId;
    if (partId == 0) partId = made_.at(entered.ledgers.at(i));
  }
  return voucher;
}

void VoucherImport::check(const Voucher& voucher) const {
  const bool inYear = isDate(voucher.date) && compareDates(voucher.date, from_) >= 0 &&
                      compareDates(voucher.date, to_) <= 0;
  if (!inYear || voucher.lines.empty() || faultOf(voucher.lines)) {
    throw std::runtime_error("The voucher of " + voucher.date + " is not whole.");
  }
}

void VoucherImport::verify(Expected expected) {
  std::erase_if(expected.balances, [](const auto& each) { return each.second.isZero(); });
  if (readVoucherContents(host_, books_, from_, to_) != expected.vouchers) {
    throw std::runtime_error("The journal does not hold what was to be imported.");
  }
  if (balancesOf(TrialBalance(host_, books_).lines()) != expected.balances) {
    throw std::runtime_error("The trial balance does not hold what the vouchers post.");
  }
}

}  // namespace quillet
