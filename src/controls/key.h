// Keys as the forms see them: a character is its Unicode code point, the keys that type nothing
// have numbers past Unicode's last one. Zero is "no key": a handler discards a key by writing it.
#pragma once

#include <optional>
#include <string_view>

namespace quillet {

using Key = char32_t;

namespace keys {
inline constexpr Key none = 0;
inline constexpr Key Backspace = 8;
inline constexpr Key Tab = 9;
inline constexpr Key Enter = 13;
inline constexpr Key Escape = 27;
inline constexpr Key Space = U' ';
inline constexpr Key firstNamed = 0x110000;
inline constexpr Key Up = firstNamed;
inline constexpr Key Down = firstNamed + 1;
inline constexpr Key Left = firstNamed + 2;
inline constexpr Key Right = firstNamed + 3;
inline constexpr Key Home = firstNamed + 4;
inline constexpr Key End = firstNamed + 5;
inline constexpr Key PageUp = firstNamed + 6;
inline constexpr Key PageDown = firstNamed + 7;
inline constexpr Key Delete = firstNamed + 8;
inline constexpr Key BackTab = firstNamed + 9;
inline constexpr Key Find = firstNamed + 10;  // Ctrl+F
inline constexpr Key FindNext = firstNamed + 11;
inline constexpr Key FindPrevious = firstNamed + 12;

// Whether the key writes something into a text.
constexpr bool typesText(Key key) { return key >= 32 && key != 127 && key < firstNamed; }
// Whether the key reaches the KeyPress handlers; the others stop at KeyDown.
constexpr bool isPressed(Key key) { return key < firstNamed; }

// The key called "Enter", "Tab", "Up" and so on, or the one character that the name consists of.
std::optional<Key> named(std::string_view name);
// What a key that writes nothing is called; "" for the others.
std::string_view nameOf(Key key);
}  // namespace keys

}  // namespace quillet
