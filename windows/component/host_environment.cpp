#include "windows/component/host_environment.h"

#include "windows/component/form_objects.h"
#include "windows/host/late_reporter.h"
#include "windows/host/late_service.h"
#include "windows/host/late_spreadsheet.h"
#include "windows/host/late_stock.h"
#include "windows/ui/modal.h"

namespace quillet::windows {

HostEnvironment::HostEnvironment(FormWindows& windows, FormObjects& objects)
    : windows_(windows), objects_(objects), dialogs_(windows), popup_(windows) {}

std::unique_ptr<ServiceObject> HostEnvironment::createServiceObject() {
  return std::make_unique<LateService>(LateService::Needs{
      [this](Form& form) { return objects_.of(form); },
      [this](Control& control) { return objects_.of(control); },
      popup_,
      [this] { return acts_ && acts_->running() ? acts_->number() : 0; },
  });
}

std::unique_ptr<Reporter> HostEnvironment::createReporter() {
  return std::make_unique<LateReporter>();
}

std::unique_ptr<StockForms> HostEnvironment::createStockForms(OpenForms&) {
  return std::make_unique<LateStock>([this](const std::function<void()>& call) {
    windows_.interrupted();
    const Covered covered;
    call();
  });
}

std::unique_ptr<Spreadsheet> HostEnvironment::createSpreadsheet() {
  return std::make_unique<LateSpreadsheet>();
}

}  // namespace quillet::windows
