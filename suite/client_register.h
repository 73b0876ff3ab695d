// The suite's register of clients: Main_Info1 holds every client and a company's name, owner1 a
// person's name in its parts, TempClTbl the list that the client grid shows.
#pragma once

#include <string>
#include <vector>

#include "suite/database.h"

namespace quillet::suite {

struct Client {
  std::string code;
  std::string name;                 // a company's; ignored when a part below is given
  std::string first, middle, last;  // a person's
  std::string status;
  std::string father;
  std::string born;  // birth or incorporation, in any form that people write
  std::string address;
  std::string groupCode, groupName;
  std::string company;
  std::string password;

  bool isPerson() const { return !first.empty() || !middle.empty() || !last.empty(); }
  // The name in full, a person's parts joined with single blanks.
  std::string displayName() const;
};

// Throws std::runtime_error that says what is wrong: no code, a code that exists (compared without
// regard to case) or that the suite needs itself, no name, a text that is too long, a date that is
// none. Nothing is written then.
void addClient(Database& database, const Client& client);

// Makes TempClTbl anew when it does not hold as many clients as the register; done at start-up.
void completeClientList(Database& database);

}  // namespace quillet::suite
