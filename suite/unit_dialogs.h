// Message boxes and dialogs in front of the unit of work: what a person is told to be done is
// committed before. Over a question the transaction stays open, so that what follows the answer is
// done with it or not at all; a database that other stations share is not kept locked meanwhile.
#pragma once

#include <optional>
#include <string>

#include "ports/ports.h"
#include "suite/unit_of_work.h"

namespace quillet::suite {

class UnitDialogs : public Dialogs {
 public:
  UnitDialogs(UnitOfWork& unit, Dialogs& dialogs) : unit_(unit), dialogs_(dialogs) {}

  Answer MsgBox(const Message& message) override {
    if (message.buttons == Buttons::OK) {
      unit_.keep();
    } else {
      waitForAnswer();
    }
    return dialogs_.MsgBox(message);
  }
  std::optional<std::string> saveFile(const std::string& filter,
                                      const std::string& proposed) override {
    waitForAnswer();
    return dialogs_.saveFile(filter, proposed);
  }
  std::optional<std::string> openFile(const std::string& filter) override {
    waitForAnswer();
    return dialogs_.openFile(filter);
  }
  std::optional<std::string> password(const std::string& prompt) override {
    waitForAnswer();
    return dialogs_.password(prompt);
  }

 private:
  // An answer can change nothing any more after the act was taken back.
  void waitForAnswer() {
    unit_.refuseAfterTakingBack();
    if (unit_.shared()) unit_.keep();
  }

  UnitOfWork& unit_;
  Dialogs& dialogs_;
};

}  // namespace quillet::suite
