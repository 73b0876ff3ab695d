// Statements outside of a form's acts that count together or not at all.
#pragma once

#include "suite/database.h"

namespace quillet::suite {

class Transaction {
 public:
  explicit Transaction(Database& database) : database_(database) {
    database_.execute("start transaction");
  }
  // Takes back what was not committed.
  ~Transaction() {
    if (committed_) return;
    try {
      database_.execute("rollback");
    } catch (const std::exception&) {
      // The connection is gone, and what it had not committed with it.
    }
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void commit() {
    database_.execute("commit");
    committed_ = true;
  }

 private:
  Database& database_;
  bool committed_ = false;
};

}  // namespace quillet::suite
