// What goes beyond what every host offers stays away quietly.
#pragma once

#include "data/errors.h"
#include "windows/com/late.h"

namespace quillet::windows {

// Runs a call of a member that the object may not know, or knows with other arguments.
template <class Body>
void ifOffered(Body&& body) {
  constexpr long noSuchMember = 438;
  constexpr long otherArguments = 450;
  try {
    body();
  } catch (const RunTimeError& error) {
    if (error.number() != noSuchMember && error.number() != otherArguments) throw;
  }
}

}  // namespace quillet::windows
