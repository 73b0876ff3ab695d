// How the password of an account at a database server is found: in a file that only its owner can
// read, in the keyring of the desktop, or by asking. It never stands in a command line, an address
// or the settings.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "suite/database.h"

namespace quillet::suite {

// A password typed by a person; nothing when there is nobody or nothing was typed.
using AskPassword = std::function<std::optional<std::string>(const std::string& prompt)>;

// The first line of the file. Throws std::runtime_error when others can read it too.
std::string passwordIn(const std::string& file);

// Whether a typed password is to be kept in the keyring.
using MayKeepPassword = std::function<bool(const std::string& whose)>;

// Opens with the password as it is found, and asks again when it was a wrong one. Throws
// std::runtime_error as logIn() does.
void withPassword(const ServerAddress& address, const AskPassword& ask,
                  const std::function<void(const std::string& password)>& open,
                  const MayKeepPassword& mayKeep = {});

// The desktop's keyring; without one nothing is found and nothing kept.
std::optional<std::string> passwordInKeyring(const ServerAddress& address);
bool keepInKeyring(const ServerAddress& address, const std::string& password);

// From a terminal, without showing what is typed; nothing when there is none.
std::optional<std::string> askAtTerminal(const std::string& prompt);

}  // namespace quillet::suite
