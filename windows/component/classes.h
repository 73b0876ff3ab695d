// The classes and type libraries that the file holds. One table for the class factory and the
// registration.
#pragma once

#include <vector>

#include "windows/component/registration.h"

namespace quillet::windows {

using MakeObject = HRESULT (*)(REFIID iid, void** object);

struct CreatableClass {
  ClassEntry entry;
  MakeObject make;
};

const std::vector<CreatableClass>& creatableClasses();
const std::vector<LibraryEntry>& typeLibraries();

}  // namespace quillet::windows
