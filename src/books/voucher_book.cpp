#include "books/voucher_book.h"

namespace quillet {

VoucherBook::VoucherBook(ServiceObject& host, UnpostedChanges& unposted, const ClientTable& books)
    : journal_(host, books), posting_(host, unposted, books) {
  posting_.Changed = [this](LedgerGroup pair, Money balance) { balances_.set(pair, balance); };
}

void VoucherBook::begin() {
  id_ = 0;
  stored_.clear();
}

Voucher VoucherBook::open(long vid) {
  begin();
  Voucher voucher = journal_.read(vid, Journal::Reading::entry);
  for (VoucherLine& line : voucher.lines) line.pair = posting_.pairInTable(line.pair);
  for (const VoucherLine& line : voucher.lines) stored_.add(line.pair, line.balance());
  if (!voucher.lines.empty()) id_ = vid;
  return voucher;
}

Voucher VoucherBook::resume(long vid) {
  try {
    Voucher voucher = open(vid);
    id_ = vid;
    return voucher;
  } catch (...) {
    id_ = vid;
    throw;
  }
}

// What a failure left to be posted counts as posted.
Money VoucherBook::balanceWith(const PairAmounts& typed, LedgerGroup pair) const {
  const std::optional<Money> posted = balances_.find(pair);
  const Money missing = posting_.missing(pair);
  if (!posted && missing.isZero()) return {};
  return posted.value_or(Money()) + missing - stored_.of(pair) + typed.of(pair);
}

void VoucherBook::store(const Voucher& voucher) {
  long vid = id_;
  if (vid == 0) {
    posting_.postMissing();
    vid = journal_.nextId();
  }
  int number = 0;
  for (const VoucherLine& line : voucher.lines) {
    journal_.insertLine(vid, ++number, voucher, line);
    posting_.journalChanged(line.pair, line.balance());
    stored_.add(line.pair, line.balance());
    // From its first line on there is such a voucher, for the next attempt to replace.
    id_ = vid;
    journal_.flush();
  }
}

void VoucherBook::post(long vid) {
  for (const VoucherLine& line : journal_.read(vid, Journal::Reading::posting).lines) {
    posting_.post(line.pair, line.balance());
  }
}

bool VoucherBook::remove(long vid) {
  posting_.postMissing();
  const Voucher voucher = journal_.read(vid, Journal::Reading::posting);
  if (voucher.shared) return false;
  for (const VoucherLine& line : voucher.lines) posting_.post(line.pair, -line.balance());
  journal_.remove(vid);
  for (const VoucherLine& line : voucher.lines) {
    posting_.journalChanged(line.pair, -line.balance());
  }
  if (vid == id_) stored_.clear();
  journal_.flush();
  return true;
}

}  // namespace quillet
