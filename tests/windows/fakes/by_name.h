// Wine's script classes know their members through a script's own interface alone; a host's late
// bound caller asks through IDispatch.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include "windows/com/pointer.h"

namespace quillet::fakes {

// The object itself, or what passes names on to it and to the objects that it answers.
windows::Pointer<IDispatch> byName(const windows::Pointer<IDispatch>& object);

}  // namespace quillet::fakes
