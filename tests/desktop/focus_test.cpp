// Focus, clicks, access keys and menus: Qt follows the form, and never the other way round.
#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>

#include "desktop/desktop_test.h"

namespace quillet::desktop {
namespace {

class Focus : public DesktopTest {
 protected:
  void expectFocus(const Control& control) {
    EXPECT_EQ(form.active(), &control) << form.active()->name();
    QWidget* focus = window()->focusWidget();
    ASSERT_TRUE(focus);
    EXPECT_TRUE(focus == widget(control)) << focus->objectName().toStdString();
  }
  std::string lastSeen() {
    const auto lines = form.takeEvents();
    return lines.empty() ? "" : lines.back();
  }
};

TEST_F(Focus, FollowsTheFormsTabOrder) {
  const Control* expected[] = {&form.cmdmode[0], &form.cmdmode[1], &form.cmdmode[2],
                               &form.vsf,        &form.txtname,    &form.txtamount,
                               &form.mskdate,    &form.cbogroup};
  for (const Control* control : expected) {
    expectFocus(*control);
    key(Qt::Key_Tab);
  }
  key(Qt::Key_Backtab, Qt::ShiftModifier);
  expectFocus(form.cbogroup);
}

TEST_F(Focus, AClickAsksTheFormFirst) {
  click(widget(form.txtname));
  expectFocus(form.txtname);
  form.keepFocus = true;
  click(widget(form.txtamount));
  expectFocus(form.txtname);
  form.takeEvents();
  click(widget(form.cmdmode[0]));
  EXPECT_TRUE(form.takeEvents().empty()) << "a box that keeps the focus keeps the click too";
  form.keepFocus = false;
  click(widget(form.txtamount));
  expectFocus(form.txtamount);
}

TEST_F(Focus, GoesToTheNextControlWhenItsOwnIsHidden) {
  focus(form.txtname);
  QTest::keyClick(window()->focusWidget(), Qt::Key_Tab);
  form.famlist.setVisible(false);
  form.fampage.setVisible(true);
  theApplication().windows().perform([] {});
  EXPECT_TRUE(widget(form.cmdback)->isVisible());
  EXPECT_FALSE(widget(form.vsf)->isVisible());
  focus(form.cmdback);
  key(Qt::Key_Space);
  EXPECT_TRUE(widget(form.vsf)->isVisible());
  ASSERT_TRUE(form.active());
  EXPECT_TRUE(widget(*form.active())->hasFocus());
}

TEST_F(Focus, ButtonsAndTogglesRunTheirHandlersOnce) {
  const std::pair<Control*, const char*> cases[] = {{&form.cmdmode[0], "click cmdmode0"},
                                                    {&form.chkall, "click chkall"},
                                                    {&form.optside[1], "click optside1"}};
  for (const auto& [control, event] : cases) {
    QWidget* target = widget(*control);
    click(target, QPoint(12, target->height() / 2));
    const auto seen = form.takeEvents();
    EXPECT_EQ(std::count(seen.begin(), seen.end(), event), 1) << event;
    expectFocus(*control);
    key(Qt::Key_Space);
    EXPECT_EQ(form.takeEvents(), std::vector<std::string>{event});
  }
  EXPECT_FALSE(form.chkall.checked());  // ticked by the click, cleared by the key
  EXPECT_FALSE(widget<QAbstractButton>(form.chkall)->isChecked());
  EXPECT_TRUE(widget<QAbstractButton>(form.optside[1])->isChecked());
  EXPECT_FALSE(widget<QAbstractButton>(form.optside[0])->isChecked());
}

TEST_F(Focus, AChosenCommandIsDrawnAndDrawnAnewWhenItIsNoMore) {
  auto* push = widget<QAbstractButton>(form.cmdmode[0]);
  const QImage plain = push->grab().toImage();
  form.cmdmode[0].setChosen(true);
  settle();
  EXPECT_NE(push->grab().toImage(), plain);
  struct Paints : QObject {
    int count = 0;
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::Paint) ++count;
      return false;
    }
  } paints;
  push->installEventFilter(&paints);
  form.cmdmode[0].setChosen(false);
  settle();
  EXPECT_GT(paints.count, 0);
  EXPECT_EQ(push->grab().toImage(), plain);
}

TEST_F(Focus, AccessKeysReachButtonsFieldsAndMenus) {
  QTest::keyClick(window(), Qt::Key_C, Qt::AltModifier);
  EXPECT_EQ(lastSeen(), "click cmdmode0");
  QTest::keyClick(window(), Qt::Key_N, Qt::AltModifier);
  expectFocus(form.txtname);
  QTest::keyClick(window(), Qt::Key_G, Qt::AltModifier);
  expectFocus(form.cbogroup);
  form.takeEvents();
  QTest::keyClick(window(), Qt::Key_Insert);
  EXPECT_EQ(lastSeen(), "click mnunew");
}

TEST_F(Focus, MenusShowTheirEntriesAsTheyStand) {
  const auto menus = window()->menuBar()->actions();
  ASSERT_EQ(menus.size(), 2);
  const auto years = menus[1]->menu()->actions();
  ASSERT_EQ(years.size(), 2);
  EXPECT_TRUE(years[0]->isChecked());
  EXPECT_FALSE(years[1]->isCheckable());
  EXPECT_TRUE(menus[0]->menu()->actions()[1]->isSeparator());
  years[0]->trigger();
  EXPECT_TRUE(years[0]->isChecked()) << "ticks are the form's, not the menu's";
  EXPECT_EQ(lastSeen(), "click mnuyrs0");
  form.mnuyrs[1].setEnabled(false);
  form.mnuyrs.load("&Both", &form.mnuview);
  settle();
  const auto after = window()->menuBar()->actions()[1]->menu()->actions();
  ASSERT_EQ(after.size(), 3);
  EXPECT_FALSE(after[1]->isEnabled());
}

TEST_F(Focus, ChoicesGoToTheModel) {
  focus(form.cbogroup);
  key(Qt::Key_Down);
  key(Qt::Key_S);
  EXPECT_EQ(form.cbogroup.text(), "Sundry Debtors");
  EXPECT_EQ(widget<QComboBox>(form.cbogroup)->currentText(), "Sundry Debtors");
  auto* list = widget<QListWidget>(form.lstyears);
  click(list->viewport(), list->visualItemRect(list->item(1)).center());
  EXPECT_EQ(form.lstyears.text(), "2008-09");
  expectFocus(form.lstyears);
  key(Qt::Key_Down);
  EXPECT_EQ(list->currentRow(), 2);
}

TEST_F(Focus, CaptionsAndHintsAreShownAsTheyAre) {
  form.lblhint.setCaption("R & D <b>Ltd</b>");
  form.setCaption("Other");
  settle();
  auto* hint = widget<QLabel>(form.lblhint);
  EXPECT_EQ(hint->text(), "R & D <b>Ltd</b>");
  EXPECT_EQ(hint->textFormat(), Qt::PlainText);
  EXPECT_EQ(window()->windowTitle(), "Other");
}

TEST_F(Focus, ARefusedCloseLeavesTheWindow) {
  form.mayClose = false;
  window()->close();
  ASSERT_TRUE(window());
  EXPECT_TRUE(window()->isVisible());
  form.mayClose = true;
  window()->close();
  EXPECT_EQ(window(), nullptr);
  EXPECT_TRUE(openForms.open().empty());
  settle();
  // A script goes on after the last window: dialogs still wait for their answers.
  whenAsked([] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Y); });
  EXPECT_EQ(
      theApplication().dialogs().MsgBox({"Go on?", "", Buttons::YesNo, Icon::question, Answer::No}),
      Answer::Yes);
  form.show();
  settle();
  ASSERT_TRUE(window());
  expectFocus(form.cmdmode[0]);
}

TEST_F(Focus, TheProgramEndsWithItsLastWindow) {
  whenAsked([&] { window()->close(); });
  EXPECT_EQ(theApplication().run(), 0);
  EXPECT_TRUE(openForms.open().empty());
}

TEST_F(Focus, AModalFormBlocksTheOneBelow) {
  DemoForm upper(openForms, "upper");
  bool closed = false;
  upper.showModal([&] { closed = true; });
  settle();
  FormWindow* above = theApplication().windows().of(upper);
  ASSERT_TRUE(above);
  EXPECT_EQ(above->windowModality(), Qt::ApplicationModal);
  EXPECT_EQ(QApplication::activeModalWidget(), above);
  EXPECT_FALSE(openForms.bringToFront(form));
  QTest::keyClick(above->focusWidget(), Qt::Key_W, Qt::ControlModifier);
  above->close();
  EXPECT_TRUE(closed);
  settle();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_EQ(theApplication().windows().front(), window());
}

}  // namespace
}  // namespace quillet::desktop
