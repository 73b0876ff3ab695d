#include "view/typed_text.h"

#include <algorithm>

#include "data/text.h"

namespace quillet::view {
namespace {

bool breaksLine(Key key) {
  return key == U'\n' || key == U'\r' || key == 0x85 || key == 0x2028 || key == 0x2029;
}

// What spreadsheets and web pages put around a figure counts, too.
bool isBlank(Key key) {
  return key == U' ' || key == 0xA0 || key == 0x1680 || (key >= 0x2000 && key <= 0x200A) ||
         key == 0x202F || key == 0x205F || key == 0x3000;
}

}  // namespace

std::vector<Key> typedKeys(std::string_view text) {
  std::vector<Key> typed;
  Key before = keys::none;
  for (std::size_t at = 0; at < text.size();) {
    const Key read = nextCharacter(text, at);
    const bool endsPair = before == U'\r' && read == U'\n';
    before = read;
    if (endsPair) continue;
    const Key key = breaksLine(read) || read == U'\t' ? keys::Space : read;
    if (keys::typesText(key)) typed.push_back(key);
  }
  return typed;
}

std::vector<Key> pastedKeys(std::string_view text, std::size_t maxLength) {
  std::vector<Key> typed = typedKeys(text);
  typed.erase(std::find_if_not(typed.rbegin(), typed.rend(), isBlank).base(), typed.end());
  typed.erase(typed.begin(), std::find_if_not(typed.begin(), typed.end(), isBlank));
  typed.resize(std::min(typed.size(), maxLength + 1000));
  return typed;
}

}  // namespace quillet::view
