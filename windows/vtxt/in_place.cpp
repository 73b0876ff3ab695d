#include "windows/vtxt/in_place.h"

#include <ocidl.h>

#include <utility>

#include "windows/ui/keys.h"
#include "windows/ui/message_scope.h"
#include "windows/vtxt/vtxt_control.h"

namespace quillet::windows {
namespace {

// Keys with which the box does something itself.
bool isOfTheBox(const MSG& message) {
  if (message.message != WM_KEYDOWN || isCommand()) return false;
  switch (message.wParam) {
    case VK_TAB:
    case VK_RETURN:
    case VK_LEFT:
    case VK_RIGHT:
    case VK_HOME:
    case VK_END:
    case VK_DELETE:
    case VK_BACK:
      return true;
    default:
      return false;
  }
}

}  // namespace

HRESULT InPlace::activate(HWND parent, const RECT* where) {
  if (site_) {
    control_.window.show(true);
    return S_OK;
  }
  const auto site = control_.site.query<IOleInPlaceSite>();
  if (!site) return E_FAIL;
  if (site->CanInPlaceActivate() != S_OK) return OLE_E_NOT_INPLACEACTIVE;
  const HRESULT activated = site->OnInPlaceActivate();
  if (FAILED(activated)) return activated;
  site_ = site;

  HWND named = nullptr;
  if (SUCCEEDED(site_->GetWindow(&named)) && named) parent = named;
  RECT place = where ? *where : RECT{};
  RECT shown = place;
  OLEINPLACEFRAMEINFO info{};
  info.cb = sizeof info;
  if (FAILED(site_->GetWindowContext(frame_.put(), document_.put(), &place, &shown, &info))) {
    shown = place;
  }
  if (!control_.window.create(parent, place)) {
    deactivate();
    return E_FAIL;
  }
  SetObjectRects(&place, &shown);
  control_.window.show(true);
  control_.site.get()->ShowObject();
  return S_OK;
}

HRESULT InPlace::uiActivate() {
  if (!site_) return OLE_E_NOT_INPLACEACTIVE;
  if (std::exchange(uiActive_, true)) return S_OK;
  const HRESULT activated = site_->OnUIActivate();
  if (FAILED(activated)) {
    uiActive_ = false;
    return activated;
  }
  setActiveObject(this);
  if (frame_) frame_->SetBorderSpace(nullptr);  // no toolbars of its own
  return S_OK;
}

void InPlace::setActiveObject(IOleInPlaceActiveObject* object) {
  const wchar_t* name = object ? L"VTxt" : nullptr;
  if (frame_) frame_->SetActiveObject(object, name);
  if (document_) document_->SetActiveObject(object, name);
}

STDMETHODIMP InPlace::UIDeactivate() noexcept {
  if (!site_ || !std::exchange(uiActive_, false)) return S_OK;
  control_.window.followFocus();
  setActiveObject(nullptr);
  if (site_) site_->OnUIDeactivate(FALSE);
  return S_OK;
}

void InPlace::deactivate() {
  if (!site_) return;
  UIDeactivate();
  control_.window.destroy();
  const auto site = std::exchange(site_, {});
  frame_ = {};
  document_ = {};
  if (site) site->OnInPlaceDeactivate();
}

STDMETHODIMP InPlace::InPlaceDeactivate() noexcept {
  const MessageScope scope;
  deactivate();
  return S_OK;
}

STDMETHODIMP InPlace::GetWindow(HWND* window) noexcept {
  if (!window) return E_POINTER;
  *window = control_.window.window();
  return *window ? S_OK : E_FAIL;
}

STDMETHODIMP InPlace::SetObjectRects(LPCRECT where, LPCRECT shown) noexcept {
  if (!where) return E_POINTER;
  control_.window.place(*where, shown);
  return S_OK;
}

// The container asks before it acts upon a key itself.
STDMETHODIMP InPlace::TranslateAccelerator(LPMSG message) noexcept {
  if (!message) return E_POINTER;
  if (!control_.window.owns(message->hwnd)) return S_FALSE;
  if (isOfTheBox(*message)) {
    TranslateMessage(message);
    DispatchMessageW(message);
    return S_OK;
  }
  return control_.window.offerToContainer(*message) ? S_OK : S_FALSE;
}

}  // namespace quillet::windows
