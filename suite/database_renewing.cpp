// A connection that is lost is opened again; a server that is silent is not waited for longer than
// need be.
#include <stdexcept>
#include <thread>
#include <utility>

#include "suite/database_impl.h"
#include "suite/server_login.h"

namespace quillet::suite {
namespace {

// What nobody feels.
constexpr std::chrono::milliseconds moment{300};

// Says that something is waited for, and in the end that it is not any more.
struct Telling {
  const ClientConnection::Waiting tell;
  void operator()() const {
    if (tell) tell(true);
  }
  ~Telling() {
    if (tell) tell(false);
  }
};

}  // namespace

void Database::Impl::tellWaiting(ClientConnection::Waiting waiting) {
  waiting_ = std::move(waiting);
  connection_.tellWaiting(waiting_);
}

void Database::Impl::renew(Waiting waiting) {
  if (!remote_) {
    if (connection_.answers()) return;
    connection_ = makeConnection();
    return connectWithin();
  }
  if (isReady(connection_)) return;
  if (connection_.gaveUp()) anySilent_ = true;
  // Another host takes some seconds to become the one that works. Once that was waited for in vain,
  // nobody waits again with each step.
  const bool waits = waiting == Waiting::yes && !std::exchange(outOfReach_, true);
  const auto end = Clock::now() + std::chrono::seconds(remote_->address.connectSeconds);
  const Telling telling{waits ? waiting_ : ClientConnection::Waiting()};
  while (true) {
    telling();
    try {
      if (anySilent_) lookForSilent(waits ? end : Clock::now() + moment, telling.tell);
      return connectAgain();
    } catch (const WrongPassword&) {
      throw;
    } catch (const std::runtime_error&) {
      if (!waits || Clock::now() > end) throw;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
  }
}

// Where a host does not say in time whether it answers, what was known before holds.
void Database::Impl::lookForSilent(Clock::time_point end,
                                   const ClientConnection::Waiting& waiting) {
  auto known = probe_.silent(remote_->address, moment);
  if (known && !known->empty()) {
    // That may be an answer from before.
    silent_ = std::move(*known);
    known = probe_.silent(remote_->address, moment);
  }
  while (!known && Clock::now() < end) {
    if (waiting) waiting(true);
    known = probe_.silent(remote_->address, moment);
  }
  if (known) {
    anySilent_ = !known->empty();
    silent_ = std::move(*known);
  } else if (silent_.empty()) {
    throw std::runtime_error("The database server has not answered yet.");
  }
}

void Database::Impl::connectAgain() {
  const auto begun = Clock::now();
  try {
    connectTo(*remote_, silent_);
  } catch (const std::exception&) {
    anySilent_ = anySilent_ || Clock::now() - begun > moment;
    throw;
  }
  outOfReach_ = anySilent_ = false;
  silent_.clear();
  share();
}

bool Database::Impl::answersSoon() {
  if (!remote_ || connection_.asked()) return !remote_ || answered(std::chrono::milliseconds(0));
  connection_.ask();
  askedAt_ = Clock::now();
  return answered(moment);
}

bool Database::Impl::answered(std::chrono::milliseconds longest) {
  const auto patience = std::chrono::seconds(remote_->address.answerSeconds);
  if (connection_.answered(longest)) return true;
  if (Clock::now() - askedAt_ < patience) return false;
  connection_.giveUp();
  return connection_.answered(longest);
}

void Database::Impl::giveUpIfSilent() noexcept {
  try {
    if (!answersSoon() && !answered(std::chrono::seconds(3))) connection_.giveUp();
  } catch (const std::exception&) {
    // It is lost.
  }
}

// Where every host answered the last time, be it with a refusal, connecting keeps nobody waiting,
// and asking first would be one aborted connection more.
bool Database::Impl::renewSoon() {
  if (!remote_ || isReady(connection_)) {
    renew(Waiting::no);
    return true;
  }
  if (!allAnswer_) {
    const auto longest = anySilent_ ? std::chrono::milliseconds(0) : moment;
    auto known = probe_.silent(remote_->address, longest);
    anySilent_ = !known || !known->empty();
    if (!known) return false;
    silent_ = std::move(*known);
  }
  const bool none = silent_.empty();
  try {
    connectAgain();
  } catch (const std::exception&) {
    allAnswer_ = none && !anySilent_;
    throw;
  }
  allAnswer_ = false;
  return true;
}

}  // namespace quillet::suite
