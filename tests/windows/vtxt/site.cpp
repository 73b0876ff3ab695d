#include "vtxt/site.h"

#include "windows/com/text.h"

namespace quillet::fakes {

STDMETHODIMP Site::QueryInterface(REFIID iid, void** object) noexcept {
  *object = nullptr;
  if (iid == IID_IUnknown || iid == IID_IOleClientSite)
    *object = static_cast<IOleClientSite*>(this);
  if (iid == IID_IOleInPlaceSite) *object = static_cast<IOleInPlaceSite*>(this);
  if (iid == IID_IOleControlSite) *object = static_cast<IOleControlSite*>(this);
  if (iid == IID_IDispatch) *object = static_cast<IDispatch*>(this);
  if (iid == IID_IPropertyNotifySink) *object = static_cast<IPropertyNotifySink*>(this);
  return *object ? S_OK : E_NOINTERFACE;
}

HRESULT Site::tell(const std::string& what) {
  told_ += told_.empty() ? what : ", " + what;
  return S_OK;
}

STDMETHODIMP Site::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                    LPRECT place, LPRECT shown, LPOLEINPLACEFRAMEINFO) noexcept {
  *frame = nullptr;
  *document = nullptr;
  *place = {10, 10, 200, 40};
  *shown = *place;
  return S_OK;
}

STDMETHODIMP Site::TranslateAccelerator(MSG* message, DWORD held) noexcept {
  tell("key " + std::to_string(message->wParam) + (held & 1 ? " with Shift" : ""));
  return takesKeys ? S_OK : S_FALSE;
}

STDMETHODIMP Site::Invoke(DISPID property, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result,
                          EXCEPINFO*, UINT*) noexcept {
  const auto found = wishes.find(property);
  if (found == wishes.end()) return DISP_E_MEMBERNOTFOUND;
  windows::Variant(found->second).moveTo(result);
  return S_OK;
}

std::string Bag::text() const {
  std::string text;
  for (const auto& [name, value] : values) {
    text += (text.empty() ? "" : " ") + name + "=" + windows::asText(value);
  }
  return text;
}

STDMETHODIMP Bag::Read(LPCOLESTR name, VARIANT* value, IErrorLog*) noexcept {
  const auto found = values.find(windows::utf8(name));
  if (found == values.end()) return E_INVALIDARG;
  windows::Variant(found->second).moveTo(value);
  return S_OK;
}

STDMETHODIMP Bag::Write(LPCOLESTR name, VARIANT* value) noexcept {
  values[windows::utf8(name)] = windows::Variant::copyOf(*value);
  return S_OK;
}

}  // namespace quillet::fakes
