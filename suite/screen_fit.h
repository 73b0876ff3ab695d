// The size of a form: nearly all of a small screen and a comfortable part of a large one, with a
// larger font where the screen has room for it.
#pragma once

#include "controls/form.h"
#include "suite/front_end.h"

namespace quillet::suite {

// The screen that the forms were designed for.
inline constexpr Screen designScreen{1366, 768};

double fontRatio(Screen screen);
Form::Size comfortableSize(Screen screen);

}  // namespace quillet::suite
