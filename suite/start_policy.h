// What is decided when a practice does not open at once. Without a person there is nobody to ask:
// what holds then is the default.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "suite/folder_examination.h"

namespace quillet::suite {

struct StartPolicy {
  ExaminationPolicy examination;
  // Whether the books are made on a database server that has none.
  bool mayMakeBooks = false;
  // The password of an account at a database server; nothing when there is nobody to ask.
  std::function<std::optional<std::string>(const std::string& prompt)> askPassword =
      [](const std::string&) { return std::nullopt; };
  // Whether one that was typed is to be kept in the desktop's keyring.
  std::function<bool(const std::string& whose)> mayKeepPassword = {};
  // Whether tables that are gone are made anew, empty.
  std::function<bool(const std::string& loss)> makeLostTables = [](const std::string&) {
    return false;
  };
  // Whether the settings of the last start take the place of those that were lost.
  std::function<bool(const std::string& loss)> putSettingsBack = [](const std::string&) {
    return false;
  };
};

}  // namespace quillet::suite
