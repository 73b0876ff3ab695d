#include "ports/recorder.h"

#include <algorithm>

#include "windows/com/array.h"
#include "windows/com/late.h"

namespace quillet::fakes {
namespace {

std::string typeName(VARTYPE type) {
  switch (type) {
    case VT_EMPTY:
      return "Empty";
    case VT_I2:
      return "Integer";
    case VT_I4:
      return "Long";
    case VT_R8:
      return "Double";
    case VT_BOOL:
      return "Boolean";
    case VT_BSTR:
      return "String";
    case VT_DISPATCH:
      return "Object";
    case VT_VARIANT:
      return "Variant";
    default:
      return "type " + std::to_string(type);
  }
}

std::string valueOf(const VARIANT& value) {
  if (value.vt == VT_DISPATCH) return value.pdispVal ? "" : " Nothing";
  const std::string text = windows::asText(value);
  return value.vt == VT_BSTR ? " '" + text + "'" : " " + text;
}

std::string elements(SAFEARRAY* array) {
  std::string all;
  LONG first = 0;
  LONG last = -1;
  SafeArrayGetLBound(array, 1, &first);
  SafeArrayGetUBound(array, 1, &last);
  for (LONG i = first; i <= last; ++i) {
    VARTYPE type = VT_EMPTY;
    SafeArrayGetVartype(array, &type);
    Variant element;
    void* const place = type == VT_VARIANT ? static_cast<void*>(&element) : &element.byref;
    SafeArrayGetElement(array, &i, place);
    if (type != VT_VARIANT) element.vt = type;
    all += (all.empty() ? "" : ",") + valueOf(element);
  }
  return " from " + std::to_string(first) + " [" + all + " ]";
}

}  // namespace

std::string shown(const VARIANT& value) {
  const auto type = static_cast<VARTYPE>(value.vt & VT_TYPEMASK);
  const std::string reference = value.vt & VT_BYREF ? "ref " : "";
  if (value.vt & VT_ARRAY) {
    SAFEARRAY* const array = value.vt & VT_BYREF ? *value.pparray : value.parray;
    return reference + "Array of " + typeName(type) + elements(array);
  }
  return reference + typeName(type) + valueOf(Variant::copyOf(value));
}

std::string Recorder::spelling(const std::string& name) const {
  std::string known = MemberTable::spelling(name);
  return std::find(forgotten_.begin(), forgotten_.end(), known) == forgotten_.end() ? known : "";
}

Variant Recorder::called(const Call& call) {
  std::string arguments;
  for (const VARIANT* argument : call.arguments) {
    arguments += (arguments.empty() ? "" : ", ") + shown(*argument);
  }
  calls.push_back(call.sets() ? call.member + " = " + arguments
                              : call.member + "(" + arguments + ")");
  return MemberTable::called(call);
}

void serve(const std::string& progId, IDispatch* object) {
  windows::Late::create("QuilletTest.Fakes").call("Serve", progId, object);
}

Pointer<IDispatch> holding(const std::string& member, const Variant& value) {
  auto* const object = new MemberTable;
  object->addValue(member, value);
  return Pointer<IDispatch>::attach(object);
}

}  // namespace quillet::fakes
