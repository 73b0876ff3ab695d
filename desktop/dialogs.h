// Message boxes, the file dialog and the password prompt on the screen.
#pragma once

#include <functional>

#include "ports/ports.h"

class QFileDialog;
class QWidget;

namespace quillet::desktop {

class BusyPanel;
class Windows;

// In its parent's font, with whole names of files in sight.
void fit(QFileDialog& dialog);

class DesktopDialogs : public Dialogs {
 public:
  DesktopDialogs(Windows& windows, BusyPanel& busy) : windows_(windows), busy_(busy) {}

  Answer MsgBox(const Message& message) override;
  std::optional<std::string> saveFile(const std::string& filter,
                                      const std::string& proposed) override;
  std::optional<std::string> openFile(const std::string& filter, const std::string& folder);
  // In the folder that was used last.
  std::optional<std::string> openFile(const std::string& filter) override {
    return openFile(filter, {});
  }
  std::optional<std::string> password(const std::string& prompt) override;

 private:
  QWidget* prepare();

  Windows& windows_;
  BusyPanel& busy_;
};

}  // namespace quillet::desktop
