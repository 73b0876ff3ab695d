// What the type libraries in the library's own file say of an interface.
#pragma once

#include <oleauto.h>
#include <windows.h>

namespace quillet::windows {

// `resource` is the number of the type library in the file. Read once for each interface.
HRESULT typeInfo(int resource, const GUID& id, ITypeInfo** info) noexcept;

}  // namespace quillet::windows
