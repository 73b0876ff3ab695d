#include "desktop/control_view.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QWidget>

#include "controls/spoken_name.h"
#include "desktop/text.h"

namespace quillet::desktop {

void ControlView::adopt(QWidget* widget) {
  widget_ = widget;
  setParent(widget);
  QString name = toQt(control().name());
  if (control().index() >= 0) name += QString::number(control().index());
  widget->setObjectName(name);
  widget->hide();  // until it is drawn
  watch(widget);
}

void ControlView::watch(QWidget* part) {
  part->setFocusPolicy(Qt::NoFocus);
  part->installEventFilter(this);
}

void ControlView::refresh() {
  if (!detached() && isOutdated()) redraw();
}

void ControlView::redraw() {
  if (detached()) return;
  markDrawn();
  const QScopedValueRollback<bool> guard(drawing_, true);
  widget_->setEnabled(control().enabled());
  widget_->setToolTip(toQt(control().toolTip()));
  draw();
  drawName();
  drawVisible(control().visible());
  drawLabel();
}

void ControlView::drawName() {
  const QString name = toQt(spokenName(control()));
  if (widget_->accessibleName() == name) return;
  widget_->setAccessibleName(name);
  // The toolkit calls a combo by its choice.
  if (widget_->inherits("QComboBox")) widget_->setAccessibleDescription(name);
}

void ControlView::drawLabel() {
  if (!label_) return;
  label_->setVisible(control().visible());
  label_->setEnabled(control().enabled());
}

void ControlView::drawVisible(bool visible) { widget_->setVisible(visible); }

bool ControlView::hasFocus() const {
  QWidget* window = widget_->window();
  QWidget* focus = window->focusWidget();
  return focus && (focus == widget_ || widget_->isAncestorOf(focus));
}

void ControlView::takeFocus() { widget_->setFocus(Qt::OtherFocusReason); }

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

bool ControlView::keyPressed(QKeyEvent& event) {
  const std::vector<Key> typed = keysOf(event);
  pressAll(typed);
  return !typed.empty();
}

bool ControlView::mousePressed(QObject*, QMouseEvent&, bool) { return false; }

bool ControlView::otherEvent(QObject*, QEvent&) { return false; }

// A key that an open menu has no use for, and Alt with a letter that is no access key: the control
// behind is not meant.
bool ControlView::isNobodys(const QKeyEvent& key) {
  if (qobject_cast<QMenu*>(QApplication::activePopupWidget()) != nullptr) return true;
  const Qt::KeyboardModifiers held = key.modifiers();
  return held & Qt::AltModifier && !(held & Qt::ControlModifier) && !key.text().isEmpty() &&
         namedKey(key.key()) == keys::none;
}

bool ControlView::eventFilter(QObject* target, QEvent* event) {
  if (detached() || drawing_) return false;
  switch (event->type()) {
    case QEvent::MouseButtonPress: {
      const bool before = isActive();
      return !arrive() || mousePressed(target, static_cast<QMouseEvent&>(*event), !before);
    }
    case QEvent::KeyPress: {
      auto& key = static_cast<QKeyEvent&>(*event);
      return isNobodys(key) || keyPressed(key);
    }
    default:
      return otherEvent(target, *event);
  }
}

}  // namespace quillet::desktop
