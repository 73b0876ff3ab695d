// The suite's popup menu as a menu of Windows, for a host that has none of its own.
#pragma once

#include <string>
#include <vector>

#include "ports/ports.h"
#include "windows/ui/form_windows.h"

namespace quillet::windows {

class NativePopupMenu : public PopupMenu {
 public:
  explicit NativePopupMenu(FormWindows& windows) : windows_(windows) {}
  int choose(const std::vector<std::string>& entries) override;

 private:
  FormWindows& windows_;
};

}  // namespace quillet::windows
