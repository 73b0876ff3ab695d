#include "suite/queued_dialogs.h"

#include <cstddef>
#include <stdexcept>
#include <utility>

namespace quillet::suite {
namespace {

template <class Value>
struct Named {
  Value value;
  std::string_view name;
};
constexpr Named<Answer> answers[] = {
    {Answer::OK, "OK"}, {Answer::Yes, "Yes"}, {Answer::No, "No"}, {Answer::Cancel, "Cancel"}};
constexpr Named<Buttons> buttonSets[] = {
    {Buttons::OK, "OK"}, {Buttons::YesNo, "YesNo"}, {Buttons::YesNoCancel, "YesNoCancel"}};
constexpr Named<Icon> icons[] = {{Icon::none, "none"},
                                 {Icon::information, "information"},
                                 {Icon::question, "question"},
                                 {Icon::exclamation, "exclamation"},
                                 {Icon::critical, "critical"}};

template <class Value, std::size_t n>
std::string_view nameIn(const Named<Value> (&table)[n], Value value) {
  for (const Named<Value>& entry : table) {
    if (entry.value == value) return entry.name;
  }
  return {};
}

bool offers(Buttons buttons, Answer answer) {
  switch (buttons) {
    case Buttons::OK:
      return answer == Answer::OK;
    case Buttons::YesNo:
      return answer == Answer::Yes || answer == Answer::No;
    case Buttons::YesNoCancel:
      return answer != Answer::OK;
  }
  return false;
}

}  // namespace

void QueuedDialogs::fail(const std::string& what) {
  if (!failure_) failure_ = what;
  throw std::runtime_error(what);
}

Answer QueuedDialogs::answerTo(const Message& message) {
  if (message.buttons == Buttons::OK) {
    if (!answers_.empty() && answers_.front() == Answer::OK) answers_.pop_front();
    return Answer::OK;
  }
  if (answers_.empty()) fail("No answer is queued for the question \"" + message.text + "\".");
  const Answer answer = std::exchange(answers_.front(), Answer::OK);
  answers_.pop_front();
  if (!offers(message.buttons, answer)) {
    fail("The answer \"" + std::string(nameOf(answer)) + "\" is not offered by the question \"" +
         message.text + "\".");
  }
  return answer;
}

Answer QueuedDialogs::MsgBox(const Message& message) {
  const Answer answer = answerTo(message);
  asked_.push_back({message, answer});
  return answer;
}

std::optional<std::string> QueuedDialogs::saveFile(const std::string&,
                                                   const std::string& proposed) {
  prompts_.push_back(proposed);
  if (files_.empty()) fail("No file is queued for the dialog that proposes \"" + proposed + "\".");
  std::optional<std::string> path = std::move(files_.front());
  files_.pop_front();
  return path;
}

std::optional<std::string> QueuedDialogs::openFile(const std::string& filter) {
  return saveFile(filter, {});
}

std::optional<std::string> QueuedDialogs::password(const std::string& prompt) {
  prompts_.push_back(prompt);
  if (passwords_.empty()) fail("No password is queued for the prompt \"" + prompt + "\".");
  std::optional<std::string> text = std::move(passwords_.front());
  passwords_.pop_front();
  return text;
}

std::vector<QueuedDialogs::Asked> QueuedDialogs::takeMessages() {
  return std::exchange(asked_, {});
}

std::vector<std::string> QueuedDialogs::takePrompts() { return std::exchange(prompts_, {}); }

std::optional<std::string> QueuedDialogs::takeFailure() {
  return std::exchange(failure_, std::nullopt);
}

std::size_t QueuedDialogs::dropAnswers() {
  const std::size_t dropped = left();
  answers_.clear();
  files_.clear();
  passwords_.clear();
  return dropped;
}

void QueuedDialogs::clear() { *this = QueuedDialogs(); }

std::optional<Answer> answerNamed(std::string_view name) {
  for (const Named<Answer>& entry : answers) {
    if (entry.name == name) return entry.value;
  }
  return std::nullopt;
}

std::string_view nameOf(Answer answer) { return nameIn(answers, answer); }
std::string_view nameOf(Buttons buttons) { return nameIn(buttonSets, buttons); }
std::string_view nameOf(Icon icon) { return nameIn(icons, icon); }

}  // namespace quillet::suite
