// A window of the system's kinds that belongs to an object, which sees the messages before the
// window does. No exception leaves the window's procedure.
#pragma once

#include <windows.h>

#include <optional>

namespace quillet::windows {

// A message to a window.
struct WindowMessage {
  UINT id = 0;
  WPARAM wide = 0;
  LPARAM longer = 0;
};

class OwnedWindow {
 public:
  OwnedWindow() = default;
  // Destroys the window.
  virtual ~OwnedWindow();
  OwnedWindow(const OwnedWindow&) = delete;
  OwnedWindow& operator=(const OwnedWindow&) = delete;

  // Null when it went with its parent.
  HWND window() const { return window_; }

 protected:
  // Called once by the derived class with its window.
  void adopt(HWND window);
  // An answer keeps the message from the window.
  virtual std::optional<LRESULT> handle(const WindowMessage& message) = 0;
  // What the window itself does with it.
  LRESULT passOn(const WindowMessage& message);
  // Handling a message failed; the exception is being handled.
  virtual void failed() noexcept {}

 private:
  static LRESULT CALLBACK receive(HWND window, UINT id, WPARAM wide, LPARAM longer, UINT_PTR,
                                  DWORD_PTR owner);

  HWND window_ = nullptr;
};

}  // namespace quillet::windows
