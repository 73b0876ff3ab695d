// The classes and type libraries that the file holds. One table for the class factory and the
// registration.
#pragma once

#include <vector>

#include "windows/component/registration.h"

namespace quillet::windows {

// `outer` is the object that aggregates the new one, or null.
using MakeObject = HRESULT (*)(IUnknown* outer, REFIID iid, void** object) noexcept;

struct CreatableClass {
  ClassEntry entry;
  MakeObject make;
};

const std::vector<CreatableClass>& creatableClasses();
const std::vector<LibraryEntry>& typeLibraries();

}  // namespace quillet::windows
