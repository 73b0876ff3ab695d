// The label of a field. Its access key sends the focus to the field's control, through the form.
#pragma once

#include <QLabel>

#include "desktop/control_view.h"

namespace quillet::desktop {

class FieldLabel : public QLabel {
 public:
  FieldLabel(const QString& text, ControlView& view, Stage& stage)
      : QLabel(text, view.widget()->parentWidget()), control_(view.control()), stage_(stage) {
    setTextFormat(Qt::PlainText);
    setBuddy(view.widget());
  }

 protected:
  bool event(QEvent* event) override {
    if (event->type() != QEvent::Shortcut) return QLabel::event(event);
    stage_.perform([&] { control_.form().focus(control_); });
    return true;
  }

 private:
  Control& control_;
  Stage& stage_;
};

}  // namespace quillet::desktop
