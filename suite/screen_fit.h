// How a form fills a screen: nearly all of a small one, a comfortable part of a large one, with
// letters that grow where the screen has room for them.
#pragma once

#include "controls/form.h"
#include "suite/front_end.h"

namespace quillet::suite {

// The screen that the forms were designed for.
inline constexpr Screen designScreen{1366, 768};

double fontRatio(Screen screen);
Form::Size comfortableSize(Screen screen);

}  // namespace quillet::suite
