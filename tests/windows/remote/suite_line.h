// The one line of this process to the suite beside it, whose port the environment variable
// QUILLET_SUITE_PORT tells.
#pragma once

#include <string>

#include "wire/values.h"

namespace quillet::fakes {

// What the suite answers, without the first value, which says how. An error is thrown as a
// RunTimeError.
struct Answer {
  bool rows = false;
  wire::Values values;
};
Answer ask(const wire::Values& question);

}  // namespace quillet::fakes
