// A window of the module's own kind, with caption and border. No exception leaves its procedure.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>

namespace quillet::windows {

class TopWindow {
 public:
  // Not shown yet. `owner`: what it always stays above, or null.
  explicit TopWindow(HWND owner);
  // Destroys the window.
  virtual ~TopWindow();
  TopWindow(const TopWindow&) = delete;
  TopWindow& operator=(const TopWindow&) = delete;

  // Null when Windows refused it, or somebody else destroyed it.
  HWND window() const { return window_; }

 protected:
  // The window asks nothing of the object any more: a derived class is about to go.
  void release();

  // A message; without an answer Windows does what is usual.
  virtual std::optional<LRESULT> handle(UINT message, WPARAM wide, LPARAM longer) = 0;
  // Somebody else destroyed the window: the host ends, or the window below it went.
  virtual void lost() = 0;
  // Handling a message failed; the exception is being handled.
  virtual void failed() noexcept = 0;

 private:
  class Class;

  static LRESULT CALLBACK receive(HWND window, UINT message, WPARAM wide, LPARAM longer);
  std::optional<LRESULT> answer(UINT message, WPARAM wide, LPARAM longer) noexcept;

  std::shared_ptr<Class> class_;
  HWND window_ = nullptr;
};

}  // namespace quillet::windows
