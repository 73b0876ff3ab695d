// What views ask about the controls of a form. A form may add and remove controls while it is open,
// so a view may still hold one that is gone.
#pragma once

#include <unordered_set>
#include <vector>

#include "controls/form.h"
#include "controls/grid.h"

namespace quillet::view {

// The ids of the controls that the form has now.
std::unordered_set<unsigned> presentIds(const Form& form);
// Whether the form still has it; null is none.
bool isPresent(const Form& form, const Control* control);

std::vector<MenuEntry*> menuEntries(const Form& form);
// Whether the entry opens a menu instead of being a command.
bool isHeading(const MenuEntry& entry);

// The lists under text boxes.
std::vector<Grid*> dropDowns(const Form& form);
// Whether such a list is shown, if its box is and it has rows.
bool isDropped(const Grid& list);

}  // namespace quillet::view
