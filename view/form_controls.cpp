#include "view/form_controls.h"

#include <algorithm>

namespace quillet::view {

std::unordered_set<unsigned> presentIds(const Form& form) {
  std::unordered_set<unsigned> ids;
  for (const Control* control : form.controls()) ids.insert(control->id());
  return ids;
}

bool isPresent(const Form& form, const Control* control) {
  const auto& controls = form.controls();
  return control && std::find(controls.begin(), controls.end(), control) != controls.end();
}

std::vector<MenuEntry*> menuEntries(const Form& form) {
  std::vector<MenuEntry*> entries;
  for (Control* control : form.controls()) {
    if (auto* entry = dynamic_cast<MenuEntry*>(control)) entries.push_back(entry);
  }
  return entries;
}

bool isHeading(const MenuEntry& entry) {
  const std::vector<MenuEntry*> entries = menuEntries(entry.form());
  return std::any_of(entries.begin(), entries.end(),
                     [&](const MenuEntry* other) { return other->parent() == &entry; });
}

std::vector<Grid*> dropDowns(const Form& form) {
  std::vector<Grid*> lists;
  for (Control* control : form.controls()) {
    auto* grid = dynamic_cast<Grid*>(control);
    if (grid && grid->dropOf()) lists.push_back(grid);
  }
  return lists;
}

bool isDropped(const Grid& list) { return list.visible() && list.dropOf()->shown(); }

}  // namespace quillet::view
