// The view of one control: a widget that shows the control's state and hands what a person does to
// its form. The widget never takes the focus by itself; the form decides where the focus is, and
// the window lets Qt's focus follow.
#pragma once

#include <QObject>
#include <utility>

#include "view/control_tie.h"

class QKeyEvent;
class QMouseEvent;
class QWidget;

namespace quillet::desktop {

class ControlView : public QObject, public view::ControlTie {
 public:
  // The view belongs to its widget and goes with it.
  ControlView(Control& control, view::ActionRunner& runner) : ControlTie(control, runner) {}

  // What stands in the form's arrangement.
  QWidget* widget() const { return widget_; }
  // Draws the control when it has changed since it was drawn last.
  void refresh();
  // Draws it in any case.
  void redraw();
  // Whether Qt's focus is where this control's keys arrive.
  bool hasFocus() const;
  void takeFocus();
  // The label before or above the widget, which comes and goes with it.
  void setLabel(QWidget* label);
  QWidget* takeLabel() { return std::exchange(label_, nullptr); }
  // The control has no place any more: widget and label go as soon as no event is at work in them.
  void discard();

 protected:
  // Called once by the derived class with its widget.
  void adopt(QWidget* widget);
  // Lets a part of the widget (a table's viewport) act for the whole.
  void watch(QWidget* part);

  // Shows the control's state; what all controls have is drawn already.
  virtual void draw() = 0;
  virtual void drawVisible(bool visible);
  // True when the key was used.
  virtual bool keyPressed(QKeyEvent& event);
  // A press of the mouse while the control has the focus. True keeps it from the widget. `arrived`:
  // this press brought the focus.
  virtual bool mousePressed(QObject* target, QMouseEvent& event, bool arrived);
  virtual bool otherEvent(QObject* target, QEvent& event);

  bool eventFilter(QObject* target, QEvent* event) override;
  static bool isNobodys(const QKeyEvent& key);
  // While drawing, signals of the widget are the view's own doing and not a person's.
  bool drawing() const { return drawing_; }

 private:
  void drawName();
  void drawLabel();

  QWidget* widget_ = nullptr;
  QWidget* label_ = nullptr;
  bool drawing_ = false;
};

}  // namespace quillet::desktop
