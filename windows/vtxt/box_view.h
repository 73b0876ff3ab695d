// The text box within, which looks as the container wants it to. It tells the container of the keys
// by their codes and of the mouse, for which the core has no events.
#pragma once

#include "windows/ui/text_view.h"
#include "windows/vtxt/appearance.h"
#include "windows/vtxt/control_site.h"
#include "windows/vtxt/events.h"

namespace quillet::windows {

class ControlWindow;
class VTxtControl;

class BoxView final : public TextView {
 public:
  BoxView(VTxtControl& control, ControlWindow& parent);
  ~BoxView() override;

  // Font, colours or the password's character changed.
  void restyle();
  std::optional<LRESULT> coloured(HDC surface) override;

 protected:
  std::optional<LRESULT> received(const WindowMessage& message) override;

 private:
  // What comes before the box sees it. False: a sink discarded the key.
  bool tellFirst(WindowMessage& message) const;
  // What comes afterwards.
  void tellLast(const WindowMessage& message);
  POINTF mouseAt(LPARAM pixels) const;

  VTxtControl& control_;
  ControlWindow& parent_;
  HFONT font_ = nullptr;
  bool pressed_ = false;  // the left button, in the box
};

}  // namespace quillet::windows
