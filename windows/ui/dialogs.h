// Message boxes, the file dialog and the password prompt over the forms' windows.
#pragma once

#include <optional>
#include <string>

#include "ports/ports.h"
#include "windows/ui/form_windows.h"

namespace quillet::windows {

class NativeDialogs : public Dialogs {
 public:
  explicit NativeDialogs(FormWindows& windows) : windows_(windows) {}

  Answer MsgBox(const Message& message) override;
  std::optional<std::string> saveFile(const std::string& filter,
                                      const std::string& proposed) override;
  std::optional<std::string> password(const std::string& prompt) override;

 private:
  HWND prepare();

  FormWindows& windows_;
};

}  // namespace quillet::windows
