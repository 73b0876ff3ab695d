// The control as a picture, for a container that draws it while it is not active, or prints it.
#pragma once

#include <ole2.h>

#include "windows/com/pointer.h"
#include "windows/vtxt/control_part.h"

namespace quillet::windows {

class ViewObject final : public ControlPart<IViewObject2> {
 public:
  using ControlPart::ControlPart;

  // The picture is another one.
  void changed();

  STDMETHODIMP Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC surface, LPCRECTL bounds,
                    LPCRECTL, BOOL(STDMETHODCALLTYPE* go)(ULONG_PTR), ULONG_PTR) noexcept override;
  STDMETHODIMP GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC,
                           LOGPALETTE** colours) noexcept override;
  STDMETHODIMP Freeze(DWORD, LONG, void*, DWORD*) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP Unfreeze(DWORD) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept override;
  STDMETHODIMP GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) noexcept override;
  STDMETHODIMP GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) noexcept override;

 private:
  Pointer<IAdviseSink> sink_;
  DWORD aspects_ = 0;
  DWORD flags_ = 0;
};

}  // namespace quillet::windows
