// What happens when a practice does not open at once: a person is asked, a script goes on.
#pragma once

#include "ports/ports.h"
#include "suite/start_policy.h"

namespace quillet::app {

// Asks by message boxes. The dialogs outlive the policy.
suite::StartPolicy askingPolicy(Dialogs& dialogs);

// Opens what could not be examined to its end, and says so on standard error. Lost settings are an
// error.
suite::StartPolicy scriptPolicy();

}  // namespace quillet::app
