// Statements that count together or not at all. Within an act they are a part of the act's own
// transaction.
#pragma once

#include <exception>

namespace quillet {

// `Executor` sends a statement with execute().
template <class Executor>
class Transaction {
 public:
  explicit Transaction(Executor& executor) : executor_(executor) {
    executor_.execute("start transaction");
  }
  // Takes back what was not committed.
  ~Transaction() {
    if (committed_) return;
    try {
      executor_.execute("rollback");
    } catch (const std::exception&) {
      // The connection is gone, and what it had not committed with it; or the whole act was taken
      // back.
    }
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void commit() {
    executor_.execute("commit");
    committed_ = true;
  }

 private:
  Executor& executor_;
  bool committed_ = false;
};

}  // namespace quillet
