// Message boxes and dialogs without a person: scripts and tests queue the answers beforehand and
// read afterwards what was asked.
//
// A question without a queued answer throws. The procedure that asked traps that like any other
// error, so the failure is kept for takeFailure(), too.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ports/ports.h"

namespace quillet::suite {

class QueuedDialogs : public Dialogs {
 public:
  struct Asked {
    Message message;
    Answer answer;
  };

  // For the next question. A message with OK alone needs none and leaves the queue as it is, except
  // that it takes an OK.
  void queueAnswer(Answer answer) { answers_.push_back(answer); }
  // For the next file dialog and password prompt; nothing cancels it.
  void queueFile(std::optional<std::string> path) { files_.push_back(std::move(path)); }
  void queuePassword(std::optional<std::string> text) { passwords_.push_back(std::move(text)); }

  // Every message since the last call, in order, with its answer.
  std::vector<Asked> takeMessages();
  // Prompts of password dialogs and file dialogs (proposed path) since the last call.
  std::vector<std::string> takePrompts();
  // What went wrong since the last call: a question without an answer, an answer that the message
  // does not offer.
  std::optional<std::string> takeFailure();
  // Answers not used yet.
  std::size_t left() const { return answers_.size() + files_.size() + passwords_.size(); }
  // Forgets the answers not used yet, and returns how many they were.
  std::size_t dropAnswers();
  // Forgets answers, messages and failures.
  void clear();

  Answer MsgBox(const Message& message) override;
  std::optional<std::string> saveFile(const std::string& filter,
                                      const std::string& proposed) override;
  std::optional<std::string> openFile(const std::string& filter) override;
  std::optional<std::string> password(const std::string& prompt) override;

 private:
  [[noreturn]] void fail(const std::string& what);
  Answer answerTo(const Message& message);

  std::deque<Answer> answers_;
  std::deque<std::optional<std::string>> files_;
  std::deque<std::optional<std::string>> passwords_;
  std::vector<Asked> asked_;
  std::vector<std::string> prompts_;
  std::optional<std::string> failure_;
};

// "OK", "Yes", "No", "Cancel"; nothing for any other text.
std::optional<Answer> answerNamed(std::string_view name);
std::string_view nameOf(Answer answer);
// "OK", "YesNo", "YesNoCancel".
std::string_view nameOf(Buttons buttons);
// "none", "information", "question", "exclamation", "critical".
std::string_view nameOf(Icon icon);

}  // namespace quillet::suite
