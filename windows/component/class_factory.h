// Makes the objects of the creatable classes.
#pragma once

#include <unknwn.h>
#include <windows.h>

namespace quillet::windows {

HRESULT classObject(REFCLSID clsid, REFIID iid, void** object) noexcept;

}  // namespace quillet::windows
