// What a form says once a save is done: "Saved 14:02."
#pragma once

#include <string>

#include "ports/ports.h"

namespace quillet {

inline std::string savedText(const Clock& clock) {
  return "Saved " + clock.now().substr(11, 5) + '.';
}

}  // namespace quillet
