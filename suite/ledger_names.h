// Names and ids of the ledgers. A name by its id costs one query for the whole list, whatever the
// number of look-ups; a statement that touches the ledger table makes the next look-up read anew.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "data/names.h"
#include "suite/unit_of_work.h"

namespace quillet::suite {

class LedgerNames {
 public:
  explicit LedgerNames(UnitOfWork& unit) : unit_(unit) {}

  // "" when there is none.
  std::string nameOf(long id);
  // The id of that name, else of a name that the database takes for the same. When there is
  // neither, the ledger is created, if asked for, with the highest id that there ever was plus
  // one. 0 when that fails.
  long idOf(const std::string& name, bool create);
  // Asks for all of these at once on a server, where the answers hold as long as this station has
  // its turn. Nothing elsewhere.
  void lookUp(const std::vector<std::string>& names);
  // To be called with every statement that the module executes.
  void statementSent(const std::string& sql);
  // The next look-up reads anew.
  void forget() { loaded_ = lookedUp_ = false; }

 private:
  std::optional<NamedId> find(const std::string& name, const std::string& cleaned);
  long create(const std::string& name);
  long highestId();
  bool hasTurn() const;
  void load();
  std::optional<NamedId> findAlike(const std::string& name);

  UnitOfWork& unit_;
  bool loaded_ = false;
  unsigned long loadedIn_ = 0;  // the transaction that they were read in, 0 for none
  std::unordered_map<long, std::string> names_;
  // The lowest id of each name; made when it is first asked for.
  std::unordered_map<std::string, long> byKey_;
  bool lookedUp_ = false;
  unsigned long lookedUpIn_ = 0;  // the transaction
  std::unordered_map<std::string, std::optional<NamedId>> answers_;
  long highest_ = 0;  // the last id that was given in it, 0 when it is not known
};

}  // namespace quillet::suite
