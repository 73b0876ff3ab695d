// Enters many lines into a trial balance, all of them or none, by the steps of the editor's save:
// what stands for a ledger and group is taken out and one line is written.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "books/trial_balance.h"
#include "data/money.h"

namespace quillet {

// What is to stand for a ledger and group.
struct ImportedLine {
  long partId = 0;     // 0: the ledger of that name, which is made when there is none
  std::string ledger;  // its name, where it has no id yet
  long allId = 0;
  Money balance;      // debit positive; zero takes out what stands
  long zeroSide = 0;  // the side on which a line stands even at zero; 0: none does
};

enum class ImportEnd {
  done,
  stopped,     // by a person
  booksOther,  // other lines stand by now than those that were compared with
  yearGone,
};

class LineImport {
 public:
  LineImport(ServiceObject& host, const ClientTable& books) : host_(host), year_(host, books) {}

  // `seen` are the client's lines that `lines` were made from. Tells the host's progress of each
  // line, and asks it whether to stop. Nothing is stored unless it ends with `done`; it throws when
  // a statement fails, a ledger cannot be made or told from another, a ledger and group comes
  // twice, or the year does not hold afterwards what it was to hold. What `besides` writes is
  // stored with the lines.
  ImportEnd run(const std::vector<ImportedLine>& lines, const std::vector<Line>& seen,
                const std::function<void()>& besides = {});
  // The same within a part of an act that the caller begins, and keeps where it ends with `done`.
  ImportEnd enter(const std::vector<ImportedLine>& lines, const std::vector<Line>& seen);

 private:
  bool enterAll(const std::vector<ImportedLine>& lines);
  void replace(LedgerGroup pair, const ImportedLine& line);
  void lookUpLedgers(const std::vector<ImportedLine>& lines, std::size_t from);
  LedgerGroup pairOf(const ImportedLine& line);

  ServiceObject& host_;
  TrialBalance year_;
  std::vector<Line> standing_;
  std::multimap<LedgerGroup, Line> byPair_;  // the same
  long serial_ = 0;
};

}  // namespace quillet
