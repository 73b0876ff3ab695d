// What a person types, composes or pastes, as the keys that a form sees. Texts are UTF-8.
#pragma once

#include <string_view>
#include <vector>

#include "controls/key.h"

namespace quillet::view {

// A text that is composed, or that one key event brings: line breaks and tabs become blanks, other
// controls are left out.
std::vector<Key> typedKeys(std::string_view text);
// The same for a text from the clipboard, without the blanks around it. Since the handlers run for
// each key, no more of it than a box can use: what it holds (0 means any number) and 1,000 more,
// which the handlers may leave out. Nothing that is searched for is as long as that.
std::vector<Key> pastedKeys(std::string_view text, std::size_t maxLength = 0);

// Whether a key with Shift is a text box's own: the keys that move the caret then select. Enter,
// Tab, Backspace and Space are typed by hasty fingers with Shift still down.
constexpr bool selectsWithShift(Key key) { return key >= keys::firstNamed && key != keys::BackTab; }

}  // namespace quillet::view
