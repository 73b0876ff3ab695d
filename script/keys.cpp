#include "script/keys.h"

#include <algorithm>

#include "data/text.h"
#include "script/call.h"

namespace quillet::script {

Key keyNamed(const std::string& name) {
  if (const auto key = keys::named(name)) return *key;
  throw Error("there is no key '" + name + "'");
}

std::u32string keysTyping(const std::string& text) {
  std::u32string typed = charactersOf(text);
  std::replace(typed.begin(), typed.end(), U'\n', static_cast<char32_t>(keys::Enter));
  return typed;
}

}  // namespace quillet::script
