// Enters many vouchers into a journal, all of them or none, by the steps of the journal's own save:
// each is stored and posted.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "books/line_import.h"
#include "books/unposted_changes.h"
#include "books/voucher_book.h"
#include "books/voucher_contents.h"

namespace quillet {

struct VoucherToEnter {
  Voucher voucher;
  // For each of its lines the name of its ledger, for those whose pair has none yet.
  std::vector<std::string> ledgers;
};

class VoucherImport {
 public:
  // The year's first and last day, dd/mm/yyyy.
  VoucherImport(ServiceObject& host, UnpostedChanges& unposted, const ClientTable& books,
                std::string from, std::string to)
      : host_(host),
        unposted_(unposted),
        books_(books),
        from_(std::move(from)),
        to_(std::move(to)) {}

  // `seen` are the year's vouchers that those to enter were compared with. Tells the host's
  // progress of each voucher, and asks it whether to stop. Nothing is stored unless it ends with
  // `done`; it throws when a statement fails, a ledger cannot be made, a voucher is not whole, or
  // journal and trial balance do not hold afterwards what they were to hold.
  // What `besides` writes is stored with the vouchers.
  ImportEnd run(const std::vector<VoucherToEnter>& vouchers, const VoucherContents& seen,
                const std::function<void()>& besides = {});

 private:
  struct Expected {
    VoucherContents vouchers;
    PairBalances balances;
  };
  ImportEnd enterAll(const std::vector<VoucherToEnter>& vouchers, const VoucherContents& seen);
  Voucher withLedgers(const VoucherToEnter& entered);
  void makeLedgers(const std::vector<VoucherToEnter>& vouchers);
  void check(const Voucher& voucher) const;
  void verify(Expected expected);

  ServiceObject& host_;
  UnpostedChanges& unposted_;
  ClientTable books_;
  std::string from_;
  std::string to_;
  std::map<std::string, long> made_;  // ledgers by the name that came
};

}  // namespace quillet
