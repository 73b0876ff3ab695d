#include "windows/ui/keys.h"

#include <array>
#include <utility>

#include "view/typed_text.h"

namespace quillet::windows {
namespace {

// The keys that come without a character.
constexpr std::array<std::pair<WPARAM, Key>, 9> namedKeys{{
    {VK_UP, keys::Up},
    {VK_DOWN, keys::Down},
    {VK_LEFT, keys::Left},
    {VK_RIGHT, keys::Right},
    {VK_HOME, keys::Home},
    {VK_END, keys::End},
    {VK_PRIOR, keys::PageUp},
    {VK_NEXT, keys::PageDown},
    {VK_DELETE, keys::Delete},
}};

// The keys whose character a form reads, but which a window may act on when they go down.
bool bringsCharacter(WPARAM code) {
  return code == VK_RETURN || code == VK_ESCAPE || code == VK_TAB || code == VK_BACK ||
         code == VK_SPACE;
}

KeyReader::Result readKeyDown(WPARAM code) {
  if (code == 'F' && isHeld(VK_CONTROL) && !isHeld(VK_MENU) && !isHeld(VK_SHIFT)) {
    return {{keys::Find}, true};
  }
  if (isHeld(VK_CONTROL) || isHeld(VK_MENU)) return {};
  if (code == VK_F3) return {{isHeld(VK_SHIFT) ? keys::FindPrevious : keys::FindNext}, true};
  if (bringsCharacter(code)) return {{}, true};
  const Key key = namedKey(code);
  if (key == keys::none || (isHeld(VK_SHIFT) && view::selectsWithShift(key))) return {};
  return {{key}, true};
}

}  // namespace

Key namedKey(WPARAM code) {
  for (const auto& [named, key] : namedKeys) {
    if (named == code) return key;
  }
  return keys::none;
}

bool isHeld(int virtualKey) { return GetKeyState(virtualKey) < 0; }

bool isCommand() { return isHeld(VK_CONTROL) != isHeld(VK_MENU); }

KeyReader::Result KeyReader::read(UINT message, WPARAM code) {
  switch (message) {
    case WM_KEYDOWN:
      return readKeyDown(code);
    case WM_CHAR:
    case WM_IME_CHAR:
      return readCharacter(static_cast<wchar_t>(code));
    case WM_UNICHAR:
      if (code == UNICODE_NOCHAR) return {{}, true};
      return {{static_cast<Key>(code)}, true};
    default:
      return {};
  }
}

KeyReader::Result KeyReader::readCharacter(wchar_t unit) {
  const wchar_t high = std::exchange(high_, L'\0');
  if (IS_HIGH_SURROGATE(unit)) {
    high_ = unit;
    return {{}, true};
  }
  if (IS_LOW_SURROGATE(unit)) {
    if (high == 0) return {{}, true};
    return {{0x10000 + ((static_cast<Key>(high) & 0x3FF) << 10) + (unit & 0x3FFU)}, true};
  }
  if (isHeld(VK_CONTROL) && !isHeld(VK_MENU)) return {};
  switch (unit) {
    case keys::Tab:
      return {{isHeld(VK_SHIFT) ? keys::BackTab : keys::Tab}, true};
    case keys::Backspace:
    case keys::Enter:
    case keys::Escape:
      return {{static_cast<Key>(unit)}, true};
    default:
      if (keys::typesText(unit)) return {{static_cast<Key>(unit)}, true};
      return {};
  }
}

}  // namespace quillet::windows
