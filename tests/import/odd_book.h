// What people and programs do to a book that was in order: made by chance, with what each row still
// is.
#pragma once

#include "import/chance.h"
#include "import/made_book.h"

namespace quillet::support {

inline constexpr int oddities = 11;

const char* nameOfOddity(int oddity);
// The shape of the book that it is done to.
int shapeBefore(int oddity);
void makeOdd(int oddity, MadeBook& made, Chance& chance);

}  // namespace quillet::support
