// Typing into a text box whose text a toolkit's own field edits, so that clipboard, undo and input
// methods work.
#pragma once

#include <functional>
#include <string_view>

#include "controls/text_box.h"
#include "view/utf16_positions.h"

namespace quillet::view {

// The form's handlers see the key first. `edit` does what is left of a key that changes the text;
// it begins by showing what the handlers changed. False: the box is full and took nothing, as it
// would of any key that follows.
bool typeInto(TextBox& box, Key key, const std::function<void(Key)>& edit);

// Takes over what a person selected in the field, in code units.
template <class Unit>
void selectUnits(TextBox& box, std::basic_string_view<Unit> text, std::size_t start,
                 std::size_t end) {
  const std::size_t first = charactersOf(text, start);
  const std::size_t length = charactersOf(text, end) - first;
  if (first != box.selStart() || length != box.selLength()) box.select(first, length);
}

}  // namespace quillet::view
