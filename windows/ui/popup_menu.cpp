#include "windows/ui/popup_menu.h"

#include <windows.h>

#include "windows/com/text.h"

namespace quillet::windows {
namespace {

// At the mouse, or, when it is elsewhere, in the window that a key asked for the menu in.
POINT placeOfMenu() {
  POINT mouse{};
  GetCursorPos(&mouse);
  RECT room{};
  if (!GetWindowRect(GetFocus(), &room) || PtInRect(&room, mouse)) return mouse;
  POINT corner{room.left, room.top};
  const POINT middle{(room.left + room.right) / 2, (room.top + room.bottom) / 2};
  return {(corner.x + middle.x) / 2, (corner.y + middle.y) / 2};
}

}  // namespace

int NativePopupMenu::choose(const std::vector<std::string>& entries) {
  const HWND owner = windows_.owner();
  const HMENU menu = CreatePopupMenu();
  if (!menu || !owner) return 0;
  UINT_PTR position = 0;
  for (const std::string& entry : entries) {
    ++position;
    const bool line = entry == "-";
    AppendMenuW(menu, line ? MF_SEPARATOR : MF_STRING, position,
                line ? nullptr : wide(entry).c_str());
  }
  windows_.interrupted();
  const POINT at = placeOfMenu();
  const BOOL chosen =
      TrackPopupMenuEx(menu, TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON, static_cast<int>(at.x),
                       static_cast<int>(at.y), owner, nullptr);
  DestroyMenu(menu);
  return chosen;
}

}  // namespace quillet::windows
