#include "fakes/named_object.h"

#include <algorithm>

#include "data/text.h"
#include "windows/com/errors.h"
#include "windows/com/text.h"

namespace quillet::fakes {

VARIANT& Call::operator[](std::size_t i) const {
  constexpr long wrongArguments = 450;
  if (i >= arguments.size()) throw RunTimeError(wrongArguments, "An argument is missing.", member);
  return *arguments[i];
}

STDMETHODIMP NamedObject::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

STDMETHODIMP NamedObject::GetTypeInfo(UINT, LCID, ITypeInfo**) { return E_NOTIMPL; }

STDMETHODIMP NamedObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  std::fill(ids, ids + count, DISPID_UNKNOWN);
  const std::string member = spelling(windows::utf8(names[0]));
  if (member.empty() || count != 1) return DISP_E_UNKNOWNNAME;
  const auto found = std::find(asked_.begin(), asked_.end(), member);
  ids[0] = static_cast<DISPID>(found - asked_.begin()) + 1;
  if (found == asked_.end()) asked_.push_back(member);
  return S_OK;
}

STDMETHODIMP NamedObject::Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters,
                                 VARIANT* result, EXCEPINFO* exception, UINT*) {
  return windows::guarded(exception, [&]() -> HRESULT {
    if (id < 1 || id > static_cast<DISPID>(asked_.size())) return DISP_E_MEMBERNOTFOUND;
    Call call{asked_[static_cast<std::size_t>(id) - 1], kind, {}};
    // The last argument stands first.
    for (UINT i = parameters->cArgs; i-- > 0;) call.arguments.push_back(&parameters->rgvarg[i]);
    Variant answer = called(call);
    if (result) answer.moveTo(result);
    return S_OK;
  });
}

void MemberTable::addValue(const std::string& name, const Variant& value) {
  add(name, [kept = value](const Call& call) mutable {
    if (call.sets()) kept = Variant::copyOf(call[0]);
    return call.sets() ? Variant() : kept;
  });
}

std::string MemberTable::spelling(const std::string& name) const {
  for (const auto& [own, member] : members_) {
    if (equalIgnoringCase(own, name)) return own;
  }
  return {};
}

Variant MemberTable::called(const Call& call) { return members_.at(call.member)(call); }

}  // namespace quillet::fakes
