#include "windows/vtxt/ole_object.h"

#include <olectl.h>
#include <quillet_vtxt_com.h>

#include "windows/ui/message_scope.h"
#include "windows/vtxt/registration_data.h"
#include "windows/vtxt/vtxt_control.h"

namespace quillet::windows {
namespace {

constexpr int extentUnitsOfInch = 2540;

}  // namespace

// --- the site -----------------------------------------------------------------------------------

STDMETHODIMP OleObject::SetClientSite(IOleClientSite* site) noexcept {
  if (!site) control_.inPlace.deactivate();
  control_.site.set(site);
  control_.appearance.font.ambientChanged();
  return S_OK;
}

STDMETHODIMP OleObject::GetClientSite(IOleClientSite** site) noexcept {
  if (!site) return E_POINTER;
  *site = Pointer(control_.site.get()).detach();
  return S_OK;
}

STDMETHODIMP OleObject::Close(DWORD save) noexcept {
  const MessageScope scope;
  const bool changed = control_.persistence.IsDirty() == S_OK;
  if (changed && save != OLECLOSE_NOSAVE && control_.site) control_.site.get()->SaveObject();
  control_.inPlace.deactivate();
  if (advised_) advised_->SendOnClose();
  return S_OK;
}

STDMETHODIMP OleObject::GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept {
  if (!moniker) return E_POINTER;
  *moniker = nullptr;
  return E_NOTIMPL;
}

STDMETHODIMP OleObject::GetClipboardData(DWORD, IDataObject** data) noexcept {
  if (!data) return E_POINTER;
  *data = nullptr;
  return E_NOTIMPL;
}

// --- verbs --------------------------------------------------------------------------------------

STDMETHODIMP OleObject::DoVerb(LONG verb, LPMSG, IOleClientSite* site, LONG, HWND parent,
                               LPCRECT where) noexcept {
  const MessageScope scope;
  if (!control_.site && site) control_.site.set(site);
  switch (verb) {
    case OLEIVERB_HIDE:
      control_.window.show(false);
      return S_OK;
    case OLEIVERB_PRIMARY:
    case OLEIVERB_SHOW:
    case OLEIVERB_INPLACEACTIVATE:
      return control_.inPlace.activate(parent, where);
    case OLEIVERB_UIACTIVATE: {
      const HRESULT result = control_.inPlace.activate(parent, where);
      if (FAILED(result)) return result;
      control_.window.takeFocus();
      return control_.inPlace.uiActivate();
    }
    case OLEIVERB_OPEN:
    case OLEIVERB_DISCARDUNDOSTATE:
      return E_NOTIMPL;
    default:
      return verb > 0 ? OLEOBJ_S_INVALIDVERB : E_NOTIMPL;
  }
}

STDMETHODIMP OleObject::EnumVerbs(IEnumOLEVERB** verbs) noexcept {
  if (!verbs) return E_POINTER;
  *verbs = nullptr;
  return OleRegEnumVerbs(CLSID_VTxt, verbs);
}

STDMETHODIMP OleObject::GetUserClassID(CLSID* clsid) noexcept {
  if (!clsid) return E_POINTER;
  *clsid = CLSID_VTxt;
  return S_OK;
}

STDMETHODIMP OleObject::GetUserType(DWORD form, LPOLESTR* type) noexcept {
  if (!type) return E_POINTER;
  *type = nullptr;
  return OleRegGetUserType(CLSID_VTxt, form, type);
}

STDMETHODIMP OleObject::GetMiscStatus(DWORD, DWORD* status) noexcept {
  if (!status) return E_POINTER;
  *status = miscStatus;
  return S_OK;
}

// --- size ---------------------------------------------------------------------------------------

STDMETHODIMP OleObject::SetExtent(DWORD aspect, SIZEL* size) noexcept {
  if (!size) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  extent_ = *size;
  control_.viewObject.changed();
  return S_OK;
}

STDMETHODIMP OleObject::GetExtent(DWORD aspect, SIZEL* size) noexcept {
  if (!size) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  *size = extent_;
  return S_OK;
}

void OleObject::setPixels(SIZE size, UINT dpi) {
  const int resolution = static_cast<int>(dpi);
  extent_ = {MulDiv(size.cx, extentUnitsOfInch, resolution),
             MulDiv(size.cy, extentUnitsOfInch, resolution)};
}

// --- who wants to know when it is saved and closed ----------------------------------------------

STDMETHODIMP OleObject::Advise(IAdviseSink* sink, DWORD* cookie) noexcept {
  if (!cookie) return E_POINTER;
  *cookie = 0;
  if (!advised_) {
    const HRESULT made = CreateOleAdviseHolder(advised_.put());
    if (FAILED(made)) return made;
  }
  return advised_->Advise(sink, cookie);
}

STDMETHODIMP OleObject::Unadvise(DWORD cookie) noexcept {
  return advised_ ? advised_->Unadvise(cookie) : OLE_E_NOCONNECTION;
}

STDMETHODIMP OleObject::EnumAdvise(IEnumSTATDATA** sinks) noexcept {
  if (!sinks) return E_POINTER;
  *sinks = nullptr;
  return advised_ ? advised_->EnumAdvise(sinks) : S_OK;
}

void OleObject::saved() {
  if (advised_) advised_->SendOnSave();
}

// --- IOleControl --------------------------------------------------------------------------------

STDMETHODIMP OleObject::GetControlInfo(CONTROLINFO* info) noexcept {
  if (!info) return E_POINTER;
  info->hAccel = nullptr;
  info->cAccel = 0;
  info->dwFlags = CTRLINFO_EATS_RETURN;  // Enter moves on to the next control
  return S_OK;
}

STDMETHODIMP OleObject::OnMnemonic(MSG*) noexcept {
  return DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr);
}

STDMETHODIMP OleObject::OnAmbientPropertyChange(DISPID property) noexcept {
  if (property == DISPID_UNKNOWN || property == DISPID_AMBIENT_FONT) {
    control_.appearance.font.ambientChanged();
  }
  control_.redraw();
  return S_OK;
}

STDMETHODIMP OleObject::FreezeEvents(BOOL frozen) noexcept {
  control_.events.freeze(frozen != FALSE);
  return S_OK;
}

}  // namespace quillet::windows
