#include "editor/history_commands.h"

#include "editor/frmcrtb.h"

namespace quillet {

HistoryCommands::HistoryCommands(frmcrtb& form, OpenBooks& books) : form_(form), books_(books) {
  frmcrtb::on(form.mnuchanges.Click, "MNUCHANGES_CLICK",
              [this] { show(&BooksHistory::showChanges); });
  frmcrtb::on(form.mnuasof.Click, "MNUASOF_CLICK", [this] { show(&BooksHistory::showAsItStood); });
}

void HistoryCommands::setButtons() {
  for (MenuEntry* command : {&form_.mnuchanges, &form_.mnuasof}) {
    command->setVisible(books_.context.environment.history() != nullptr);
    command->setEnabled(books_.years.hasTable());
  }
}

void HistoryCommands::show(void (BooksHistory::*window)(const YearOfClient& year)) {
  BooksHistory* const history = books_.context.environment.history();
  if (!history) return;
  const TwoYears& years = books_.years;
  const YearKeys keys = years.keys(years.yearInView());
  (history->*window)({years.client(), years.clientName(), keys.first, keys.second});
}

}  // namespace quillet
