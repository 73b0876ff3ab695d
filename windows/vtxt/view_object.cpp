#include "windows/vtxt/view_object.h"

#include <olectl.h>

#include "windows/com/text.h"
#include "windows/vtxt/vtxt_control.h"

namespace quillet::windows {
namespace {

// Leaves the surface as it was.
class SavedSurface {
 public:
  explicit SavedSurface(HDC surface) : surface_(surface), saved_(SaveDC(surface)) {}
  ~SavedSurface() { RestoreDC(surface_, saved_); }
  SavedSurface(const SavedSurface&) = delete;
  SavedSurface& operator=(const SavedSurface&) = delete;

 private:
  HDC surface_;
  int saved_;
};

void drawBox(HDC surface, RECT place, Appearance& look, const std::wstring& text) {
  const auto dpi = static_cast<UINT>(GetDeviceCaps(surface, LOGPIXELSY));
  const HFONT font = look.font.create(dpi);
  {
    const SavedSurface saved(surface);
    if (font) SelectObject(surface, font);
    FillRect(surface, &place, look.prepare(surface));
    DrawEdge(surface, &place, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
    InflateRect(&place, -1, -1);
    DrawTextW(surface, text.c_str(), static_cast<int>(text.size()), &place,
              DT_SINGLELINE | DT_NOPREFIX);
  }
  if (font) DeleteObject(font);
}

}  // namespace

STDMETHODIMP ViewObject::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC surface,
                              LPCRECTL bounds, LPCRECTL, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR),
                              ULONG_PTR) noexcept {
  if (!surface || !bounds) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  control_.logErrors("DRAW", [&] {
    const RECT place{bounds->left, bounds->top, bounds->right, bounds->bottom};
    drawBox(surface, place, control_.appearance,
            control_.appearance.shown(wide(control_.box().text())));
  });
  return S_OK;
}

STDMETHODIMP ViewObject::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC,
                                     LOGPALETTE** colours) noexcept {
  if (!colours) return E_POINTER;
  *colours = nullptr;
  return S_FALSE;
}

STDMETHODIMP ViewObject::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept {
  sink_ = sink;
  aspects_ = aspects;
  flags_ = flags;
  if (flags & ADVF_PRIMEFIRST) changed();
  return S_OK;
}

STDMETHODIMP ViewObject::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) noexcept {
  if (aspects) *aspects = aspects_;
  if (flags) *flags = flags_;
  if (sink) *sink = Pointer(sink_).detach();
  return S_OK;
}

STDMETHODIMP ViewObject::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) noexcept {
  return control_.oleObject.GetExtent(aspect, size);
}

void ViewObject::changed() {
  const auto sink = sink_;  // it may disconnect while it is told
  if (!sink) return;
  if (flags_ & ADVF_ONLYONCE) sink_ = {};
  sink->OnViewChange(DVASPECT_CONTENT, -1);
}

}  // namespace quillet::windows
