#include "windows/com/late.h"

#include <algorithm>
#include <optional>

#include "windows/com/errors.h"
#include "windows/com/text.h"

namespace quillet::windows {
namespace {

HRESULT askId(IDispatch& object, const std::string& member, DISPID& id) {
  std::wstring name = wide(member);
  LPOLESTR names = name.data();
  return object.GetIDsOfNames(IID_NULL, &names, 1, callLocale, &id);
}

// The answer as a value of its own, also when the callee hands back a reference.
Variant owned(Variant answer) {
  return answer.vt & VT_BYREF ? Variant::copyOf(answer) : std::move(answer);
}

}  // namespace

Late Late::create(const std::string& progId) {
  CLSID id{};
  HRESULT hr = CLSIDFromProgID(wide(progId).c_str(), &id);
  Pointer<IDispatch> object;
  if (SUCCEEDED(hr)) {
    hr = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, IID_IDispatch,
                          object.putVoid());
  }
  if (FAILED(hr)) {
    const RunTimeError error = errorOf(hr, progId);
    throw RunTimeError(error.number(), std::string(error.what()) + ": " + progId, progId);
  }
  return {std::move(object), progId};
}

bool Late::has(const std::string& member) const {
  if (!object_) return false;
  if (ids_.contains(member)) return true;
  DISPID id = DISPID_UNKNOWN;
  if (FAILED(askId(*object_, member, id))) return false;
  ids_[member] = id;
  return true;
}

DISPID Late::idOf(const std::string& member) const {
  if (const auto known = ids_.find(member); known != ids_.end()) return known->second;
  const std::string where = name_ + "." + member;
  if (!object_) throw errorOf(E_POINTER, where);
  DISPID id = DISPID_UNKNOWN;
  const HRESULT hr = askId(*object_, member, id);
  if (FAILED(hr)) throw errorOf(hr, where);
  return ids_[member] = id;
}

Variant Late::invoke(const std::string& member, WORD kind, std::span<Variant> arguments) const {
  const DISPID id = idOf(member);
  std::reverse(arguments.begin(), arguments.end());  // the last argument comes first
  const bool put = kind == DISPATCH_PROPERTYPUT;
  DISPID value = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{arguments.data(), put ? &value : nullptr,
                        static_cast<UINT>(arguments.size()), put ? 1U : 0U};
  Variant answer;
  ExceptionInfo info;
  UINT wrong = 0;
  // The callee may release what holds us.
  const Pointer<IDispatch> alive = object_;
  const HRESULT hr = alive->Invoke(id, IID_NULL, callLocale, kind, &parameters,
                                   put ? nullptr : &answer, &info, &wrong);
  if (FAILED(hr)) throw errorOf(hr, info, name_ + "." + member);
  return owned(std::move(answer));
}

}  // namespace quillet::windows
