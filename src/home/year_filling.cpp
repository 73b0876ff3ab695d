// What a year that was just made begins with: the particulars of the year before it, or a file's.
#include <utility>

#include "books/posting.h"
#include "editor/frmcrtb.h"
#include "home/third.h"

namespace quillet {

void YearEntry::fill() {
  if (form_.mode() == "merge") {
    form_.mergeList.show();
    return;
  }
  const HoldUntilEnd holding{hold_};
  const std::string created = "Trial balance of " + year().keys.text() + " created";
  const std::string partly = created + ", but the previous year was not taken over in full.";
  form_.status(created + ".");
  bool taken = false;
  form_.statusOnFailure(partly, [&] { taken = offerPreviousYear(); });
  if (!taken) {
    form_.status(partly);
    forgetYears();
    return;
  }
  form_.years.showAt(year().keys);
  form_.statusFirst(created + ".");
  if (auto file = std::exchange(source_, std::nullopt)) importLines(std::move(*file));
}

void YearEntry::importLines(SourceFile file) {
  frmcrtb& editor = theEditor(context_);
  editor.showYear(form_.clientName());
  if (editor.visible()) editor.IMPORTFILE(std::move(file));
}

bool YearEntry::offerPreviousYear() {
  const auto previous = creation_.previous();
  if (!previous) {
    context_.MsgBox("No previous years available.", Buttons::OK, Icon::information);
    return true;
  }
  const Answer answer = context_.MsgBox("Do you want to load previous year particulars.",
                                        Buttons::YesNo, Icon::question, Answer::Yes);
  return answer != Answer::Yes || !mayTakeOver(*previous) || DATA_TRANSFER(*previous);
}

// Another station may have worked while a person was asked.
bool YearEntry::mayTakeOver(const RegisteredYear& previous) {
  YearLocks* const locks = context_.environment.yearLocks();
  const bool stands =
      !locks || locks->stands(previous.client, previous.keys.second, previous.table);
  if (stands && !hold_.lost()) return true;
  context_.MsgBox("Another station has " +
                      (stands ? "had " + year().keys.text() : "deleted the previous year") +
                      " meanwhile. Nothing was loaded; the list shows what is stored.",
                  Buttons::OK, Icon::information);
  return false;
}

bool YearEntry::DATA_TRANSFER(const RegisteredYear& previous) {
  bool done = false;
  form_.logErrors("DATA_TRANSFER", [&] {
    const bool figures = context_.MsgBox("Do you want to Import Figures also?", Buttons::YesNo,
                                         Icon::question, Answer::No) == Answer::Yes;
    if (mayTakeOver(previous)) {
      postAllMissing(*context_.host, context_.unposted);
      creation_.copyLines(previous.table, figures);
    }
    done = true;
  });
  return done;
}

}  // namespace quillet
