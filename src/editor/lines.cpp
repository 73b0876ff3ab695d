// The editor's commands on one line: begin it, save it, alter it, delete it.
#include <algorithm>

#include "books/trial_balance.h"
#include "editor/frmcrtb.h"

namespace quillet {

void frmcrtb::leaveEntry() {
  const ScopedFlag leaving = entry_.leaving();
  entry_.empty();
  saver_.putBack();
  focus(vsfm);
}

void frmcrtb::MNUINSERT_CLICK() {
  // What is typed for a year that cannot be written in stays to be read.
  if (books_.refusesChange(books_.years.yearInView())) return;
  leaveEntry();
  focus(txtpart);
}

void frmcrtb::MNUALTER_CLICK() {
  const Entry* selected = lines_.selected();
  if (!selected || !books_.years.hasTable()) return;
  // Leaving an entry may read the lines anew.
  const Entry entry = *selected;
  const YearLine line = *lines_.selectedLine();
  if (books_.refusesChange(line.year)) return;
  leaveEntry();
  entry_.alter(entry, line);
  focus(txtpart);
}

void frmcrtb::MNUDELETE_CLICK() {
  const int row = vsfm.current();
  if (row == 0) return;
  const Entry entry = *lines_.selected();
  for (const TwoYears::Year year : {TwoYears::current, TwoYears::previous}) {
    if (entry.line[year] && books_.refusesChange(year)) return;
  }
  const Answer answer = books_.context.MsgBox("Do you want to delete the selected record?",
                                              Buttons::YesNo, Icon::none, Answer::No, "Delete");
  if (answer != Answer::Yes) return;
  leaveEntry();
  if (!saver_.mayChangeLines()) return;
  logErrors("MNUDELETE_CLICK", [&] {
    const TwoYears& years = books_.years;
    for (const TwoYears::Year year : {TwoYears::current, TwoYears::previous}) {
      if (!entry.line[year]) continue;
      TrialBalance(books_.host(), years.books(year)).remove(*entry.line[year], years.lines(year));
    }
  });
  showStored();
  if (vsfm.current() == 0) vsfm.setCurrent(std::min(row, vsfm.rows()));
}

void frmcrtb::TXTDRCR_KEYPRESS(Key& key) {
  if (key != keys::Enter) return;
  key = keys::none;
  saver_.save();
}

}  // namespace quillet
