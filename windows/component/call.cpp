#include "windows/component/call.h"

#include "windows/com/errors.h"

namespace quillet::windows {
namespace {

void refuseNull(const VARIANT& value) {
  const VARTYPE type = Variant::copyOf(value).vt;
  if (type == VT_NULL || type == VT_ERROR || type == VT_DISPATCH || type == VT_UNKNOWN) {
    throw errorOf(DISP_E_TYPEMISMATCH, "PrjQuillet");
  }
}

}  // namespace

Call::Call(WORD flags, const DISPPARAMS& parameters)
    : sets_((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) {
  const UINT named = parameters.cNamedArgs;
  const bool valueNamed =
      sets_ && named == 1 && parameters.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
  if (named > 0 && !valueNamed) throw errorOf(DISP_E_NONAMEDARGS, "PrjQuillet");
  if (sets_ && parameters.cArgs == 0) throw errorOf(DISP_E_BADPARAMCOUNT, "PrjQuillet");
  // The last one comes first.
  const UINT values = sets_ ? 1 : 0;
  if (sets_) value_ = &parameters.rgvarg[0];
  for (UINT at = parameters.cArgs; at > values; --at) {
    arguments_.push_back(&parameters.rgvarg[at - 1]);
  }
  while (!arguments_.empty() && arguments_.back()->vt == VT_ERROR &&
         arguments_.back()->scode == DISP_E_PARAMNOTFOUND) {
    arguments_.pop_back();
  }
}

std::string textArgument(const VARIANT& value) {
  refuseNull(value);
  return asText(value);
}

int numberArgument(const VARIANT& value) {
  refuseNull(value);
  return static_cast<int>(asLong(value));
}

double realArgument(const VARIANT& value) {
  refuseNull(value);
  return asNumber(value);
}

bool truthArgument(const VARIANT& value) {
  refuseNull(value);
  return asTruth(value);
}

}  // namespace quillet::windows
