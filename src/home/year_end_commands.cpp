#include "home/year_end_commands.h"

#include "editor/frmcrtb.h"
#include "home/third.h"
#include "host/rights.h"
#include "yearend/opening_report.h"

namespace quillet {

YearEndCommands::YearEndCommands(third& form, Context& context)
    : form_(form), context_(context), review_(context) {
  third::on(form.mnubringfwd.Click, "MNUBRINGFWD_CLICK", [this] { MNUBRINGFWD_CLICK(); });
  third::on(form.mnuopening.Click, "MNUOPENING_CLICK", [this] { MNUOPENING_CLICK(); });
}

// Nothing when none is chosen, which a message says, or when it may not be looked into.
std::optional<RegisteredYear> YearEndCommands::chosenYear() {
  form_.status("");
  if (!form_.famyears.shown() || form_.mergeList.shown() || !form_.years.chosen()) {
    context_.MsgBox(
        "Choose the client and the year first: \"Alter/View Trial Balance\" lists them.",
        Buttons::OK, Icon::information);
    return std::nullopt;
  }
  const auto year = form_.years.findChosen();
  if (!year || (year->isSigned && !context_.host->CheckPass(right::open))) return std::nullopt;
  if (!year->table.empty()) return year;
  form_.status("No table is named for the trial balance of " + year->keys.text() + ".");
  return std::nullopt;
}

void YearEndCommands::MNUBRINGFWD_CLICK() {
  const auto year = chosenYear();
  if (!year) return;
  bool mayShow = false;
  form_.statusOnFailure("The closing balances of " + year->keys.text() + " could not be read.",
                        [&] { mayShow = review_.INITDATA(*year, form_.clientName()); });
  if (mayShow) review_.showModal([this] { showBrought(); });
}

void YearEndCommands::showBrought() {
  if (!review_.broughtInto()) return;
  const RegisteredYear& year = *review_.broughtInto();
  if (review_.madeYear()) {
    context_.setYear({year.client, year.table, year.keys.first, year.keys.second});
  }
  if (context_.editorForm && theEditor(context_).shows(year.client, year.table)) {
    frmcrtb& editor = theEditor(context_);
    editor.leaveEntry();
    editor.LOADPARTICULARS();
    editor.showStored();
  }
  form_.years.showAt(year.keys);
  form_.status("Brought forward into " + year.keys.text() + ".");
}

void YearEndCommands::MNUOPENING_CLICK() {
  const auto year = chosenYear();
  if (!year) return;
  form_.statusOnFailure("The opening of " + year->keys.text() + " could not be compared.",
                        [&] { reportOpening(context_, year->client, year->keys); });
}

}  // namespace quillet
