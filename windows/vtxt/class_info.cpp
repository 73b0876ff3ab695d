#include "windows/vtxt/class_info.h"

#include <quillet_vtxt_com.h>

#include "windows/component/type_info.h"
#include "windows/vtxt/registration_data.h"

namespace quillet::windows {

STDMETHODIMP ClassInfo::GetClassInfo(ITypeInfo** info) noexcept {
  if (!info) return E_POINTER;
  *info = nullptr;
  return typeInfo(controlsLibrary, CLSID_VTxt, info);
}

STDMETHODIMP ClassInfo::GetGUID(DWORD kind, GUID* guid) noexcept {
  if (!guid) return E_POINTER;
  *guid = kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? DIID___VTxt : GUID_NULL;
  return kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? S_OK : E_INVALIDARG;
}

STDMETHODIMP ClassInfo::InterfaceSupportsErrorInfo(REFIID iid) noexcept {
  return iid == IID__VTxt ? S_OK : S_FALSE;
}

}  // namespace quillet::windows
