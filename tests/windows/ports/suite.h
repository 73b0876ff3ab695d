// The suite's objects as a test wants them, and the ports on them.
#pragma once

#include <memory>
#include <string>

#include "ports/recorder.h"
#include "windows/host/late_service.h"

namespace quillet::fakes {

// A menu of our own: the last entry is chosen.
class LastEntry : public PopupMenu {
 public:
  int choose(const std::vector<std::string>& entries) override {
    return static_cast<int>(entries.size());
  }
};

struct Suite {
  Suite() { serve("TalBase.ClsMain", host.get()); }
  ~Suite() { serve("TalBase.ClsMain", nullptr); }
  Suite(const Suite&) = delete;
  Suite& operator=(const Suite&) = delete;

  // Made when it is first asked for.
  windows::LateService& service() {
    if (!service_) service_ = newService();
    return *service_;
  }
  std::unique_ptr<windows::LateService> newService() {
    return std::make_unique<windows::LateService>(windows::LateService::Needs{
        [](Form&) { return holding("Caption", ""); },
        [](Control&) { return holding("Caption", ""); }, ownMenu_, [this] { return act; }});
  }

  Pointer<Recorder> host = Pointer<Recorder>::attach(new Recorder);
  unsigned long act = 0;

 private:
  LastEntry ownMenu_;
  std::unique_ptr<windows::LateService> service_;
};

}  // namespace quillet::fakes
