// Where the list under a text box lies in the form's window.
#pragma once

#include "view/bounds.h"

namespace quillet {
class Grid;
}

namespace quillet::view {

// As many rows as it shows at once, the fewest of them that are of use, and the characters that it
// is wide.
int dropDownRows(int rows);
int dropDownLeastRows(int rows);
int dropDownCharacters(const Grid& list);

// Under its field, where it covers nothing that was entered before, cut to the room there; above it
// only when not even the height `least` fits below and there is more room above. At least as wide
// as the field; neither outgrows the window nor leaves it. `gap` keeps it off the window's edges,
// half of it off the field. What is cut is whole rows of the height `row`.
Bounds dropDownPlace(const Bounds& field, Size wanted, int least, Size window, int gap = 4,
                     int row = 1);

}  // namespace quillet::view
