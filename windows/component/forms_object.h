// The class that hosts create: the module's entry.
#pragma once

#include <unknwn.h>
#include <windows.h>

namespace quillet::windows {

HRESULT makeFormsObject(IUnknown* outer, REFIID iid, void** object) noexcept;

}  // namespace quillet::windows
