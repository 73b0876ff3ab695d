#include "host/year_hold.h"

#include "books/locked_years.h"

namespace quillet {

std::optional<YearLock> YearHold::enter(YearLocks* locks, Dialogs& dialogs,
                                        const std::function<std::string()>& subject,
                                        const std::string& client, const std::string& secondDate) {
  if (locks == nullptr) return std::nullopt;
  if (locks != locks_ || client != client_ || secondDate != secondDate_) {
    leave();
    locks_ = locks;
    client_ = client;
    secondDate_ = secondDate;
  }
  if (held_ && locks->lost(client, secondDate)) locks->regain(client, secondDate);
  auto lock = locks->find(client, secondDate);
  const bool elsewhere = lock && !lock->station.empty() && lock->reason.empty();
  if (elsewhere && !asked_) {
    asked_ = true;
    const Answer answer =
        dialogs.MsgBox({lockedSentence(subject(), *lock) +
                            "\r\n\r\nWhat is being entered there would not be stored "
                            "any more.\r\n\r\nTake it over ? (No opens it to read.)",
                        "", Buttons::YesNo, Icon::question, Answer::No});
    if (answer == Answer::Yes) {
      locks->takeOver(client, secondDate);
      lock.reset();
    }
  }
  if (lock || held_) return lock;
  locks->enter(client, secondDate);
  // Who takes the year over later is told, not asked.
  held_ = asked_ = true;
  // Another station may have been quicker.
  return locks->find(client, secondDate);
}

void YearHold::leave() {
  if (held_) locks_->leave(client_, secondDate_);
  locks_ = nullptr;
  held_ = asked_ = false;
}

}  // namespace quillet
