// A container of the tests' own: it says what it wishes of its controls and remembers what they
// tell.
#pragma once

#include <olectl.h>

#include <map>
#include <string>
#include <utility>

#include "windows/com/pointer.h"
#include "windows/com/variant.h"

namespace quillet::fakes {

class Site final : public IOleClientSite,
                   public IOleInPlaceSite,
                   public IOleControlSite,
                   public IDispatch,
                   public IPropertyNotifySink {
 public:
  explicit Site(HWND window) : window_(window) {}

  // What it answers when its control asks for ambient properties.
  std::map<DISPID, windows::Variant> wishes;
  // Takes the keys that its control offers.
  bool takesKeys = false;
  // What was told since it was asked last: keys offered, "changed 1", "save".
  std::string told() { return std::exchange(told_, {}); }

  STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
  STDMETHODIMP_(ULONG) AddRef() noexcept override { return 2; }
  STDMETHODIMP_(ULONG) Release() noexcept override { return 1; }

  // IOleClientSite
  STDMETHODIMP SaveObject() noexcept override { return tell("save"); }
  STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP GetContainer(IOleContainer**) noexcept override { return E_NOINTERFACE; }
  STDMETHODIMP ShowObject() noexcept override { return S_OK; }
  STDMETHODIMP OnShowWindow(BOOL) noexcept override { return S_OK; }
  STDMETHODIMP RequestNewObjectLayout() noexcept override { return E_NOTIMPL; }

  // IOleInPlaceSite
  STDMETHODIMP GetWindow(HWND* window) noexcept override {
    *window = window_;
    return S_OK;
  }
  STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP CanInPlaceActivate() noexcept override { return S_OK; }
  STDMETHODIMP OnInPlaceActivate() noexcept override { return S_OK; }
  STDMETHODIMP OnUIActivate() noexcept override { return S_OK; }
  STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                LPRECT place, LPRECT shown,
                                LPOLEINPLACEFRAMEINFO) noexcept override;
  STDMETHODIMP Scroll(SIZE) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP OnUIDeactivate(BOOL) noexcept override { return S_OK; }
  STDMETHODIMP OnInPlaceDeactivate() noexcept override { return S_OK; }
  STDMETHODIMP DiscardUndoState() noexcept override { return E_NOTIMPL; }
  STDMETHODIMP DeactivateAndUndo() noexcept override { return E_NOTIMPL; }
  STDMETHODIMP OnPosRectChange(LPCRECT) noexcept override { return S_OK; }

  // IOleControlSite
  STDMETHODIMP OnControlInfoChanged() noexcept override { return S_OK; }
  STDMETHODIMP LockInPlaceActive(BOOL) noexcept override { return S_OK; }
  STDMETHODIMP GetExtendedControl(IDispatch**) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP TransformCoords(POINTL*, POINTF*, DWORD) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP TranslateAccelerator(MSG* message, DWORD held) noexcept override;
  STDMETHODIMP OnFocus(BOOL) noexcept override { return S_OK; }
  STDMETHODIMP ShowPropertyFrame() noexcept override { return E_NOTIMPL; }

  // IDispatch
  STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override {
    return E_NOTIMPL;
  }
  STDMETHODIMP Invoke(DISPID property, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                      UINT*) noexcept override;

  // IPropertyNotifySink
  STDMETHODIMP OnChanged(DISPID property) noexcept override {
    return tell("changed " + std::to_string(property));
  }
  STDMETHODIMP OnRequestEdit(DISPID) noexcept override { return S_OK; }

 private:
  HRESULT tell(const std::string& what);

  HWND window_;
  std::string told_;
};

// Property data, as a form's file keeps it.
class Bag final : public IPropertyBag {
 public:
  std::map<std::string, windows::Variant> values;
  // "MaxLength=12 MinLength=3"
  std::string text() const;

  STDMETHODIMP QueryInterface(REFIID, void**) noexcept override { return E_NOINTERFACE; }
  STDMETHODIMP_(ULONG) AddRef() noexcept override { return 2; }
  STDMETHODIMP_(ULONG) Release() noexcept override { return 1; }
  STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog*) noexcept override;
  STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) noexcept override;
};

}  // namespace quillet::fakes
