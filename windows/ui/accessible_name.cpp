#include "windows/ui/accessible_name.h"

#include <initguid.h>
#include <oleacc.h>

#include "windows/com/pointer.h"

namespace quillet::windows {
namespace {

// The service that keeps names beside windows, where the system has one.
Pointer<IAccPropServices> service() {
  Pointer<IAccPropServices> made;
  CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                   made.putVoid());
  return made;
}

constexpr auto client = static_cast<DWORD>(OBJID_CLIENT);

}  // namespace

void setAccessibleName(HWND window, const std::wstring& name) {
  if (const auto names = service()) {
    names->SetHwndPropStr(window, client, CHILDID_SELF, PROPID_ACC_NAME, name.c_str());
  }
}

void forgetAccessibleName(HWND window) {
  const auto names = service();
  if (!names) return;
  MSAAPROPID property = PROPID_ACC_NAME;
  names->ClearHwndProps(window, client, CHILDID_SELF, &property, 1);
}

}  // namespace quillet::windows
