// One client's rows in the table of one year: the trial balance. Every statement on them stands
// here; the flush after a change is the caller's where more has to be done in between.
#pragma once

#include <map>
#include <vector>

#include "books/lines.h"
#include "books/unposted_changes.h"
#include "data/money.h"
#include "data/names.h"
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

  // --- reading; lines come in the order of their serial numbers

  std::vector<Line> lines();
  std::vector<Line> linesOf(LedgerGroup pair, Spelling spelling);
  std::vector<Line> linesOfGroup(long allId, long side);
  // The group of the ledger's first line, 0 when it has none.
  long groupOf(long partId);
  // The account groups that the lines use, ordered by name.
  std::vector<NamedId> groups();
  long nextSerial();

  // --- changes

  // Not flushed: from here on the line is stored, even if the flush fails.
  void insert(const Line& line);
  // A line is picked out of the client's lines as they were read last. Not flushed.
  void takeOut(const Line& line, const std::vector<Line>& lines);
  // The same, flushed.
  void remove(const Line& line, const std::vector<Line>& lines);
  void moveTo(long allId, const Line& line, const std::vector<Line>& lines);
  // Copies the client's lines of another year with their serial numbers.
  void copyFrom(const TrialBalance& other);
  // Takes out the pair's rows, as the journal spells it. Not flushed.
  void removePair(LedgerGroup pair);

 private:
  Sql rowOf(const Line& line, const std::vector<Line>& lines) const;
  Sql ofPair(LedgerGroup pair) const;

  ServiceObject& host_;
  ClientTable books_;
  Sql table_;
  Sql client_;
};

// What stands against each pair of ledger and group that has any.
using PairBalances = std::map<LedgerGroup, Money>;
PairBalances balancesOf(const std::vector<Line>& lines);

// The insert that names its columns, as what fills a whole year spells it; `client` is quoted.
Sql lineInsert(const Sql& table, const Sql& client, const Line& line);

}  // namespace quillet
