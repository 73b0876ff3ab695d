#include "windows/component/named_object.h"

#include "windows/com/errors.h"
#include "windows/com/text.h"
#include "windows/component/component.h"

namespace quillet::windows {

STDMETHODIMP NamedObject::GetTypeInfoCount(UINT* count) noexcept {
  if (!count) return E_POINTER;
  *count = 0;
  return S_OK;
}

STDMETHODIMP NamedObject::GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept {
  if (info) *info = nullptr;
  return E_NOTIMPL;
}

STDMETHODIMP NamedObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                        DISPID* ids) noexcept {
  if (!names || !ids || count == 0) return E_INVALIDARG;
  if (!Component::onItsThread()) return RPC_E_WRONG_THREAD;
  try {
    for (UINT at = 0; at < count; ++at) ids[at] = DISPID_UNKNOWN;
    const std::optional<DISPID> id = idOf(utf8(std::wstring_view(names[0])));
    if (id) ids[0] = *id;
    // No argument of ours has a name.
    return id && count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
  } catch (const std::exception& error) {
    return resultOf(error);
  } catch (...) {
    return E_UNEXPECTED;
  }
}

STDMETHODIMP NamedObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                 VARIANT* result, EXCEPINFO* error, UINT*) noexcept {
  if (!parameters) return E_INVALIDARG;
  if (!Component::onItsThread()) return RPC_E_WRONG_THREAD;
  if (result) VariantInit(result);
  const Pointer<IDispatch> alive(this);  // a call may lead to the last release
  return guarded(error, [&] {
    Variant answer = invoke(id, Call(flags, *parameters));
    if (result) answer.moveTo(result);
  });
}

}  // namespace quillet::windows
