#include "controls/key.h"

#include <array>
#include <utility>

#include "data/text.h"

namespace quillet::keys {

namespace {

constexpr std::array<std::pair<std::string_view, Key>, 20> names{{
    {"Enter", Enter},       {"Return", Enter},
    {"Tab", Tab},           {"BackTab", BackTab},
    {"Escape", Escape},     {"Backspace", Backspace},
    {"Delete", Delete},     {"Up", Up},
    {"Down", Down},         {"Left", Left},
    {"Right", Right},       {"Home", Home},
    {"End", End},           {"PageUp", PageUp},
    {"PageDown", PageDown}, {"Space", Space},
    {"Esc", Escape},        {"Ctrl+F", Find},
    {"F3", FindNext},       {"Shift+F3", FindPrevious},
}};

}  // namespace

std::optional<Key> named(std::string_view name) {
  for (const auto& [known, key] : names) {
    if (equalIgnoringCase(known, name)) return key;
  }
  std::size_t at = 0;
  if (name.empty()) return std::nullopt;
  const char32_t character = nextCharacter(name, at);
  if (at != name.size()) return std::nullopt;
  return character;
}

std::string_view nameOf(Key key) {
  for (const auto& [known, named] : names) {
    if (named == key) return known;
  }
  return {};
}

}  // namespace quillet::keys
