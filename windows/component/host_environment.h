// How the module comes by its surroundings inside a host: everything is the host's, called by name;
// dialogs and the clock are the system's.
#pragma once

#include <memory>

#include "host/context.h"
#include "windows/host/windows_clock.h"
#include "windows/ui/dialogs.h"
#include "windows/ui/popup_menu.h"

namespace quillet::windows {

class FormObjects;
class FormWindows;

class HostEnvironment : public Environment {
 public:
  HostEnvironment(FormWindows& windows, FormObjects& objects);
  // Learns which act is running; before that there is none.
  void follow(const Acts& acts) { acts_ = &acts; }

  std::unique_ptr<ServiceObject> createServiceObject() override;
  std::unique_ptr<Reporter> createReporter() override;
  std::unique_ptr<StockForms> createStockForms(OpenForms& openForms) override;
  std::unique_ptr<Spreadsheet> createSpreadsheet() override;
  Dialogs& dialogs() override { return dialogs_; }
  Clock& clock() override { return clock_; }

 private:
  FormWindows& windows_;
  FormObjects& objects_;
  const Acts* acts_ = nullptr;
  NativeDialogs dialogs_;
  NativePopupMenu popup_;
  WindowsClock clock_;
};

}  // namespace quillet::windows
