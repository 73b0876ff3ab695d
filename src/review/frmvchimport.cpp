#include "review/frmvchimport.h"

#include <algorithm>

#include "data/year.h"
#include "ports/busy.h"
#include "review/voucher_report.h"

namespace quillet {

frmvchimport::frmvchimport(Context& context)
    : SourceForm(context, "frmvchimport",
                 {{ColumnRole::date, "D&ate"},
                  {ColumnRole::voucher, "&Voucher No"},
                  {ColumnRole::particulars, "&Particulars"},
                  {ColumnRole::group, "&Group"},
                  {ColumnRole::debits, "&Debit"},
                  {ColumnRole::credits, "&Credit"},
                  {ColumnRole::narration, "Na&rration"}}),
      rows_(*this, *context.host, vouchers_),
      group_(context, txtgroup, vsfg) {
  attachCommands(mhelp, mnuback, cmdback);
  cmdimport.Click = [this] { CMDIMPORT_CLICK(); };
  attachRows();
}

void frmvchimport::attachRows() {
  lblquestion.setQuiet(true);
  vsfi.RowColChange = [this] { showRow(); };
  vsfi.DblClick = [this] { mnugroup.Click(); };
  vsfi.KeyPress = [this](Key& key) {
    if (key != keys::Enter) return;
    key = keys::none;
    mnugroup.Click();
  };
  mnugroup.Click = [this] {
    if (txtgroup.focusable()) focus(txtgroup);
  };
  txtgroup.KeyPress = [this](Key& key) {
    if (key != keys::Enter) return;
    key = keys::none;
    setGroup(rows_.toGroup());
  };
  cmdgroupall.Click = [this] { setGroup(rows_.withoutGroup()); };
  cmdnearest.Click = [this] { turnNearest(); };
  mnunearest.Click = [this] { turnNearest(); };
  mnunext.Click = [this] {
    if (!rows_.nextQuestion()) showState("No voucher stays out.");
    focus(vsfi);
  };
  cmdnext.Click = [this] { mnunext.Click(); };
}

YearBooks frmvchimport::readBooks() {
  const YearDates year{shownDate(year_.keys.first), shownDate(year_.keys.second)};
  vouchers_.setJournal(readVoucherContents(*context_.host, year_.books, year.first, year.last),
                       year);
  return SourceForm::readBooks();
}

void frmvchimport::begin() {
  vouchers_.review();
  rows_.begin();
  showRow();
  focus(vsfi);
}

bool frmvchimport::leaveBox() {
  if (active() != &txtgroup) return false;
  focus(vsfi);
  showRow();
  return true;
}

// --- what a choice leads to ---------------------------------------------------------------------

void frmvchimport::reviewed() {
  vouchers_.review();
  showSource();
  rows_.show();
  showRow();
  showState({});
}

void frmvchimport::showRow() {
  const VoucherRow* row = rows_.current();
  const ImportedVoucherLine* line = row ? row->line : nullptr;
  txtgroup.setEnabled(line);
  mnugroup.setEnabled(line);
  group_.show(line ? line->group : "");
  bool near = false;
  if (line) {
    const auto choice = review_.choices().find(line->row);
    near = line->nearest.id != 0 ||
           (choice != review_.choices().end() && choice->second.usesNearest.value_or(false));
  }
  cmdnearest.setEnabled(near);
  mnunearest.setEnabled(near);
  lblquestion.setCaption(row ? vsfi.cell(vsfi.current(), vsfi.cols() - 1) : "");
}

int frmvchimport::leftWithReason() const {
  const auto& vouchers = vouchers_.vouchers();
  return static_cast<int>(
      std::count_if(vouchers.begin(), vouchers.end(),
                    [](const ReviewedVoucher& each) { return !each.voucher.reason.empty(); }));
}

void frmvchimport::showState(const std::string& text) {
  const int left = leftWithReason();
  cmdnext.setEnabled(left > 0);
  mnunext.setEnabled(left > 0);
  std::string state = text.empty() ? vouchers_.problem() : text;
  if (state.empty() && left > 0) {
    state = std::to_string(left) + (left == 1 ? " voucher stays" : " vouchers stay") + " out.";
    for (const VoucherRow& row : vouchers_.rows()) {
      if (row.question.empty()) continue;
      state += ' ' + row.question;
      break;
    }
  }
  state = withDoubts(std::move(state));
  lblstate.setCaption(state.empty() ? "Nothing stands in the way." : state);
}

void frmvchimport::setGroup(const std::vector<int>& rows) {
  if (rows.empty()) return;
  const long group = group_.typed();
  if (group == 0) return;
  focus(vsfi);
  review_.choose(rows, [&](RowChoice& choice) { choice.group = group; });
  reviewed();
}

// The nearest known ledger first, then a new one.
void frmvchimport::turnNearest() {
  const VoucherRow* row = rows_.current();
  if (!row || !row->line) return;
  const auto choice = review_.choices().find(row->line->row);
  const bool uses = choice != review_.choices().end() && choice->second.usesNearest.value_or(false);
  review_.choose(rows_.ofSameLedger(), [&](RowChoice& each) { each.usesNearest = !uses; });
  reviewed();
}

// --- importing ----------------------------------------------------------------------------------

bool frmvchimport::mayImport() {
  if (const std::string problem = vouchers_.problem(); !problem.empty()) {
    context_.MsgBox(problem, Buttons::OK, Icon::information);
    return false;
  }
  if (vouchers_.toEnter().empty()) {
    context_.MsgBox("There is no voucher to enter.", Buttons::OK, Icon::information);
    return false;
  }
  const bool all = leftWithReason() == 0;
  if (all && review_.doubts().empty()) return true;
  const char* const question =
      all ? "Do you want to import it all the same?" : "Do you want to import the others?";
  return context_.MsgBox(lblstate.caption() + "\r\n" + question, Buttons::YesNo, Icon::question,
                         Answer::No) == Answer::Yes;
}

void frmvchimport::CMDIMPORT_CLICK() {
  logErrors("CMDIMPORT_CLICK", [&] {
    showState({});
    if (refusesImport() || !mayImport()) return;
    enter([this] {
      return VoucherImport(*context_.host, context_.unposted, year_.books,
                           shownDate(year_.keys.first), shownDate(year_.keys.second))
          .run(vouchers_.toEnter(), vouchers_.standing(),
               [this] { memory().keep(vouchers_.additions(note())); });
    });
  });
}

// What is told is stored before; then the opener shows the vouchers, and the report stands above.
void frmvchimport::finish() {
  context_.MsgBox(importedText(vouchers_), Buttons::OK, Icon::information);
  imported_ = true;
  close();
  const Busy busy(*context_.host);
  reportVouchers(*context_.host, *context_.reporter, vouchers_, source_.name());
}

// --- what it looks like -------------------------------------------------------------------------

LayoutItem frmvchimport::layout() {
  const LayoutItem chosen = row({field("Sho&w", cboshow, 14), item(cmdnearest),
                                 field("Gro&up of the ledger", txtgroup, 30, 1), item(vsfg),
                                 item(cmdgroupall), item(cmdnext)});
  const LayoutItem end = row({item(cmdimport), item(cmdback)});
  return column({sourceLayout(), named("Vouchers of the source", item(vsfi, 1)), item(lblquestion),
                 chosen, item(lblstate),
                 row({named("Totals", item(vsft, 1)), column({gap(), end})})});
}

}  // namespace quillet
