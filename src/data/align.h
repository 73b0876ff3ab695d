// Where a text stands in its cell, on the screen and on paper.
#pragma once

namespace quillet {

enum class Align { left, right, center };

}  // namespace quillet
