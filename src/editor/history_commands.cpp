#include "editor/history_commands.h"

#include "editor/frmcrtb.h"
#include "host/take_back.h"

namespace quillet {

HistoryCommands::HistoryCommands(frmcrtb& form, OpenBooks& books, EntryFields& entry)
    : form_(form), books_(books), entry_(entry) {
  frmcrtb::on(form.mnutakeback.Click, "MNUTAKEBACK_CLICK", [this] { MNUTAKEBACK_CLICK(); });
  frmcrtb::on(form.mnuchanges.Click, "MNUCHANGES_CLICK",
              [this] { show(&BooksHistory::showChanges); });
  frmcrtb::on(form.mnuasof.Click, "MNUASOF_CLICK", [this] { show(&BooksHistory::showAsItStood); });
}

void HistoryCommands::setButtons() {
  for (MenuEntry* command : {&form_.mnutakeback, &form_.mnuchanges, &form_.mnuasof}) {
    command->setVisible(books_.context.environment.history() != nullptr);
    command->setEnabled(books_.years.hasTable());
  }
}

YearOfClient HistoryCommands::yearInView() const {
  const TwoYears& years = books_.years;
  const YearKeys keys = years.keys(years.yearInView());
  return {years.client(), years.clientName(), keys.first, keys.second};
}

// What is being typed may be about a line that goes.
void HistoryCommands::MNUTAKEBACK_CLICK() {
  if (!entry_.untouched()) {
    form_.hint("Save the line or press Esc before something is taken back.");
    return;
  }
  if (const auto told = takeBackLast(books_.context, yearInView())) form_.hint(*told);
}

void HistoryCommands::show(void (BooksHistory::*window)(const YearOfClient& year)) {
  BooksHistory* const history = books_.context.environment.history();
  if (!history) return;
  (history->*window)(yearInView());
}

}  // namespace quillet
