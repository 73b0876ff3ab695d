// The menu bar of a form, made from its menu entries. Entries may come and go while the form is
// open.
#pragma once

#include <map>
#include <vector>

#include "controls/basic_controls.h"
#include "controls/form.h"
#include "view/action_runner.h"

class QAction;
class QMenu;
class QMenuBar;

namespace quillet::desktop {

class FormMenu {
 public:
  FormMenu(Form& form, view::ActionRunner& runner, QMenuBar& bar)
      : form_(form), runner_(runner), bar_(bar) {}

  void refresh();
  // A menu that is not the form's stands behind those that are, or at the end of the form's menu of
  // the same title; somebody else owns it.
  void add(QMenu& menu);

 private:
  void rebuild();
  void place(QMenu& menu);
  QAction* addEntry(MenuEntry& entry);
  static void draw(const MenuEntry& entry, QAction& action);

  Form& form_;
  view::ActionRunner& runner_;
  QMenuBar& bar_;
  std::vector<MenuEntry*> entries_;
  std::vector<QMenu*> added_;
  std::map<const MenuEntry*, QAction*> actions_;
};

}  // namespace quillet::desktop
