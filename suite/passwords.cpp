#include "suite/passwords.h"

#include <sodium.h>

#include <array>
#include <stdexcept>

namespace quillet::suite {
namespace {

constexpr int tries = 3;

std::string nameOf(PasswordKind kind) { return kind == PasswordKind::client ? "client" : "right"; }

template <class Executor>
std::string condition(const Executor& executor, PasswordKind kind, const std::string& code) {
  return " where Kind='" + nameOf(kind) + "' and Code='" + executor.escape(code) + '\'';
}

void prepareLibrary() {
  if (sodium_init() < 0) throw std::runtime_error("The password library did not start.");
}

std::string hashOf(const std::string& password) {
  prepareLibrary();
  std::array<char, crypto_pwhash_STRBYTES> hash{};
  if (crypto_pwhash_str(hash.data(), password.data(), password.size(),
                        crypto_pwhash_OPSLIMIT_INTERACTIVE,
                        crypto_pwhash_MEMLIMIT_INTERACTIVE) != 0) {
    throw std::runtime_error("There is not enough memory to set a password.");
  }
  return hash.data();
}

bool fits(const std::string& password, const std::string& hash) {
  prepareLibrary();
  return crypto_pwhash_str_verify(hash.c_str(), password.data(), password.size()) == 0;
}

std::string promptFor(PasswordKind kind, const std::string& code, int tried) {
  std::string prompt = kind == PasswordKind::client ? "Password of client " + code : "Password";
  if (tried == 0) return prompt;
  return "That password is not right. " + prompt;
}

}  // namespace

void Passwords::set(UnitOfWork& unit, PasswordKind kind, const std::string& code,
                    const std::string& password) {
  const std::string there = condition(unit, kind, code);
  if (password.empty()) return unit.execute("delete from SuitePassword" + there);
  const std::string hash = unit.escape(hashOf(password));
  // One statement each: a kill leaves the old password or the new one.
  if (isSet(unit, kind, code)) {
    unit.execute("update SuitePassword set Hash='" + hash + '\'' + there);
  } else {
    unit.execute("insert into SuitePassword(Kind,Code,Hash) values('" + nameOf(kind) + "','" +
                 unit.escape(code) + "','" + hash + "')");
  }
}

void Passwords::set(Database& database, PasswordKind kind, const std::string& code,
                    const std::string& password) {
  UnitOfWork unit(database);
  set(unit, kind, code, password);
}

bool Passwords::isSet(UnitOfWork& unit, PasswordKind kind, const std::string& code) {
  return !unit.query("select 1 from SuitePassword" + condition(unit, kind, code) + " limit 1")
              ->EOF_();
}

bool Passwords::ask(PasswordKind kind, const std::string& code) {
  if (refused_.erase(kind) > 0) return false;
  const RecordsetPtr found =
      database_.query("select Hash from SuitePassword" + condition(database_, kind, code));
  if (found->EOF_()) return true;
  const std::string hash = found->text(0);
  for (int tried = 0; tried < tries; ++tried) {
    const std::optional<std::string> typed = dialogs_.password(promptFor(kind, code, tried));
    if (!typed) return false;
    if (fits(*typed, hash)) return true;
  }
  return false;
}

}  // namespace quillet::suite
