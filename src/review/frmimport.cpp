#include "review/frmimport.h"

#include "data/year.h"
#include "ports/busy.h"
#include "review/import_report.h"

namespace quillet {

frmimport::frmimport(Context& context)
    : SourceForm(context, "frmimport",
                 {{ColumnRole::particulars, "&Particulars"},
                  {ColumnRole::group, "&Group"},
                  {ColumnRole::debits, "&Debit"},
                  {ColumnRole::credits, "&Credit"},
                  {ColumnRole::amount, "&Amount"},
                  {ColumnRole::side, "D&r/Cr"}}),
      rows_(*this, *context.host, review_),
      boxes_(*this, context, review_, rows_) {
  attachCommands(mhelp, mnuback, cmdback);
  cmdimport.Click = [this] { CMDIMPORT_CLICK(); };
  cmdvouchers.Click = [this] {
    leadsToVouchers_ = true;
    leadsToVouchers_ = close();
  };
  for (Control* command : {static_cast<Control*>(&cmdnext), static_cast<Control*>(&mnunext)}) {
    command->Click = [this] {
      if (!rows_.nextQuestion()) showState("No row has a question.");
      focus(vsfi);
    };
  }
  lblquestion.setQuiet(true);
}

void frmimport::begin() {
  rows_.begin();
  boxes_.show();
  focus(vsfi);
}

bool frmimport::leaveBox() {
  if (active() != &txtgroup) return false;
  focus(vsfi);
  boxes_.show();
  return true;
}

// --- what a choice leads to ---------------------------------------------------------------------

void frmimport::reviewed() {
  showSource();
  rows_.show();
  boxes_.show();
  showState({});
}

void frmimport::showState(const std::string& text) {
  cmdvouchers.setVisible(review_.mapping().hasVouchers());
  const auto& refusals = review_.refusals();
  cmdnext.setEnabled(!refusals.empty());
  mnunext.setEnabled(!refusals.empty());
  std::string state = text;
  if (state.empty() && !refusals.empty()) {
    const Refusal& first = refusals.front();
    const std::size_t count = refusals.size();
    state = std::to_string(count) + (count == 1 ? " question. " : " questions. ");
    if (first.row != 0) state += "Row " + std::to_string(first.row) + ": ";
    state += first.text;
  }
  if (state.empty()) state = review_.difference();
  state = withDoubts(std::move(state));
  lblstate.setCaption(state.empty() ? "Nothing stands in the way." : state);
}

// --- importing ----------------------------------------------------------------------------------

bool frmimport::mayImport() {
  if (!review_.refusals().empty()) {
    const Refusal& first = review_.refusals().front();
    if (first.row != 0) rows_.goTo(first.row);
    const std::string row = first.row == 0 ? "" : "Row " + std::to_string(first.row) + ": ";
    context_.MsgBox(row + first.text, Buttons::OK, Icon::information);
    focus(vsfi);
    return false;
  }
  if (review_.toWrite().empty()) {
    context_.MsgBox("There is nothing to enter: all that is taken stands in the year already.",
                    Buttons::OK, Icon::information);
    return false;
  }
  const std::string asked = withDoubts(review_.difference());
  if (asked.empty()) return true;
  return context_.MsgBox(asked + "\r\nDo you want to import it all the same?", Buttons::YesNo,
                         Icon::question, Answer::No) == Answer::Yes;
}

void frmimport::CMDIMPORT_CLICK() {
  logErrors("CMDIMPORT_CLICK", [&] {
    if (refusesImport() || !mayImport()) return;
    enter([this] {
      return LineImport(*context_.host, year_.books)
          .run(review_.toWrite(), review_.books().standing,
               [this] { memory().keep(review_.additions(note())); });
    });
  });
}

// What is told is stored before; then the opener shows the lines, and the report stands above.
void frmimport::finish() {
  context_.MsgBox(importedText(review_), Buttons::OK, Icon::information);
  imported_ = true;
  close();
  const Busy busy(*context_.host);
  reportImport(*context_.host, *context_.reporter, review_, source_.name());
}

// --- what it looks like -------------------------------------------------------------------------

LayoutItem frmimport::layout() {
  const LayoutItem chosen = row({field("Sho&w", cboshow, 14), field("&Kind", cbokind, 18),
                                 item(cmdnearest), field("Gro&up of the line", txtgroup, 18, 1),
                                 item(vsfg), item(cmdgroupall), item(cmdconfirm), item(cmdnext)});
  return column({sourceLayout(), named("Rows of the source", item(vsfi, 1)), item(lblquestion),
                 chosen, item(lblstate),
                 row({named("Totals", item(vsft, 1)),
                      column({gap(), row({item(cmdvouchers), item(cmdimport), item(cmdback)})})})});
}

}  // namespace quillet
