// Keys as a person's keyboard sends them.
#pragma once

#include <string>
#include <vector>

namespace quillet::journey {

// One key, or several held together: "Enter", "F2", "k", "Alt+E", "Ctrl+W".
void press(const std::string& chord);

// The chords that type a text; a character that no key has goes as itself.
std::vector<std::string> chordsTyping(const std::string& text);

// What Ctrl+V will paste.
void putOnClipboard(const std::string& text);

}  // namespace quillet::journey
