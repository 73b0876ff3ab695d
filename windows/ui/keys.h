// What the messages of the keyboard say to a form.
#pragma once

#include <windows.h>

#include <vector>

#include "controls/key.h"

namespace quillet::windows {

// The key that comes without a character, keys::none for any other.
Key namedKey(WPARAM code);
// Whether the key is held down, as of the message that is being handled.
bool isHeld(int virtualKey);
// Ctrl or Alt makes a key a command. Both together are AltGr on keyboards that type with it.
bool isCommand();

// Reads the messages of one window: WM_KEYDOWN, WM_CHAR, WM_UNICHAR, WM_IME_CHAR.
class KeyReader {
 public:
  struct Result {
    std::vector<Key> keys;
    // The message is used up: it stood for the keys, or for a part of one, or its character comes
    // by a message of its own.
    bool used = false;
  };
  // Keys with Ctrl or Alt are commands, those that move the caret with Shift select: both are left
  // to the window.
  Result read(UINT message, WPARAM code);

 private:
  Result readCharacter(wchar_t unit);

  wchar_t high_ = 0;  // the first half of a pair, whose second half is still to come
};

}  // namespace quillet::windows
