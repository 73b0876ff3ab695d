// A date box: driven wholly by the model, key by key; the window only shows text and caret.
#pragma once

#include "controls/mask_box.h"
#include "windows/ui/control_view.h"

namespace quillet::windows {

class MaskView : public ControlView {
 public:
  MaskView(MaskBox& box, view::ActionRunner& runner, HWND parent);

  SIZE wantedSize(const Metrics& metrics) const override;

 protected:
  void draw() override;
  std::optional<LRESULT> received(const WindowMessage& message) override;
  void keysTyped(const std::vector<Key>& typed) override;
  bool commandKey(WPARAM code) override;
  bool mousePressed(const WindowMessage& message, bool arrived) override;

 private:
  void showCaret();
  LRESULT copy();

  MaskBox& box_;
};

}  // namespace quillet::windows
