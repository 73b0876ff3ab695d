#include "windows/ui/menu.h"

#include <algorithm>

#include "view/form_controls.h"
#include "view/shortcut.h"
#include "windows/com/text.h"
#include "windows/ui/keys.h"

namespace quillet::windows {
namespace {

// As shortcuts are written, "" for a key that none has.
std::string nameOf(WPARAM virtualKey) {
  if (virtualKey >= VK_F1 && virtualKey <= VK_F24) {
    return "F" + std::to_string(virtualKey - VK_F1 + 1);
  }
  if ((virtualKey >= 'A' && virtualKey <= 'Z') || (virtualKey >= '0' && virtualKey <= '9')) {
    return {static_cast<char>(virtualKey)};
  }
  switch (virtualKey) {
    case VK_INSERT:
      return "INS";
    case VK_DELETE:
      return "DEL";
    default:
      return {};
  }
}

}  // namespace

std::vector<FormMenu::Item> FormMenu::gather() const {
  std::vector<Item> items;
  for (MenuEntry* entry : view::menuEntries(form_)) {
    if (!entry->visible()) continue;
    items.push_back({entry, entry->id(), entry->parent() ? entry->parent()->id() : 0, false, true,
                     entry->caption(), entry->shortcut()});
  }
  for (Item& item : items) {
    item.heads = std::any_of(items.begin(), items.end(),
                             [&](const Item& other) { return other.heading == item.id; });
    if (item.heads) item.enabled = item.entry->enabled();
  }
  return items;
}

HMENU FormMenu::build(unsigned heading) const {
  const HMENU menu = heading == 0 ? CreateMenu() : CreatePopupMenu();
  for (const Item& item : items_) {
    if (item.heading != heading) continue;
    if (item.caption == "-") {
      AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
      continue;
    }
    std::wstring text = wide(item.caption);
    if (!item.shortcut.empty()) text += L'\t' + wide(item.shortcut);
    const UINT greyed = item.enabled ? 0 : MF_GRAYED;
    const UINT_PTR what = item.heads ? reinterpret_cast<UINT_PTR>(build(item.id)) : item.id;
    AppendMenuW(menu, MF_STRING | greyed | (item.heads ? MF_POPUP : 0), what, text.c_str());
  }
  return menu;
}

bool FormMenu::refresh(HWND window) {
  std::vector<Item> items = gather();
  const bool changed = items != items_;
  if (changed) {
    items_ = std::move(items);
    const HMENU before = bar_;
    bar_ = items_.empty() ? nullptr : build(0);
    SetMenu(window, bar_);
    if (before) DestroyMenu(before);
  }
  draw(window);
  return changed;
}

void FormMenu::draw(HWND window) {
  bool barChanged = false;
  for (const Item& item : items_) {
    if (item.heads) continue;
    const UINT state = GetMenuState(bar_, item.id, MF_BYCOMMAND);
    const UINT wanted =
        (item.entry->enabled() ? 0U : MF_GRAYED) | (item.entry->checked() ? MF_CHECKED : 0U);
    if (state == static_cast<UINT>(-1) || (state & (MF_GRAYED | MF_CHECKED)) == wanted) continue;
    EnableMenuItem(bar_, item.id, MF_BYCOMMAND | (wanted & MF_GRAYED));
    CheckMenuItem(bar_, item.id, MF_BYCOMMAND | (wanted & MF_CHECKED));
    barChanged = barChanged || item.heading == 0;
  }
  if (barChanged) DrawMenuBar(window);
}

MenuEntry* FormMenu::entry(WORD command) const {
  for (const Item& item : items_) {
    if (item.id == command && !item.heads) return item.entry;
  }
  return nullptr;
}

MenuEntry* FormMenu::shortcut(WPARAM virtualKey) const {
  const std::string key = nameOf(virtualKey);
  if (key.empty()) return nullptr;
  const view::Shortcut pressed{isHeld(VK_CONTROL), isHeld(VK_SHIFT), isHeld(VK_MENU), key};
  for (const Item& item : items_) {
    if (!item.shortcut.empty() && view::shortcut(item.shortcut) == pressed) return item.entry;
  }
  return nullptr;
}

}  // namespace quillet::windows
