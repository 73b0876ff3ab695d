// What a date box shows: forms spell a place without a digit "#" or "_", and a person reads "_".
#pragma once

#include <algorithm>
#include <string>

#include "controls/mask_box.h"

namespace quillet::view {

inline std::string shownText(const MaskBox& box) {
  std::string text = box.text();
  std::replace(text.begin(), text.end(), '#', '_');
  return text;
}

}  // namespace quillet::view
