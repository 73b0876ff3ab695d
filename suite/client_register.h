// The suite's register of clients: Main_Info1 holds every client and a company's name, owner1 a
// person's name in its parts, TempClTbl the list that the client grid shows.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "suite/database.h"
#include "suite/unit_of_work.h"

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

  bool operator==(const Client&) const = default;
  bool isPerson() const { return !first.empty() || !middle.empty() || !last.empty(); }
  // The name in full, a person's parts joined with single blanks.
  std::string displayName() const;
};

// What is wrong with a client, and what to do about it.
class ClientRefused : public std::runtime_error {
 public:
  using Field = std::string Client::*;
  ClientRefused(Field field, const std::string& what) : std::runtime_error(what), field_(field) {}
  Field field() const { return field_; }

 private:
  Field field_;
};

// Each of these is done as a whole or not at all. Refused, with nothing written, are: no code, a
// code that exists (compared without regard to case) or that the suite needs itself, no name, a
// text that is too long, a date that is none.
void addClient(UnitOfWork& unit, const Client& client);
void addClient(Database& database, const Client& client);

// The client with that code, without its password.
std::optional<Client> findClient(UnitOfWork& unit, const std::string& code);

// The code that a client of this former one has by now; "" where it is gone, or was never there,
// or where no history is kept.
std::string codeSince(UnitOfWork& unit, const std::string& formerCode);

// What hangs on a client: the years registered, as "2008-2009", else the tables of the numbers up
// to `tableCount` in which lines stand that no registered year has.
struct ClientBooks {
  std::vector<std::string> years;
  std::vector<std::string> tables;
  // What keeps the client's code, "" when nothing does.
  std::string text() const;
};
ClientBooks booksOf(UnitOfWork& unit, const std::string& code, long tableCount);

// Writes the client in place of the one with that code; another code only where no books hang on
// it. Without a password the one that is set stays, an empty one removes it.
void alterClient(UnitOfWork& unit, const std::string& code, const Client& client,
                 const std::optional<std::string>& password, long tableCount);
// With password, mappings and miscellaneous values. Refused while books hang on it.
void removeClient(UnitOfWork& unit, const std::string& code, long tableCount);

// Makes TempClTbl anew when it does not hold as many clients as the register; done at start-up.
void completeClientList(Database& database);

}  // namespace quillet::suite
