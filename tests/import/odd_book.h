// What people and programs do to a book that was in order: made by chance, with what each row still
// is.
#pragma once

#include <random>

#include "import/made_book.h"

namespace quillet::support {

inline constexpr int oddities = 11;

const char* nameOfOddity(int oddity);
// The shape of the book that it is done to.
int shapeBefore(int oddity);
void makeOdd(int oddity, MadeBook& made, std::mt19937& chance);

}  // namespace quillet::support
