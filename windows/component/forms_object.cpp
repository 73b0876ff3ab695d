#include "windows/component/forms_object.h"

#include <quillet_com.h>

#include "windows/com/counted.h"
#include "windows/com/errors.h"
#include "windows/com/pointer.h"
#include "windows/com/text.h"
#include "windows/component/component.h"
#include "windows/component/module.h"
#include "windows/component/type_info.h"

namespace quillet::windows {
namespace {

class FormsObject final : public Counted<_Forms, ISupportErrorInfo> {
 public:
  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept override {
    return iid == IID__Forms ? S_OK : S_FALSE;
  }

  // --- by name: as the type library says

  STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT which, LCID, ITypeInfo** info) noexcept override {
    if (!info) return E_POINTER;
    *info = nullptr;
    return which == 0 ? typeInfo(1, IID__Forms, info) : DISP_E_BADINDEX;
  }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                             DISPID* ids) noexcept override {
    Pointer<ITypeInfo> info;
    const HRESULT result = typeInfo(1, IID__Forms, info.put());
    return FAILED(result) ? result : info->GetIDsOfNames(names, count, ids);
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO* error, UINT* argument) noexcept override {
    if (!parameters) return E_INVALIDARG;
    // Not every system counts by itself.
    const bool sets = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (parameters->cArgs != (sets ? 1u : 0u)) return DISP_E_BADPARAMCOUNT;
    Pointer<ITypeInfo> info;
    const HRESULT found = typeInfo(1, IID__Forms, info.put());
    if (FAILED(found)) return found;
    return info->Invoke(static_cast<_Forms*>(this), id, flags, parameters, result, error, argument);
  }

  // --- members, in slot order

  STDMETHODIMP get_MyDllVersion(BSTR* version) noexcept override {
    if (!version) return E_POINTER;
    *version = nullptr;
    return guarded(IID__Forms, [&] { *version = newBstr(forms().MyDllVersion()); });
  }
  STDMETHODIMP get_ObjCreate(IDispatch** form) noexcept override {
    return give(form, [] { return forms().ObjCreate(); });
  }
  STDMETHODIMP get_ObjThird(IDispatch** form) noexcept override {
    return give(form, [] { return forms().ObjThird(); });
  }
  STDMETHODIMP put_VClCode(BSTR code) noexcept override {
    return guarded(IID__Forms, [&] { forms().VClCode(fromBstr(code)); });
  }
  STDMETHODIMP put_VFATbl(BSTR table) noexcept override {
    return guarded(IID__Forms, [&] { forms().VFATbl(fromBstr(table)); });
  }
  STDMETHODIMP put_VFDate(BSTR date) noexcept override {
    return guarded(IID__Forms, [&] { forms().VFDate(fromBstr(date)); });
  }
  STDMETHODIMP put_VSDate(BSTR date) noexcept override {
    return guarded(IID__Forms, [&] { forms().VSDate(fromBstr(date)); });
  }

 private:
  static Forms& forms() { return Component::instance().forms(); }

  // A form that cannot be made is nothing, and no error.
  template <class Get>
  static HRESULT give(IDispatch** object, Get get) noexcept {
    if (!object) return E_POINTER;
    *object = nullptr;
    return guarded(IID__Forms, [&] {
      Component& component = Component::instance();
      try {
        Form* form = get();
        if (form) *object = component.objects().of(*form).detach();
      } catch (const std::exception&) {
        // Nothing is what the caller gets.
      }
    });
  }

  module::Use use_;
};

}  // namespace

HRESULT makeFormsObject(IUnknown* outer, REFIID iid, void** object) noexcept {
  if (outer) return CLASS_E_NOAGGREGATION;
  return guarded(IID__Forms, [&] {
    Component::instance();  // module start-up comes with the first object
    auto* made = new FormsObject;
    const HRESULT result = made->QueryInterface(iid, object);
    made->Release();
    return result;
  });
}

}  // namespace quillet::windows
