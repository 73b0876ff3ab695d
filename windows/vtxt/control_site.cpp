#include "windows/vtxt/control_site.h"

#include <olectl.h>

namespace quillet::windows {

std::optional<Variant> ControlSite::ambient(DISPID property) const {
  const auto ambients = query<IDispatch>();
  if (!ambients) return {};
  DISPPARAMS none{};
  Variant value;
  const HRESULT result = ambients->Invoke(property, IID_NULL, LOCALE_USER_DEFAULT,
                                          DISPATCH_PROPERTYGET, &none, &value, nullptr, nullptr);
  if (FAILED(result)) return {};
  return value;
}

bool ControlSite::inUse() const {
  const auto mode = ambient(DISPID_AMBIENT_USERMODE);
  return !mode || mode->vt != VT_BOOL || mode->boolVal != VARIANT_FALSE;
}

}  // namespace quillet::windows
