// The host's main page. One that cannot show a client goes on without.
#pragma once

#include <utility>

#include "ports/ports.h"
#include "windows/host/offered.h"

namespace quillet::windows {

class LateMainPage : public MainPage {
 public:
  void use(Late page) { page_ = std::move(page); }

  void showClient(const std::string& code, const std::string& name) override {
    if (page_.has("showClient")) ifOffered([&] { page_.call("showClient", code, name); });
  }

 private:
  Late page_;
};

}  // namespace quillet::windows
