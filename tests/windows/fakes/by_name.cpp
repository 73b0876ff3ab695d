#include "fakes/by_name.h"

#include <dispex.h>

#include "windows/com/counted.h"
#include "windows/com/variant.h"

namespace quillet::fakes {
namespace {

using windows::Pointer;

class ScriptObject final : public windows::Counted<IDispatch> {
 public:
  explicit ScriptObject(Pointer<IDispatchEx> object) : object_(std::move(object)) {}

  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    BSTR name = SysAllocString(names[0]);
    const HRESULT hr = object_->GetDispID(name, fdexNameCaseInsensitive, ids);
    SysFreeString(name);
    return hr;
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID locale, WORD kind, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO* exception, UINT*) override {
    const HRESULT hr = object_->InvokeEx(id, locale, kind, parameters, result, exception, nullptr);
    if (SUCCEEDED(hr) && result && result->vt == VT_DISPATCH) {
      const auto answered = Pointer<IDispatch>::attach(result->pdispVal);
      result->pdispVal = byName(answered).detach();
    }
    return hr;
  }

 private:
  Pointer<IDispatchEx> object_;
};

}  // namespace

Pointer<IDispatch> byName(const Pointer<IDispatch>& object) {
  auto script = object.query<IDispatchEx>();
  return script ? Pointer<IDispatch>::attach(new ScriptObject(std::move(script))) : object;
}

}  // namespace quillet::fakes
