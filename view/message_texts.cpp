#include "view/message_texts.h"

#include <algorithm>

#include "data/text.h"

namespace quillet::view {

std::string titleOf(const Message& message) {
  return message.title.empty() ? "Quillet" : message.title;
}

std::string textOf(const Message& message) { return replacedAll(message.text, "\r\n", "\n"); }

std::vector<Answer> answersOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::YesNo:
      return {Answer::Yes, Answer::No};
    case Buttons::YesNoCancel:
      return {Answer::Yes, Answer::No, Answer::Cancel};
    case Buttons::OK:
      break;
  }
  return {Answer::OK};
}

std::string_view textOf(Answer answer) {
  switch (answer) {
    case Answer::Yes:
      return "&Yes";
    case Answer::No:
      return "&No";
    case Answer::Cancel:
      return "Cancel";
    case Answer::OK:
      break;
  }
  return "OK";
}

Answer defaultOf(const Message& message) {
  const std::vector<Answer> shown = answersOf(message.buttons);
  const auto named = std::find(shown.begin(), shown.end(), message.defaultAnswer);
  return named == shown.end() ? shown.front() : *named;
}

Answer whenClosed(Buttons buttons) { return answersOf(buttons).back(); }

std::vector<FileKind> fileKinds(std::string_view filter) {
  std::vector<std::string> parts;
  for (std::size_t from = 0; from < filter.size();) {
    const std::size_t bar = std::min(filter.find('|', from), filter.size());
    if (bar > from) parts.emplace_back(filter.substr(from, bar - from));
    from = bar + 1;
  }
  std::vector<FileKind> kinds;
  for (std::size_t at = 0; at + 1 < parts.size(); at += 2) {
    kinds.push_back({parts[at], parts[at + 1]});
  }
  return kinds;
}

}  // namespace quillet::view
