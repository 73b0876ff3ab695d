// What a screen reader finds in the windows: every control has a name, tables tell what is shown
// and nothing else, and what is new is told. Every page fits a small screen.
#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QTableView>
#include <memory>
#include <set>

#include "controls/mask_box.h"
#include "deletion/frmdelwhatinTB.h"
#include "desktop/desktop_test.h"
#include "desktop/text.h"
#include "forms/home_fixture.h"
#include "home/frmlock.h"
#include "journal/frmjrnl.h"
#include "masters/frmgrpRM.h"
#include "review/frmimport.h"
#include "review/frmvchimport.h"
#include "statements/frmstatements.h"
#include "suite/client_form.h"
#include "suite/firm_form.h"
#include "suite/settings_form.h"
#include "suite/stock_form.h"

namespace quillet::desktop {
namespace {

QAccessibleInterface& interfaceOf(QWidget& widget) {
  return *QAccessible::queryAccessibleInterface(&widget);
}

// The toolkit calls a combo by its choice.
QString nameOf(QWidget& widget) {
  const bool combo = widget.inherits("QComboBox");
  return interfaceOf(widget).text(combo ? QAccessible::Description : QAccessible::Name);
}

// What a person works with or reads as a whole.
bool needsName(const QWidget& widget) {
  for (const char* kind : {"QAbstractButton", "QComboBox", "QLineEdit", "QAbstractItemView"}) {
    if (widget.inherits(kind)) return true;
  }
  return false;
}

// A part of another widget or of the window has none of its own.
bool isPart(const QWidget& widget) {
  return widget.objectName().startsWith(u"qt_") || widget.inherits("QHeaderView");
}

class Accessibility : public support::HomeTest {
 protected:
  // The faults of the window as it is now.
  void examine(Form& form, std::set<std::string>& faults) {
    FormWindow* window = theApplication().windows().of(form);
    std::set<QString> editable;
    for (QWidget* widget : window->findChildren<QWidget*>()) {
      if (!widget->isVisible() || !needsName(*widget) || isPart(*widget)) continue;
      QString name = nameOf(*widget);
      const std::string what = form.name() + ' ' + fromQt(widget->objectName() + ' ' + name);
      if (name.isEmpty() || name.remove("& ").contains(u'&')) faults.insert("unnamed: " + what);
      const auto* line = dynamic_cast<QLineEdit*>(widget);
      const bool edits = (line && !line->isReadOnly()) || widget->inherits("QComboBox");
      if (edits && !editable.insert(name).second) faults.insert("twice: " + what);
    }
    for (Control* control : form.controls()) examineTable(*window, *control, faults);
    // A screen of 1024 x 600 but for a frame and a title bar.
    const QSize least = window->minimumSizeHint();
    if (least.width() > 1016 || least.height() > 560) faults.insert("too large: " + form.name());
    ++pages;
  }
  static void examineTable(FormWindow& window, const Control& control,
                           std::set<std::string>& faults) {
    const auto* grid = dynamic_cast<const Grid*>(&control);
    auto* view = grid ? window.findChild<QTableView*>(toQt(grid->name())) : nullptr;
    if (!view || !view->isVisible()) return;
    int rows = 0, columns = 0;
    for (int row = 1; row <= grid->rows(); ++row) rows += grid->rowHidden(row) ? 0 : 1;
    for (const GridColumn& column : grid->columns()) columns += column.hidden ? 0 : 1;
    const QAccessibleTableInterface* table = interfaceOf(*view).tableInterface();
    if (!table || table->rowCount() != rows || table->columnCount() != columns) {
      faults.insert("table: " + grid->name());
    }
  }
  // Every page of the form, one stack after the other.
  std::set<std::string> faultsOf(Form& form) {
    std::set<std::string> faults;
    form.show();
    theApplication().pump();
    examine(form, faults);
    for (const LayoutItem* stack : stacksIn(form.arrangement())) {
      for (const LayoutItem& chosen : stack->children) {
        for (const LayoutItem& page : stack->children) {
          page.control->setVisible(&page == &chosen);
        }
        theApplication().pump();
        examine(form, faults);
      }
    }
    return faults;
  }
  static std::vector<const LayoutItem*> stacksIn(const LayoutItem& node) {
    std::vector<const LayoutItem*> found;
    if (node.kind == LayoutItem::Kind::stack) found.push_back(&node);
    for (const LayoutItem& child : node.children) {
      for (const LayoutItem* each : stacksIn(child)) found.push_back(each);
    }
    return found;
  }

  int pages = 0;
};

TEST_F(Accessibility, EveryPageFitsAndNamesItsControlsAndTablesTellWhatIsShown) {
  const std::string table = addYear("C1", 2008, {{"Asha", "CAPITAL", -6}});
  select("C1", 2008);
  // On the heap: the database bounds the stack on which it works.
  const std::unique_ptr<Form> forms[] = {
      std::make_unique<third>(context()),
      std::make_unique<frmcrtb>(context()),
      std::make_unique<frmjrnl>(context()),
      std::make_unique<frmgrpmas>(context()),
      std::make_unique<frmtbledmas>(context()),
      std::make_unique<frmgrpRM>(context()),
      std::make_unique<frmdelwhatinTB>(context()),
      std::make_unique<frmimport>(context()),
      std::make_unique<frmvchimport>(context()),
      std::make_unique<suite::frmTrade>(context().openForms, dialogs, clock),
      std::make_unique<suite::frmSettings>(context().openForms, practice.settings(), dialogs,
                                           practice.environment().unit(), [] { return true; }),
      std::make_unique<suite::frmFirm>(
          context().openForms, suite::FirmName(practice.settings(), practice.environment().unit()),
          dialogs),
      std::make_unique<suite::frmClient>(context().openForms, practice.environment().unit(),
                                         dialogs, clock, [] { return 6L; }),
      std::make_unique<frmstatements>(context()),
      std::make_unique<frmlock>(context())};
  dialogs.answering = [](const Message&) { return Answer::No; };
  theApplication().follow(context().openForms);
  static_cast<suite::frmTrade&>(*forms[9]).LoadData(host(), "C1", table);
  static_cast<frmstatements&>(*forms[13]).INITDATA({table, "C1"}, "Asha", {"01042008", "31032009"});
  // Named by the mode in which the page is opened.
  static_cast<frmlock&>(*forms[14]).INITDATA("C1", "Asha", {"01042008", "31032009"});
  static_cast<third&>(*forms[0]).cmdyear.setCaption("Create &Year");
  for (const auto& form : forms) {
    EXPECT_EQ(faultsOf(*form), std::set<std::string>());
  }
  EXPECT_GE(pages, 20);
  theApplication().leave();
}

// What a screen reader reads when it is told that something changed.
TEST_F(DesktopTest, WhatIsNewCanBeRead) {
  focus(form.vsf);
  form.vsf.setCurrent(3);
  settle();
  QAccessibleInterface* current = interfaceOf(*widget(form.vsf)).focusChild();
  ASSERT_TRUE(current);
  EXPECT_EQ(current->tableCellInterface()->rowIndex(), 2);
  form.lblhint.setCaption("Saved 14:02");
  window()->setNotices({"The backup was not made."});
  settle();
  EXPECT_EQ(nameOf(*widget(form.lblhint)), "Saved 14:02");
  EXPECT_EQ(nameOf(*window()->findChild<QWidget*>("notice")->findChild<QLabel*>()),
            "The backup was not made.");
  focus(form.txtname);
  QAccessibleInterface& field = interfaceOf(*widget(form.txtname));
  EXPECT_EQ(field.text(QAccessible::Name), "Name");
  form.vsflist.setCurrent(2);
  settle();
  EXPECT_EQ(field.text(QAccessible::Description), "Cash in Hand");
  focus(form.txtamount);
  EXPECT_EQ(field.text(QAccessible::Description), "");
}

}  // namespace
}  // namespace quillet::desktop
