#include "desktop/control_view.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QWidget>

#include "desktop/text.h"

namespace quillet::desktop {

void ControlView::adopt(QWidget* widget) {
  widget_ = widget;
  setParent(widget);
  QString name = toQt(control_.name());
  if (control_.index() >= 0) name += QString::number(control_.index());
  widget->setObjectName(name);
  widget->hide();  // until it is drawn
  watch(widget);
}

void ControlView::watch(QWidget* part) {
  part->setFocusPolicy(Qt::NoFocus);
  part->installEventFilter(this);
}

void ControlView::refresh() {
  if (!detached_ && drawn_ != control_.version()) redraw();
}

void ControlView::redraw() {
  if (detached_) return;
  drawn_ = control_.version();
  const QScopedValueRollback<bool> guard(drawing_, true);
  widget_->setEnabled(control_.enabled());
  widget_->setToolTip(toQt(control_.toolTip()));
  draw();
  drawVisible(control_.visible());
  drawLabel();
}

void ControlView::drawLabel() {
  if (!label_) return;
  label_->setVisible(control_.visible());
  label_->setEnabled(control_.enabled());
}

void ControlView::drawVisible(bool visible) { widget_->setVisible(visible); }

bool ControlView::hasFocus() const {
  QWidget* window = widget_->window();
  QWidget* focus = window->focusWidget();
  return focus && (focus == widget_ || widget_->isAncestorOf(focus));
}

void ControlView::takeFocus() { widget_->setFocus(Qt::OtherFocusReason); }

void ControlView::detach() { detached_ = true; }

void ControlView::setLabel(QWidget* label) {
  label_ = label;
  drawLabel();
}

void ControlView::discard() {
  detach();
  for (QWidget* part : {widget_, label_}) {
    if (!part) continue;
    part->hide();
    part->deleteLater();
  }
}

void ControlView::press(Key key) {
  perform([&] { control_.form().press(key); });
}

bool ControlView::keyPressed(QKeyEvent& event) {
  const std::vector<Key> typed = keysOf(event);
  for (const Key key : typed) press(key);
  return !typed.empty();
}

bool ControlView::mousePressed(QObject*, QMouseEvent&, bool) { return false; }

bool ControlView::otherEvent(QObject*, QEvent&) { return false; }

bool ControlView::arrive() {
  if (!control_.takesFocus()) return true;
  bool arrived = false;
  const int before = runner_.interruptions();
  perform(
      [&] { arrived = control_.form().focus(control_) && control_.form().active() == &control_; });
  return arrived && runner_.interruptions() == before;
}

bool ControlView::eventFilter(QObject* target, QEvent* event) {
  if (detached_ || drawing_) return false;
  switch (event->type()) {
    case QEvent::MouseButtonPress: {
      const bool before = control_.form().active() == &control_;
      return !arrive() || mousePressed(target, static_cast<QMouseEvent&>(*event), !before);
    }
    case QEvent::KeyPress:
      return keyPressed(static_cast<QKeyEvent&>(*event));
    default:
      return otherEvent(target, *event);
  }
}

}  // namespace quillet::desktop
