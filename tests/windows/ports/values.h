// Values of every type that a host hands out, and what they are here.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "windows/com/variant.h"

namespace quillet::fakes {

struct Value {
  windows::Variant value;
  std::string text;
  std::optional<double> number;  // none: not to be read as a number
  std::string what;
};

std::vector<Value> values();

}  // namespace quillet::fakes
