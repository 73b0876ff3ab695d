// The control as a window of its container: when it is there, where, and when it has the
// container's attention (UI active).
#pragma once

#include <ole2.h>

#include "windows/com/pointer.h"
#include "windows/vtxt/control_part.h"

namespace quillet::windows {

class InPlace final : public ControlPart<IOleInPlaceObject, IOleInPlaceActiveObject> {
 public:
  using ControlPart::ControlPart;

  // In the container's window, which the site names when the caller does not.
  HRESULT activate(HWND parent, const RECT* where);
  HRESULT uiActivate();
  void deactivate();
  // The container's frame; null while it is not active.
  const Pointer<IOleInPlaceFrame>& frame() const { return frame_; }

  STDMETHODIMP GetWindow(HWND* window) noexcept override;
  STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }

  STDMETHODIMP InPlaceDeactivate() noexcept override;
  STDMETHODIMP UIDeactivate() noexcept override;
  STDMETHODIMP SetObjectRects(LPCRECT where, LPCRECT shown) noexcept override;
  STDMETHODIMP ReactivateAndUndo() noexcept override { return E_NOTIMPL; }

  STDMETHODIMP TranslateAccelerator(LPMSG message) noexcept override;
  STDMETHODIMP OnFrameWindowActivate(BOOL) noexcept override { return S_OK; }
  STDMETHODIMP OnDocWindowActivate(BOOL) noexcept override { return S_OK; }
  STDMETHODIMP ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) noexcept override { return S_OK; }
  STDMETHODIMP EnableModeless(BOOL) noexcept override { return S_OK; }

 private:
  void setActiveObject(IOleInPlaceActiveObject* object);

  Pointer<IOleInPlaceSite> site_;  // while it is active
  Pointer<IOleInPlaceFrame> frame_;
  Pointer<IOleInPlaceUIWindow> document_;
  bool uiActive_ = false;
};

}  // namespace quillet::windows
