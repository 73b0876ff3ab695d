#include "windows/ui/visual_styles.h"

#include <commctrl.h>

#include <array>

#include "windows/ui/this_module.h"

namespace quillet::windows {
namespace {

// Of the module's manifest; kept for as long as the module is loaded.
HANDLE context() {
  static const HANDLE made = [] {
    std::array<wchar_t, 32768> path{};
    GetModuleFileNameW(thisModule(), path.data(), static_cast<DWORD>(path.size()));
    ACTCTXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
    wanted.lpSource = path.data();
    wanted.lpResourceName = MAKEINTRESOURCEW(2);
    wanted.hModule = thisModule();
    return CreateActCtxW(&wanted);
  }();
  return made;
}

// Registers the classes of the controls, in the version of the context.
void registerControls() {
  static const bool once = [] {
    INITCOMMONCONTROLSEX classes{};
    classes.dwSize = sizeof classes;
    classes.dwICC = ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES;
    InitCommonControlsEx(&classes);
    return true;
  }();
  static_cast<void>(once);
}

}  // namespace

VisualStyles::VisualStyles()
    : active_(context() != INVALID_HANDLE_VALUE && ActivateActCtx(context(), &cookie_)) {
  registerControls();
}

VisualStyles::~VisualStyles() {
  if (active_) DeactivateActCtx(0, cookie_);
}

}  // namespace quillet::windows
