// Passwords of user rights and of clients, kept as argon2id hashes in the database. What has no
// password is open to everybody.
#pragma once

#include <set>
#include <string>

#include "suite/database.h"
#include "suite/unit_of_work.h"

namespace quillet::suite {

enum class PasswordKind { right, client };

class Passwords {
 public:
  Passwords(Database& database, Dialogs& dialogs) : database_(database), dialogs_(dialogs) {}

  // An empty password removes it.
  static void set(UnitOfWork& unit, PasswordKind kind, const std::string& code,
                  const std::string& password);
  static void set(Database& database, PasswordKind kind, const std::string& code,
                  const std::string& password);
  static bool isSet(UnitOfWork& unit, PasswordKind kind, const std::string& code);

  // True when there is none, or when a person types it within three tries. Cancelling is false.
  bool ask(PasswordKind kind, const std::string& code);
  // The next one of that kind is refused without a question.
  void refuseNext(PasswordKind kind) { refused_.insert(kind); }

 private:
  Database& database_;
  Dialogs& dialogs_;
  std::set<PasswordKind> refused_;
};

}  // namespace quillet::suite
