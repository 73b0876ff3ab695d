// The adjustment vouchers of one client's year: stored in its journal, posted into its trial
// balance, and taken out of both again. When a statement fails, those sent before it stay applied,
// and what is missing then stands in the unposted changes.
//
// One voucher may be in work: it is typed for the first time or anew, and the balances count what
// is typed in place of what the journal holds of it.
#pragma once

#include <utility>

#include "books/balance_list.h"
#include "books/journal.h"
#include "books/journal_lists.h"
#include "books/posting.h"

namespace quillet {

class VoucherBook {
 public:
  VoucherBook(ServiceObject& host, UnpostedChanges& unposted, const ClientTable& books);
  VoucherBook(const VoucherBook&) = delete;
  VoucherBook& operator=(const VoucherBook&) = delete;

  const ClientTable& books() const { return posting_.books(); }
  const Journal& journal() const { return journal_; }
  Posting& posting() { return posting_; }
  const Posting& posting() const { return posting_; }

  // Keeps the balances from now on; they follow what is posted.
  void keepBalances(BalanceList balances) { balances_ = std::move(balances); }
  void addLedger(long partId) { balances_.set({partId, 0}, Money()); }
  // The group that a line of the ledger is likely to go under; 0 when none is known.
  long firstGroup(long partId) const { return balances_.firstGroup(partId); }

  // --- the voucher in work
  // A new one.
  void begin();
  // A stored one; without lines when it is not there. Lines of merged groups stand under those that
  // took their place.
  Voucher open(long vid);
  // The stored one of that number is in work again; it stays so when it cannot be read.
  Voucher resume(long vid);
  // Its number, 0 until its first line is stored.
  long id() const { return id_; }
  // Whether the journal holds any line of it.
  bool isStored() const { return !stored_.empty(); }
  // The balance of a pair with those lines on it; 0 when the pair is not known.
  Money balanceWith(const PairAmounts& typed, LedgerGroup pair) const;
  // Writes its lines into the journal, under a new number if it has none.
  void store(const Voucher& voucher);

  // Posts the voucher's lines.
  void post(long vid);
  // False when the number is another client's, too, whose voucher would go with it.
  bool remove(long vid);

 private:
  Journal journal_;
  Posting posting_;
  BalanceList balances_;
  long id_ = 0;
  PairAmounts stored_;  // what the journal holds of the voucher in work
};

}  // namespace quillet
