// The class that hosts create: the module's entry.
#pragma once

#include <unknwn.h>
#include <windows.h>

namespace quillet::windows {

HRESULT makeFormsObject(REFIID iid, void** object);

}  // namespace quillet::windows
