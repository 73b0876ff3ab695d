// A request to end, as at the end of a session or by kill, ends the program as closing its last
// window does: the books are left in order. A second one ends it at once.
#pragma once

#include <QSocketNotifier>
#include <QTimer>
#include <memory>

namespace quillet::desktop {

class EndingSignals {
 public:
  EndingSignals();
  ~EndingSignals();
  EndingSignals(const EndingSignals&) = delete;
  EndingSignals& operator=(const EndingSignals&) = delete;

 private:
  std::unique_ptr<QSocketNotifier> notifier_;
  QTimer ending_;
};

}  // namespace quillet::desktop
