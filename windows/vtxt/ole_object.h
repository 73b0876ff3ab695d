// The control as an object that a container embeds: its site, size, verbs and ambient properties.
#pragma once

#include <ocidl.h>

#include "windows/com/pointer.h"
#include "windows/vtxt/control_part.h"

namespace quillet::windows {

class OleObject final : public ControlPart<IOleObject, IOleControl> {
 public:
  explicit OleObject(VTxtControl& control) : ControlPart(control) {}

  // In hundredths of a millimetre.
  SIZEL extent() const { return extent_; }
  // What the container gave it, in pixels.
  void setPixels(SIZE size, UINT dpi);
  // The control was saved.
  void saved();

  STDMETHODIMP SetClientSite(IOleClientSite* site) noexcept override;
  STDMETHODIMP GetClientSite(IOleClientSite** site) noexcept override;
  STDMETHODIMP SetHostNames(LPCOLESTR, LPCOLESTR) noexcept override { return S_OK; }
  STDMETHODIMP Close(DWORD save) noexcept override;
  STDMETHODIMP SetMoniker(DWORD, IMoniker*) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept override;
  STDMETHODIMP InitFromData(IDataObject*, BOOL, DWORD) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP GetClipboardData(DWORD, IDataObject** data) noexcept override;
  STDMETHODIMP DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG, HWND parent,
                      LPCRECT where) noexcept override;
  STDMETHODIMP EnumVerbs(IEnumOLEVERB** verbs) noexcept override;
  STDMETHODIMP Update() noexcept override { return S_OK; }
  STDMETHODIMP IsUpToDate() noexcept override { return S_OK; }
  STDMETHODIMP GetUserClassID(CLSID* clsid) noexcept override;
  STDMETHODIMP GetUserType(DWORD form, LPOLESTR* type) noexcept override;
  STDMETHODIMP SetExtent(DWORD aspect, SIZEL* size) noexcept override;
  STDMETHODIMP GetExtent(DWORD aspect, SIZEL* size) noexcept override;
  STDMETHODIMP Advise(IAdviseSink* sink, DWORD* cookie) noexcept override;
  STDMETHODIMP Unadvise(DWORD cookie) noexcept override;
  STDMETHODIMP EnumAdvise(IEnumSTATDATA** sinks) noexcept override;
  STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) noexcept override;
  STDMETHODIMP SetColorScheme(LOGPALETTE*) noexcept override { return E_NOTIMPL; }

  STDMETHODIMP GetControlInfo(CONTROLINFO* info) noexcept override;
  STDMETHODIMP OnMnemonic(MSG* message) noexcept override;
  STDMETHODIMP OnAmbientPropertyChange(DISPID property) noexcept override;
  STDMETHODIMP FreezeEvents(BOOL frozen) noexcept override;

 private:
  SIZEL extent_{4000, 600};
  Pointer<IOleAdviseHolder> advised_;
};

}  // namespace quillet::windows
