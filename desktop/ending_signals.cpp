#include "desktop/ending_signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <array>
#include <chrono>
#include <csignal>
#include <stdexcept>

namespace quillet::desktop {
namespace {

constexpr std::array requests{SIGTERM, SIGHUP, SIGINT};

std::array<int, 2> ends{-1, -1};  // of the pipe that wakes the event loop
pid_t owner = 0;                  // a child that was only just made has none

void wake(int) {
  const char any = 0;
  if (getpid() == owner) static_cast<void>(!write(ends[1], &any, 1));
}

void handle(int signal, void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART | (handler == SIG_DFL ? 0 : static_cast<int>(SA_RESETHAND));
  sigaction(signal, &action, nullptr);
}

}  // namespace

EndingSignals::EndingSignals() {
  if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
    throw std::runtime_error("There is no pipe.");
  owner = getpid();
  notifier_ = std::make_unique<QSocketNotifier>(ends[0], QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, &ending_, [this] {
    notifier_->setEnabled(false);
    ending_.start(std::chrono::milliseconds(50));
  });
  // A dialog has a loop of its own, and one may open on the way out.
  QObject::connect(&ending_, &QTimer::timeout, &ending_, [] { QCoreApplication::exit(0); });
  for (const int signal : requests) handle(signal, wake);
}

EndingSignals::~EndingSignals() {
  for (const int signal : requests) handle(signal, SIG_DFL);
  notifier_.reset();
  for (int& end : ends) {
    close(end);
    end = -1;
  }
}

}  // namespace quillet::desktop
