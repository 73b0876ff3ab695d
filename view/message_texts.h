// What dialogs show and answer, whatever draws them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ports/ports.h"

namespace quillet::view {

// The message's title, or the program's name when it has none.
std::string titleOf(const Message& message);
// Its text with "\n" alone at the ends of lines.
std::string textOf(const Message& message);

// From the first button to the last.
std::vector<Answer> answersOf(Buttons buttons);
// A button's text, with its access key.
std::string_view textOf(Answer answer);
// The button that Enter presses: the first one, when the message names none that it shows.
Answer defaultOf(const Message& message);
// The answer that changes nothing, for a message that is closed without a button.
Answer whenClosed(Buttons buttons);

// "Excel Files|*.xls|All Files|*.*" taken apart.
struct FileKind {
  std::string name;
  std::string pattern;
};
std::vector<FileKind> fileKinds(std::string_view filter);

}  // namespace quillet::view
