// What is decided when a practice does not open at once. Without a person there is nobody to ask:
// what holds then is the default.
#pragma once

#include <functional>
#include <string>

#include "suite/folder_examination.h"

namespace quillet::suite {

struct StartPolicy {
  ExaminationPolicy examination;
  // Whether the settings of the last start take the place of those that were lost.
  // Whether tables that are gone are made anew, empty.
  std::function<bool(const std::string& loss)> makeLostTables = [](const std::string&) {
    return false;
  };
  std::function<bool(const std::string& loss)> putSettingsBack = [](const std::string&) {
    return false;
  };
};

}  // namespace quillet::suite
