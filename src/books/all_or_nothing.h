// Several statements of the books that are stored together or not at all.
#pragma once

#include "data/transaction.h"
#include "ports/ports.h"

namespace quillet {

class AllOrNothing {
 public:
  explicit AllOrNothing(ServiceObject& host) : statements_{host}, transaction_(statements_) {}

  // What was not kept is taken back.
  void keep() { transaction_.commit(); }

 private:
  struct Statements {
    ServiceObject& host;
    void execute(const Sql& sql) { host.ConQuery(sql); }
  };

  Statements statements_;
  Transaction<Statements> transaction_;
};

}  // namespace quillet
