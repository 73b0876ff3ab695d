// One client's rows in the table of one year: the trial balance. Every statement on them stands
// here; the flush after a change is the caller's where more has to be done in between.
#pragma once

#include <vector>

#include "books/lines.h"
#include "books/unposted_changes.h"
#include "data/money.h"
#include "ports/ports.h"

namespace quillet {

class TrialBalance {
 public:
  // Editor and journal spell the statements on a pair differently, and others rely on both.
  enum class Spelling { editor, journal };

  // Throws when the table's name is none.
  TrialBalance(ServiceObject& host, const ClientTable& books);

  const ClientTable& books() const { return books_; }
  const Sql& table() const { return table_; }
  // code_no as it stands between quotes.
  const Sql& client() const { return client_; }

  // In the order of their serial numbers.
  std::vector<Line> lines();
  std::vector<Line> linesOf(LedgerGroup pair, Spelling spelling);
  long nextSerial();
  void insert(const Line& line);

 private:
  ServiceObject& host_;
  ClientTable books_;
  Sql table_;
  Sql client_;
};

}  // namespace quillet
