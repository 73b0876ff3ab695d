// A library of the tests that a host registers and makes objects of. It says which classes it has;
// what the system asks of such a library stands here once.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <span>

#include "windows/com/pointer.h"

namespace quillet::fakes {

struct Class {
  const wchar_t* progId;
  CLSID id;
  windows::Pointer<IDispatch> (*make)();
};

// Each library defines it.
std::span<const Class> classes();

}  // namespace quillet::fakes
