// Message boxes and dialogs in front of the unit of work: what a person is told to be done is
// committed before. Over a question the transaction stays open, so that what follows the answer is
// done with it or not at all; a database that other stations share is not kept locked meanwhile.
#pragma once

#include <optional>
#include <string>

#include "ports/ports.h"
#include "suite/stations/question_watch.h"
#include "suite/unit_of_work.h"

namespace quillet::suite {

class UnitDialogs : public Dialogs {
 public:
  UnitDialogs(UnitOfWork& unit, YearPresence& presence, Dialogs& dialogs)
      : unit_(unit), watch_(unit, presence), dialogs_(dialogs) {}

  Answer MsgBox(const Message& message) override {
    if (message.buttons == Buttons::OK) {
      unit_.keep();
      return dialogs_.MsgBox(message);
    }
    waitForAnswer();
    const Answer answer = dialogs_.MsgBox(message);
    if (answer == Answer::OK || answer == Answer::Yes) watch_.answered();
    return answer;
  }
  std::optional<std::string> saveFile(const std::string& filter,
                                      const std::string& proposed) override {
    return watched([&] { return dialogs_.saveFile(filter, proposed); });
  }
  std::optional<std::string> openFile(const std::string& filter) override {
    return watched([&] { return dialogs_.openFile(filter); });
  }
  std::optional<std::string> password(const std::string& prompt) override {
    return watched([&] { return dialogs_.password(prompt); });
  }

 private:
  template <class Ask>
  std::optional<std::string> watched(Ask ask) {
    waitForAnswer();
    std::optional<std::string> answer = ask();
    if (answer) watch_.answered();
    return answer;
  }
  // An answer can change nothing any more after the act was taken back.
  void waitForAnswer() {
    unit_.refuseAfterTakingBack();
    if (unit_.shared()) unit_.keep();
    watch_.asked();
  }

  UnitOfWork& unit_;
  QuestionWatch watch_;
  Dialogs& dialogs_;
};

}  // namespace quillet::suite
