#include "suite/progress_indicator.h"

namespace quillet::suite {
namespace {
constexpr auto betweenUpdates = std::chrono::milliseconds(80);
}

void ProgressIndicator::show(bool show) {
  if (show == shown_) return;
  shown_ = show;
  done_ = total_ = 0;
  frontEnd_.showProgress(show);
}

void ProgressIndicator::Text1(const std::string& text) { frontEnd_.progressText(text); }

void ProgressIndicator::Max(long steps) {
  done_ = 0;
  total_ = steps;
  last_ = std::chrono::steady_clock::now();
  frontEnd_.progressBar(0, steps);
}

void ProgressIndicator::update_pg() {
  ++done_;
  const Time now = std::chrono::steady_clock::now();
  if (done_ < total_ && now - last_ < betweenUpdates) return;
  // The bar is full after the announced number of steps.
  if (done_ > total_) return;
  last_ = now;
  frontEnd_.progressBar(done_, total_);
}

bool ProgressIndicator::stopped() {
  if (!stopAfter_ || done_ < *stopAfter_) return frontEnd_.progressStopped();
  stopAfter_.reset();
  return true;
}

}  // namespace quillet::suite
