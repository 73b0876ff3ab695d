// The window of any form: its menu bar, its controls in the form's arrangement, its caption. Draws
// what the form says and passes on what a person does; it decides nothing by itself.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>

#include "controls/form.h"
#include "view/access_keys.h"
#include "windows/ui/drop_downs.h"
#include "windows/ui/form_views.h"
#include "windows/ui/form_windows.h"
#include "windows/ui/keys.h"
#include "windows/ui/menu.h"
#include "windows/ui/metrics.h"
#include "windows/ui/modal.h"
#include "windows/ui/top_window.h"

namespace quillet::windows {

class FormWindow : private TopWindow {
 public:
  // Not shown yet. `below`: the window that it appears in front of; a modal form stays there.
  FormWindow(Form& form, FormWindows& windows, HWND below, const FormWindows::Place& place);
  ~FormWindow() override;

  Form& form() const { return form_; }
  using TopWindow::window;

  // Draws what changed since the last time and lets the focus of Windows follow the form's.
  void refresh() noexcept;
  void show();
  // Takes the input of all other windows, and gives it back.
  void cover();
  void uncover() { covered_.reset(); }
  // The form is closed: the window takes no more notice of it.
  void detach();
  // Disappears; `next` is the window to work in.
  void close(HWND next);
  void forgetOwner(HWND owner);
  void moveTo(const FormWindows::Place& place);
  // Keeps where a person left it and how wide columns were made.
  void keepPlace() noexcept;

  // True when the key is a command's shortcut, which has run.
  bool shortcut(const MSG& message) noexcept;

 private:
  std::optional<LRESULT> handle(UINT message, WPARAM wide, LPARAM longer) override;
  void lost() override;
  void failed() noexcept override;

  std::optional<LRESULT> system(UINT message, WPARAM wide, LPARAM longer);
  std::optional<LRESULT> command(WPARAM wide, LPARAM longer);
  std::optional<LRESULT> coloured(HDC paper, HWND part);
  std::optional<LRESULT> keys(UINT message, WPARAM wide);
  void resized(WPARAM how);
  void bound(MINMAXINFO& bounds) const;
  bool access(wchar_t character);

  void draw();
  void place();
  void takeFonts(UINT dpi);
  void fitFonts();
  void grow();
  SIZE mostRoom() const;
  void takeSize(HWND beside, const FormWindows::Place& place);
  void restore();
  void followFocus();
  void showCues(bool shown);
  template <class Body>
  void guarded(Body&& body) noexcept;

  Form& form_;
  FormWindows& windows_;
  Metrics::Wish font_;
  std::unique_ptr<Metrics> metrics_;
  FormMenu menu_;
  std::unique_ptr<FormViews> views_;
  std::unique_ptr<DropDowns> lists_;
  std::optional<Covered> covered_;
  view::AccessKeys access_;
  KeyReader keys_;
  FormViews::Needs needs_;  // of the client area
  view::Bounds given_;      // where it was put before a person came to it
  unsigned drawn_ = 0;
  unsigned arranged_ = 0;
  bool maximizes_ = false;  // when it is shown first
  bool cuesShown_ = true;
  bool detached_ = false;
};

// No exception passes into Windows.
template <class Body>
void FormWindow::guarded(Body&& body) noexcept {
  try {
    body();
  } catch (...) {
    failed();
  }
}

}  // namespace quillet::windows
