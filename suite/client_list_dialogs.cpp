#include "suite/client_list_dialogs.h"

#include "controls/desk.h"
#include "data/errors.h"
#include "suite/client_selection_form.h"
#include "suite/client_setup_form.h"

namespace quillet::suite {

ClientListDialogs::ClientListDialogs(Database& database, Settings& settings)
    : database_(database), settings_(settings) {}

ClientListDialogs::~ClientListDialogs() = default;

void ClientListDialogs::showSelection(const std::string& status) {
  show(std::make_unique<frmClSelection>(desk(), database_, settings_, status));
}

void ClientListDialogs::showSetup() { show(std::make_unique<frmClSetup>(desk(), settings_)); }

void ClientListDialogs::show(std::unique_ptr<Form> form) {
  if (shown_ && shown_->visible()) {
    desk_->bringToFront(*shown_);
    return;
  }
  shown_ = std::move(form);
  shown_->showModal();
}

Desk& ClientListDialogs::desk() {
  constexpr long invalidCall = 5;
  if (desk_ == nullptr) {
    throw RunTimeError(invalidCall, "There is no desk to show it on.", "Service");
  }
  return *desk_;
}

}  // namespace quillet::suite
