#include "yearend/frmbringfwd.h"

#include <algorithm>
#include <initializer_list>

#include "books/amount.h"
#include "books/clients.h"
#include "books/posting.h"
#include "books/year_rules.h"
#include "data/year.h"
#include "host/rights.h"
#include "host/year_lock.h"
#include "ports/busy.h"

namespace quillet {
namespace {

constexpr const char* notBrought =
    "Nothing was brought forward, everything is as it was before. Bring Forward tries again.";

}  // namespace

frmbringfwd::frmbringfwd(Context& context)
    : Form(context.openForms, "frmbringfwd"),
      context_(context),
      rows_(*this, *context.host, review_),
      shares_(*this, context, review_) {
  attachCommands();
  KeyPress = [this](Key& key) { FORM_KEYPRESS(key); };
}

void frmbringfwd::attachCommands() {
  cmdbring.Click = [this] { CMDBRING_CLICK(); };
  for (Control* command : {static_cast<Control*>(&mnuback), static_cast<Control*>(&cmdback)}) {
    command->Click = [this] { close(); };
  }
  mhelp.Click = [this] {
    context_.host->helpid("forward");
    context_.host->ObjHelp().Show();
  };
  mnutake.Click = [this] { rows_.turn(); };
  mnunext.Click = [this] {
    if (!rows_.nextLeft()) showState("Every line that is offered is taken.");
    focus(vsfl);
  };
}

std::string frmbringfwd::subject() const {
  return subjectOf(clientName_, last_.client, last_.keys.first, last_.keys.second);
}

// --- opening ------------------------------------------------------------------------------------

bool frmbringfwd::INITDATA(const RegisteredYear& last, const std::string& clientName) {
  last_ = last;
  clientName_ = clientName;
  broughtInto_.reset();
  review_.forget();
  const YearKeys next = last.keys.after();
  if (yearFault(shownDate(next.first), shownDate(next.second)) != YearFault::none) {
    context_.MsgBox("No year follows " + last.keys.text() + ".", Buttons::OK, Icon::information);
    return false;
  }
  if (refusedAsLocked(context_, last.client, next)) return false;
  review_.open(readBooks());
  const auto& standing = review_.books().next;
  return !standing || !standing->isSigned || context_.host->CheckPass(right::open);
}

ForwardBooks frmbringfwd::readBooks() {
  const Busy busy(*context_.host, "Reading the closing balances ....");
  postAllMissing(*context_.host, context_.unposted);
  return readForwardBooks(*context_.host, last_);
}

void frmbringfwd::FORM_LOAD() {
  context_.host->resize_for_resolution(*this);
  setCaption("Bring Forward " + clientName_ + ", " + last_.keys.text() + " into " +
             review_.books().nextKeys.text());
  rows_.begin();
  shares_.begin();
  showState();
  focus(vsfl);
}

void frmbringfwd::FORM_KEYPRESS(Key& key) {
  if (key != keys::Escape) return;
  key = keys::none;
  if (dynamic_cast<TextBox*>(active())) {
    shares_.restore();
    focus(vsfl);
  } else {
    close();
  }
}

void frmbringfwd::FORM_UNLOAD(bool& cancel) {
  if (broughtInto_ || !review_.touched()) return;
  const Answer answer = context_.MsgBox(
      "Do you want to leave without bringing the year forward? What was chosen here is lost.",
      Buttons::YesNo, Icon::question, Answer::No);
  cancel = answer != Answer::Yes;
}

void frmbringfwd::readAnew() {
  review_.setBooks(readBooks());
  rows_.begin();
  shares_.begin();
}

void frmbringfwd::takenBack() {
  if (!visible() || !review_.isOpen()) return;
  broughtInto_.reset();
  logErrors("TAKENBACK", [&] {
    readAnew();
    showState(notBrought);
  });
}

// --- what a choice leads to ---------------------------------------------------------------------

void frmbringfwd::reviewed() {
  rows_.show();
  shares_.show();
  showState();
}

// What does not agree, "" when everything does.
std::string frmbringfwd::doubt() const {
  const auto told = [&](const char* what, Money difference) {
    return std::string(what) + " differs by " + groupedBalance(*context_.host, difference) + '.';
  };
  const Opening& opening = review_.opening();
  std::string text;
  if (!opening.lastDifference.isZero()) {
    text = told("The old year", opening.lastDifference) + " So does what is brought forward.";
  }
  const Money afterwards = review_.afterwards().difference();
  if (!afterwards.isZero() && afterwards != opening.lastDifference) {
    text += (text.empty() ? "" : " ") + told("The new year then", afterwards);
  }
  return text;
}

void frmbringfwd::showState(const std::string& text) {
  const Opening& opening = review_.opening();
  lblprofit.setCaption(
      (opening.profit < Money() ? "Loss of the old year: " : "Profit of the old year: ") +
      groupedAmount(*context_.host, abs(opening.profit)));
  mnunext.setEnabled(review_.leavesAny());
  std::string state = text.empty() ? opening.question : text;
  if (state.empty()) state = doubt();
  lblstate.setCaption(state.empty() ? "Nothing stands in the way." : state);
}

// --- bringing forward ---------------------------------------------------------------------------

bool frmbringfwd::mayBring() {
  if (refusedAsLocked(context_, last_.client, last_.keys.after())) return false;
  const std::string& question = review_.opening().question;
  if (!question.empty()) {
    context_.MsgBox(question, Buttons::OK, Icon::information);
    shares_.focusAsked();
    return false;
  }
  // What stands there already may be remembered as the year's opening.
  const bool remembered = review_.books().year.brought && !review_.remembersOther();
  if (!review_.takesAny() && (review_.leavesAny() || remembered)) {
    context_.MsgBox(review_.leavesAny()
                        ? "There is nothing to write: no line is taken."
                        : "There is nothing to write: the year was brought forward before, and "
                          "the old year has not changed since.",
                    Buttons::OK, Icon::information);
    return false;
  }
  const std::string asked = doubt();
  return asked.empty() ||
         context_.MsgBox(asked + "\r\nDo you want to bring it forward all the same?",
                         Buttons::YesNo, Icon::question, Answer::No) == Answer::Yes;
}

void frmbringfwd::CMDBRING_CLICK() {
  logErrors("CMDBRING_CLICK", [&] {
    if (!mayBring()) return;
    ForwardEntry entry(*context_.host, review_.books());
    ForwardEnd how{};
    try {
      const Busy busy(*context_.host, "Bringing forward ....");
      how = entry.run(review_.rows(), review_.choices(), context_.clock.now().substr(0, 16));
    } catch (const std::exception& error) {
      showState(std::string(notBrought) + ' ' + error.what());
      throw;
    }
    end(how, entry.year());
  });
}

void frmbringfwd::end(ForwardEnd how, const RegisteredYear& year) {
  switch (how) {
    case ForwardEnd::done:
      return finish(year);
    case ForwardEnd::stopped:
      context_.MsgBox("Stopped. Nothing was brought forward.", Buttons::OK, Icon::information);
      return;
    case ForwardEnd::booksOther:
      readAnew();
      showState();
      context_.MsgBox(
          "Other lines stand in the two years than those that are shown. Nothing was brought "
          "forward. They were read anew: please look at them again.",
          Buttons::OK, Icon::exclamation);
      return;
    case ForwardEnd::yearGone:
      context_.MsgBox("The year is no longer there. Nothing was brought forward.", Buttons::OK,
                      Icon::exclamation);
      return;
    case ForwardEnd::noTable:
      context_.MsgBox("No blank database available. Delete one or more years database.");
      return;
  }
}

// What is told is stored before.
void frmbringfwd::finish(const RegisteredYear& year) {
  const auto written = std::ranges::count_if(review_.rows(), &ForwardReview::Row::taken);
  context_.MsgBox("Brought forward into " + year.keys.text() +
                      ". Lines written: " + std::to_string(written) + '.',
                  Buttons::OK, Icon::information);
  broughtInto_ = year;
  close();
}

// --- what it looks like -------------------------------------------------------------------------

LayoutItem frmbringfwd::layout() {
  const LayoutItem choices =
      row({field("Sho&w", cboshow, 14), item(chkzero), field("&Stock goes to", cbostock, 32),
           field("Led&ger", txtstock, 18, 1), item(vsfp)});
  const LayoutItem other =
      row({field("Pe&r cent", txtpercent, 9), field("&Other ledger", txtcapital, 14, 1), item(vsfc),
           named("Group of the other ledger", item(cbocapital, 0, 24)), item(cmdcapital)});
  return column(
      {choices, named("Lines that are brought forward", item(vsfl, 1)), item(lblstate),
       row({column({item(lblprofit), named("Shares of the profit", item(vsfs)), other}, 8),
            column({named("Totals", item(vsft, 1)), row({gap(), item(cmdbring), item(cmdback)})},
                   7)})});
}

}  // namespace quillet
