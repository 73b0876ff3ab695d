// The label of a field. Its access key sends the focus to the field's control, through the form.
#pragma once

#include <QLabel>

#include "desktop/control_view.h"

namespace quillet::desktop {

class FieldLabel : public QLabel {
 public:
  FieldLabel(const QString& text, view::ActionRunner& runner, QWidget* parent)
      : QLabel(text, parent), runner_(runner) {
    setTextFormat(Qt::PlainText);
    hide();  // until it belongs to a field
  }
  // The field that it belongs to from now on.
  void setField(ControlView& view) {
    control_ = &view.control();
    setBuddy(view.widget());
    view.setLabel(this);
  }

 protected:
  bool event(QEvent* event) override {
    if (event->type() != QEvent::Shortcut) return QLabel::event(event);
    runner_.perform([&] { control_->form().focus(*control_); });
    return true;
  }

 private:
  Control* control_ = nullptr;
  view::ActionRunner& runner_;
};

}  // namespace quillet::desktop
