// A date box: driven wholly by the model, key by key; the window only shows text and caret.
#pragma once

#include "controls/mask_box.h"
#include "windows/ui/control_view.h"

namespace quillet::windows {

class MaskView : public ControlView {
 public:
  MaskView(MaskBox& box, view::ActionRunner& runner, HWND parent);

  SIZE wantedSize(const Metrics& metrics) const override;
  bool keepsKey(WPARAM code) const override;

 protected:
  void draw() override;
  bool mousePressed(const WindowMessage& message, bool arrived) override;
  bool commandKey(WPARAM code) override;
  void keysTyped(const std::vector<Key>& typed) override;
  std::optional<LRESULT> received(const WindowMessage& message) override;

 private:
  void showCaret();
  LRESULT copy();

  MaskBox& box_;
};

}  // namespace quillet::windows
