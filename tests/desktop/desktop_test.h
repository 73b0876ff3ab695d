// What the tests of the windows share: the one application of the process, a form on a screen with
// its window, and the widgets by their controls.
#pragma once

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTest>

#include "desktop/application.h"
#include "desktop/demo_form.h"
#include "desktop/form_window.h"

namespace quillet::desktop {

Application& theApplication();

// Runs when the program next waits for a person, as in a message box.
void whenAsked(std::function<void()> answer);

class DesktopTest : public testing::Test {
 protected:
  DesktopTest() {
    theApplication().follow(openForms);
    form.show();
    settle();
    form.takeEvents();
  }
  ~DesktopTest() override {
    theApplication().leave();
    settle();
  }

  void settle() { theApplication().pump(); }
  FormWindow* window() { return theApplication().windows().of(form); }

  template <class T = QWidget>
  T* widget(const Control& control) {
    QString name = QString::fromStdString(control.name());
    if (control.index() >= 0) name += QString::number(control.index());
    return window()->findChild<T*>(name);
  }
  void focus(Control& control) {
    form.focus(control);
    settle();
  }
  // Keys go where Qt's focus is, as from a keyboard.
  void type(const QString& text) {
    for (const QChar c : text) QTest::keyClick(window()->focusWidget(), c.toLatin1());
  }
  void key(Qt::Key code, Qt::KeyboardModifiers held = {}) {
    QTest::keyClick(window()->focusWidget(), code, held);
  }
  void click(QWidget* target, const QPoint& place = {}) {
    QTest::mouseClick(target, Qt::LeftButton, {}, place);
  }

  OpenForms openForms;
  DemoForm form{openForms};
};

}  // namespace quillet::desktop
