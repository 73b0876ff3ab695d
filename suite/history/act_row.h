// One row of the log of acts.
#pragma once

#include <string>
#include <vector>

#include "data/recordset.h"
#include "suite/database.h"
#include "suite/history/instant.h"

namespace quillet::suite {

// A person as others know them: "meera" for the account "meera@%" of a server.
std::string shownPerson(const std::string& account);

struct ActRow {
  Instant at = 0;
  std::string station;
  std::string person;
  std::string form;
  std::string command;
  std::string client;
  std::string secondDate;
  std::string reason;
  std::string tables;  // those it changed, in small letters: "jrnl_1,tab_1"
  Instant takesBack = 0;
  std::string digest;  // of its statements
  std::string hash;

  // Each of those tables.
  std::vector<std::string> changedTables() const;

  // The columns that from() reads, for a select.
  static constexpr const char* columns =
      "At,Station,Person,Form,Command,Client,Yr,Reason,Tables,TakesBack,Digest,Hash";
  static ActRow from(const Recordset& rows);

  // Over this row and the hash of the row before.
  std::string hashAfter(const std::string& before) const;
  std::string insertion(const Database& database, const std::string& withHash) const;
};

}  // namespace quillet::suite
