// Keys as scripts write them.
#pragma once

#include <string>

#include "controls/key.h"

namespace quillet::script {

// "Enter", "Up" and so on, or one character; throws for any other text.
Key keyNamed(const std::string& name);
// The keys that type the text; a line break is Enter.
std::u32string keysTyping(const std::string& text);

}  // namespace quillet::script
