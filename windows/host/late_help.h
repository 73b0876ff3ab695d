// The host's help window.
#pragma once

#include <utility>

#include "ports/ports.h"
#include "windows/com/late.h"

namespace quillet::windows {

class LateHelp : public Help {
 public:
  void use(Late help) { help_ = std::move(help); }

  void Show() override { help_.call("Show"); }

 private:
  Late help_;
};

}  // namespace quillet::windows
