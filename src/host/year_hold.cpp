#include "host/year_hold.h"

#include "books/locked_years.h"

namespace quillet {
namespace {

bool wantsIt(Dialogs& dialogs, const std::string& subject, const YearLock& lock) {
  return dialogs.MsgBox({takeOverText(subject, lock) + " (No opens it to read.)", "",
                         Buttons::YesNo, Icon::question, Answer::No}) == Answer::Yes;
}

}  // namespace

std::optional<YearLock> YearHold::enter(YearLocks* locks, Dialogs& dialogs,
                                        const std::function<std::string()>& subject,
                                        const std::string& client, const std::string& secondDate,
                                        const std::string& table) {
  if (locks == nullptr) return std::nullopt;
  open(locks, client, secondDate);
  const auto look = [&] {
    return held_ ? locks->find(client, secondDate)
                 : locks->enter(client, secondDate, table, YearLocks::Purpose::show);
  };
  auto lock = look();
  // Not while another station has it: two would be recorded.
  if (held_ && lock && lock->lost && !lock->reason.empty()) {
    locks->regain(client, secondDate);
    lock = locks->find(client, secondDate);
  }
  regained_ = stale();
  regains_ = locks->regained(client, secondDate);
  const bool elsewhere = lock && !lock->station.empty() && lock->reason.empty();
  if (elsewhere && !asked_) {
    asked_ = true;
    if (!locks->read.contains({client, secondDate}) && wantsIt(dialogs, subject(), *lock)) {
      locks->takeOver(client, secondDate);
      lock = look();
    }
  }
  // Who takes the year over later is told, not asked.
  if (!lock || lock->gone) held_ = asked_ = true;
  setReading(!held_ && lock && !lock->station.empty());
  return lock;
}

void YearHold::setReading(bool reading) {
  if (reading == reading_) return;
  reading_ = reading;
  auto& years = locks_->read;
  if (reading) {
    years.emplace(client_, secondDate_);
  } else {
    years.erase(years.find({client_, secondDate_}));
  }
}

void YearHold::take(YearLocks* locks, const std::string& client, const std::string& secondDate,
                    const std::string& table) {
  leave();
  if (locks == nullptr || !locks->shared()) return;
  open(locks, client, secondDate);
  const auto lock = locks->enter(client, secondDate, table, YearLocks::Purpose::make);
  held_ = !lock || lock->gone;
}

bool YearHold::lost() const {
  return locks_ != nullptr && (!held_ || locks_->find(client_, secondDate_));
}

void YearHold::open(YearLocks* locks, const std::string& client, const std::string& secondDate) {
  if (locks == locks_ && client == client_ && secondDate == secondDate_) return;
  leave();
  locks_ = locks;
  client_ = client;
  secondDate_ = secondDate;
}

bool YearHold::stale() const { return held_ && locks_->regained(client_, secondDate_) != regains_; }

void YearHold::leave() {
  setReading(false);
  if (held_) locks_->leave(client_, secondDate_);
  locks_ = nullptr;
  held_ = asked_ = regained_ = false;
}

}  // namespace quillet
