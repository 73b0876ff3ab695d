// A date box: driven wholly by the model, key by key; the widget only shows text and caret.
#pragma once

#include "controls/mask_box.h"
#include "desktop/control_view.h"

class QLineEdit;

namespace quillet::desktop {

class MaskBoxView : public ControlView {
 public:
  MaskBoxView(MaskBox& box, view::ActionRunner& runner, QWidget* parent);

 protected:
  void draw() override;
  bool keyPressed(QKeyEvent& event) override;
  bool otherEvent(QObject* target, QEvent& event) override;

 private:
  void typeText(const QString& text);

  MaskBox& box_;
  QLineEdit* line_;
};

}  // namespace quillet::desktop
