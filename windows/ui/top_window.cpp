#include "windows/ui/top_window.h"

#include "windows/ui/message_scope.h"
#include "windows/ui/this_module.h"
#include "windows/ui/visual_styles.h"

namespace quillet::windows {
namespace {

constexpr const wchar_t* className = L"QuilletForm";

}  // namespace

// Registered with the first window and unregistered with the last one, since the module may be
// unloaded then.
class TopWindow::Class {
 public:
  static std::shared_ptr<Class> get() {
    static std::weak_ptr<Class> known;
    std::shared_ptr<Class> found = known.lock();
    if (!found) known = found = std::make_shared<Class>();
    return found;
  }
  Class() {
    WNDCLASSEXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.lpfnWndProc = receive;
    wanted.hInstance = thisModule();
    wanted.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    wanted.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    wanted.lpszClassName = className;
    RegisterClassExW(&wanted);
  }
  ~Class() { UnregisterClassW(className, thisModule()); }
  Class(const Class&) = delete;
  Class& operator=(const Class&) = delete;
};

TopWindow::TopWindow(HWND owner) : class_(Class::get()) {
  const VisualStyles styles;
  window_ = CreateWindowExW(WS_EX_CONTROLPARENT, className, L"",
                            WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT,
                            640, 480, owner, nullptr, thisModule(), nullptr);
  // Only now: what is told before finds nobody who could answer.
  if (window_) SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

TopWindow::~TopWindow() {
  release();
  if (window_) DestroyWindow(window_);
}

void TopWindow::release() {
  if (window_) SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
}

std::optional<LRESULT> TopWindow::answer(UINT message, WPARAM wide, LPARAM longer) noexcept {
  try {
    if (message != WM_NCDESTROY) return handle(message, wide, longer);
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    window_ = nullptr;
    lost();
  } catch (...) {
    failed();
  }
  return {};
}

LRESULT CALLBACK TopWindow::receive(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  const MessageScope scope;
  auto* self = reinterpret_cast<TopWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  const auto answer = self ? self->answer(message, wide, longer) : std::nullopt;
  return answer ? *answer : DefWindowProcW(window, message, wide, longer);
}

}  // namespace quillet::windows
