#include "suite/client_list_dialogs.h"

#include "controls/open_forms.h"
#include "data/errors.h"
#include "suite/client_selection_form.h"
#include "suite/client_setup_form.h"

namespace quillet::suite {

ClientListDialogs::ClientListDialogs(Database& database, Settings& settings)
    : database_(database), settings_(settings) {}

ClientListDialogs::~ClientListDialogs() = default;

void ClientListDialogs::showSelection(const std::string& status) {
  show(std::make_unique<frmClSelection>(openForms(), database_, settings_, status));
}

void ClientListDialogs::showSetup() { show(std::make_unique<frmClSetup>(openForms(), settings_)); }

void ClientListDialogs::show(std::unique_ptr<Form> form) {
  if (shown_ && shown_->visible()) {
    openForms_->bringToFront(*shown_);
    return;
  }
  shown_ = std::move(form);
  shown_->showModal();
}

OpenForms& ClientListDialogs::openForms() {
  constexpr long invalidCall = 5;
  if (openForms_ == nullptr) {
    throw RunTimeError(invalidCall, "There is no screen to show it on.", "Service");
  }
  return *openForms_;
}

}  // namespace quillet::suite
