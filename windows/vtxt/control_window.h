// The control's window while it is active in place: the box, stretched over all of it. Performs
// what a person does there, and keeps the core's focus where that of Windows is.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

#include "view/action_runner.h"
#include "windows/ui/owned_window.h"
#include "windows/vtxt/box_view.h"

namespace quillet::windows {

class VTxtControl;

class ControlWindow final : public OwnedWindow, public view::ActionRunner {
 public:
  explicit ControlWindow(VTxtControl& control) : control_(control) {}
  ~ControlWindow() override;

  bool create(HWND parent, const RECT& where);
  void destroy();
  // The window itself, or the box in it.
  bool owns(HWND window) const;

  void show(bool visible);
  // `shown` is the part of it that the container does not cover; null for all.
  void place(const RECT& where, const RECT* shown);
  // Draws everything anew.
  void update();

  bool hasFocus() const { return owns(GetFocus()); }
  void takeFocus();
  // The core is told where the focus is, when it went by other ways than the core's.
  void followFocus();
  // Told by the box.
  void focusCame();
  void focusWent();
  // The container may act upon the key. True when it did.
  bool offerToContainer(MSG& key) const;

  // A message box with OK and no icon.
  void tell(const std::string& text);

  void perform(const std::function<void()>& action) override;
  int interruptions() const override { return interruptions_; }

 private:
  std::optional<LRESULT> handle(const WindowMessage& message) override;
  void failed() noexcept override;
  void passFocusOn();

  VTxtControl& control_;
  std::unique_ptr<BoxView> view_;
  int depth_ = 0;
  int interruptions_ = 0;
  bool telling_ = false;
};

}  // namespace quillet::windows
