#include "editor/line_saver.h"

#include <algorithm>
#include <utility>

#include "books/amount.h"
#include "data/sql.h"
#include "editor/frmcrtb.h"
#include "host/saved_text.h"

namespace quillet {
namespace {

constexpr const char* notSaved = "The line was not saved. Enter tries again.";
constexpr const char* notReplaced =
    "The line was not saved. What it replaces is taken out: Enter tries again, Esc puts it back.";
constexpr const char* notPutBack =
    "What a save that failed has taken out could not be put back. The next save tries again.";

}  // namespace

LineSaver::LineSaver(frmcrtb& form, OpenBooks& books, EntryFields& entry, LinesGrid& lines)
    : form_(form),
      books_(books),
      entry_(entry),
      lines_(lines),
      replacement_(books.host(), books.groups) {}

void LineSaver::save() {
  const bool had = !books_.locked(entry_.year());
  const bool named = !form_.txtpart.text().empty();
  form_.begins("SAVELINE");
  // Lost as the turn came, and told.
  if (had && books_.locked(entry_.year())) return form_.lblsaved.setCaption("");
  if (named && form_.txtpart.text().empty()) return tellMoved();
  const auto typed = entry_.checked();
  if (!typed || !putBack()) return;
  remember();
  before_.saved = entry_.fields();
  const auto& altered = entry_.altered();
  const TwoYears& years = books_.years;
  const TwoYears::Year year = entry_.year();
  std::optional<YearLine> saved;
  form_.logErrors("TXTDRCR_KEYPRESS", [&] {
    const auto replaced = altered ? std::optional(altered->line) : std::nullopt;
    const Line line = replacement_.replace(years.books(year), years.lines(year), replaced,
                                           typed->pair, typed->amount);
    saved = {year, line};
    if (line.srno != 0) books_.host().ConQuery(flushTables);
  });
  if (saved) {
    showSaved(*saved);
  } else {
    showFailure(year);
  }
}

// Another station has altered or deleted the line or the ledger that was meant, as the hint says.
void LineSaver::tellMoved() {
  form_.lblsaved.setCaption("");
  books_.context.MsgBox(form_.lblhint.caption(), Buttons::OK, Icon::information);
  if (!entry_.untouched()) form_.focus(form_.txtpart);
}

void LineSaver::showSaved(const YearLine& saved) {
  const bool altering = entry_.altered().has_value();
  const int corrected = altering ? form_.vsfm.current() : 0;
  entry_.endAltering();
  form_.showStored();
  lines_.select(saved);
  // The row got a new number and may stand elsewhere; whoever works down the list goes on from
  // here.
  if (corrected > 0) form_.vsfm.setCurrent(std::min(corrected, form_.vsfm.rows()));
  form_.lblsaved.setCaption(savedText(books_.context.clock));
  if (altering) {
    form_.leaveEntry();
  } else {
    form_.MNUINSERT_CLICK();
  }
}

// What was typed stays for another attempt.
void LineSaver::showFailure(TwoYears::Year year) {
  form_.lblsaved.setCaption("");
  form_.showStored();
  if (books_.years.linesRead()) replacement_.setStanding(books_.years.lines(year));
  form_.hint(complete() ? notSaved : notReplaced);
}

// --- after an act was taken back ----------------------------------------------------------------

void LineSaver::remember() {
  const unsigned long act = form_.openForms().acts.number();
  if (before_.act != act) before_ = {act, replacement_.left(), std::nullopt};
}

std::optional<EntryFields::Fields> LineSaver::takenBack() {
  if (before_.act != form_.openForms().acts.number()) return std::nullopt;
  replacement_.restore(before_.left);
  return std::exchange(before_.saved, std::nullopt);
}

// --- after a failure ----------------------------------------------------------------------------

bool LineSaver::putBack() {
  if (complete()) return true;
  const bool possible = writeBack();
  if (form_.visible()) form_.showStored();
  if (!complete()) form_.hint(notPutBack);
  return possible && complete();
}

// Lines that have no place in the books any more are forgotten; false then, and after a failure.
bool LineSaver::writeBack() {
  remember();
  bool possible = false;
  form_.logErrors("PUTBACK", [&] {
    const LineReplacement::State state = replacement_.state();
    possible = state == LineReplacement::State::asLeft;
    if (state == LineReplacement::State::changed) {
      tellMissing("The books have changed since. Please enter it again if it is missing.");
    }
    if (possible) {
      replacement_.putBack();
    } else {
      replacement_.forget();
    }
  });
  return possible;
}

bool LineSaver::mayChangeLines() {
  if (!complete()) tellMissing("It could not be written back. Please try again.");
  return complete();
}

void LineSaver::close() {
  if (!complete()) writeBack();
  if (!complete()) tellMissing("It could not be written back. Opening the editor tries again.");
}

void LineSaver::tellMissing(const std::string& outcome) {
  std::string text;
  for (const Line& line : replacement_.missing()) {
    text += books_.host().GetPart_MastPartId(line.partId) + ", " + books_.groups.name(line.allId) +
            ", " + groupedAmount(books_.host(), line.amount) + ' ' + line.side() + "\r\n";
  }
  books_.context.MsgBox(text + "was taken out by a save that failed. " + outcome, Buttons::OK,
                        Icon::information);
}

}  // namespace quillet
