// The host's popup menu: choose(array of texts) answers a position from 1. A host without one
// leaves the choice to a menu of ours.
#pragma once

#include <utility>

#include "ports/ports.h"
#include "windows/com/array.h"
#include "windows/host/offered.h"

namespace quillet::windows {

class LatePopupMenu : public PopupMenu {
 public:
  explicit LatePopupMenu(PopupMenu& own) : own_(own) {}
  void use(Late menu) { menu_ = std::move(menu); }

  int choose(const std::vector<std::string>& entries) override {
    if (!menu_.has("choose")) return own_.choose(entries);
    Array texts(VT_VARIANT, {{entries.size()}});
    fill(texts, entries);
    return static_cast<int>(asLong(menu_.call("choose", texts.release())));
  }

 private:
  PopupMenu& own_;
  Late menu_;
};

}  // namespace quillet::windows
