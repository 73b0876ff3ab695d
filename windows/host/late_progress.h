// The host's progress indicator.
#pragma once

#include <utility>

#include "ports/ports.h"
#include "windows/host/offered.h"

namespace quillet::windows {

class LateProgress : public Progress {
 public:
  void use(Late indicator) { indicator_ = std::move(indicator); }

  void Text1(const std::string& text) override { indicator_.put("Text1", text); }
  void Max(long steps) override {
    ifOffered([&] { indicator_.put("Max", steps); });
  }
  void update_pg() override { indicator_.call("update_pg"); }
  bool stopped() override {
    return indicator_.has("stopped") && asTruth(indicator_.call("stopped"));
  }

 private:
  Late indicator_;
};

}  // namespace quillet::windows
