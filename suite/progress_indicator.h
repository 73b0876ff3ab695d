// The progress indicator. A loop over thousands of rows reports each row, and the front end is
// updated a few times a second.
#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "suite/front_end.h"

namespace quillet::suite {

class ProgressIndicator : public Progress {
 public:
  explicit ProgressIndicator(FrontEnd& frontEnd) : frontEnd_(frontEnd) {}

  void show(bool show);
  void Text1(const std::string& text) override;
  void Max(long steps) override;
  void update_pg() override;
  bool stopped() override;

  // Stops the next work that can be stopped, after so many steps.
  void stopAfter(long steps) { stopAfter_ = steps; }

 private:
  using Time = std::chrono::steady_clock::time_point;
  FrontEnd& frontEnd_;
  bool shown_ = false;
  long done_ = 0;
  long total_ = 0;
  Time last_{};
  std::optional<long> stopAfter_;
};

}  // namespace quillet::suite
