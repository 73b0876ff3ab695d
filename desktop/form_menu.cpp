#include "desktop/form_menu.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>

#include "desktop/text.h"
#include "view/form_controls.h"

namespace quillet::desktop {

void FormMenu::refresh() {
  std::vector<MenuEntry*> entries = view::menuEntries(form_);
  if (entries != entries_) {
    entries_ = std::move(entries);
    rebuild();
  }
  for (const auto& [entry, action] : actions_) draw(*entry, *action);
  bar_.setVisible(!entries_.empty() || !added_.empty());
}

void FormMenu::add(QMenu& menu) {
  added_.push_back(&menu);
  menu.setFont(bar_.font());
  place(menu);
  bar_.setVisible(true);
}

void FormMenu::rebuild() {
  actions_.clear();
  bar_.clear();
  for (QMenu* menu : bar_.findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly)) {
    menu->deleteLater();
  }
  for (MenuEntry* entry : entries_) actions_[entry] = addEntry(*entry);
  for (QMenu* menu : added_) place(*menu);
}

void FormMenu::place(QMenu& menu) {
  const QList<QAction*> headings = bar_.actions();
  const auto same = std::find_if(headings.begin(), headings.end(), [&](const QAction* heading) {
    return heading->text() == menu.title() && heading->menu();
  });
  if (same == headings.end()) {
    bar_.addMenu(&menu);
  } else {
    (*same)->menu()->addSeparator();
    (*same)->menu()->addActions(menu.actions());
  }
}

QAction* FormMenu::addEntry(MenuEntry& entry) {
  QAction* action = nullptr;
  if (view::isHeading(entry)) {
    auto* menu = new QMenu(toQt(entry.caption()), &bar_);
    menu->setFont(bar_.font());
    action = menu->menuAction();
  } else {
    action = new QAction(&bar_);
    MenuEntry* clicked = &entry;
    QObject::connect(action, &QAction::triggered, &bar_, [this, clicked] {
      runner_.perform([&] { form_.click(*clicked); });
      // Qt ticks by itself; what counts is the model.
      if (actions_.contains(clicked)) draw(*clicked, *actions_[clicked]);
    });
  }
  if (!entry.parent()) {
    bar_.addAction(action);
  } else if (const auto heading = actions_.find(entry.parent()); heading != actions_.end()) {
    heading->second->menu()->addAction(action);
  }
  return action;
}

void FormMenu::draw(const MenuEntry& entry, QAction& action) {
  // A style would draw the text of a separator beside its line.
  const bool separates = entry.caption() == "-";
  action.setSeparator(separates);
  action.setText(separates ? QString() : toQt(entry.caption()));
  action.setVisible(entry.visible());
  action.setEnabled(entry.enabled());
  action.setCheckable(entry.checked());
  action.setChecked(entry.checked());
  const QKeySequence shortcut(toQt(entry.shortcut()));
  if (action.shortcut() != shortcut) action.setShortcut(shortcut);
}

}  // namespace quillet::desktop
