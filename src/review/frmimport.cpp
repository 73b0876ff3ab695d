#include "review/frmimport.h"

#include "books/clients.h"
#include "books/usual_group.h"
#include "data/year.h"
#include "ports/busy.h"
#include "review/import_report.h"

namespace quillet {
namespace {

constexpr int columnWidth = 17;
constexpr const char* notImported =
    "Nothing was imported, everything is as it was before. Import tries again.";

}  // namespace

frmimport::frmimport(Context& context)
    : Form(context.openForms, "frmimport"),
      context_(context),
      review_(
          [this](const std::string& headings) {
            return ImportMemory(*context_.host, year_.books.client, year_.keys).mapping(headings);
          },
          [this](const std::vector<long>& partIds) {
            AccountGroups groups;
            groups.load(*context_.host);
            return usualGroups(*context_.host, groups, partIds);
          }),
      source_(*this, context, review_),
      columns_(*this, review_),
      rows_(*this, *context.host, review_),
      boxes_(*this, context, review_, rows_) {
  KeyPress = [this](Key& key) { FORM_KEYPRESS(key); };
  cmdimport.Click = [this] { CMDIMPORT_CLICK(); };
  cmdback.Click = [this] { close(); };
  mnuback.Click = [this] { close(); };
  mhelp.Click = [this] {
    context_.host->helpid("import");
    context_.host->ObjHelp().Show();
  };
  for (Control* command : {static_cast<Control*>(&cmdnext), static_cast<Control*>(&mnunext)}) {
    command->Click = [this] {
      if (!rows_.nextQuestion()) showState("No row has a question.");
      focus(vsfi);
    };
  }
  lblquestion.setQuiet(true);
}

void frmimport::INITDATA(const ReviewedYear& year) { year_ = year; }

std::string frmimport::subject() const {
  return subjectOf(year_.clientName, year_.books.client, year_.keys.first, year_.keys.second);
}

// --- opening ------------------------------------------------------------------------------------

bool frmimport::OPENFILE(const std::string& path) {
  return open([&] { return source_.readFile(path); });
}

bool frmimport::OPENCELLS(const std::string& text) {
  return open([&] { return source_.readCells(text); });
}

bool frmimport::open(const std::function<SourceBook()>& read) {
  imported_ = false;
  review_.forget();
  try {
    SourceBook book = read();
    if (book.sheets.empty() || !tellImported(book)) return false;
    const Busy busy(*context_.host, "Comparing with the year ....");
    review_.open(std::move(book), readYearBooks(context_, year_));
    return true;
  } catch (const SourceError& error) {
    context_.MsgBox(error.what(), Buttons::OK, Icon::exclamation);
    return false;
  }
}

// False for a book of which no sheet can be read.
bool frmimport::tellImported(const SourceBook& book) {
  std::string refusals;
  for (const SourceSheet& sheet : book.sheets) {
    if (!sheet.rows.empty()) {
      const ImportMemory memory(*context_.host, year_.books.client, year_.keys);
      if (const auto before = memory.imported(book.fingerprint)) {
        context_.MsgBox("This was imported into the year before: " + *before +
                            ".\r\nWhat stands there already is not entered again.",
                        Buttons::OK, Icon::information);
      }
      return true;
    }
    if (!sheet.refusal.empty()) refusals += "\r\n" + sheet.name + ": " + sheet.refusal;
  }
  context_.MsgBox(source_.name() + " has no rows to import." + refusals, Buttons::OK,
                  Icon::exclamation);
  return false;
}

void frmimport::FORM_LOAD() {
  context_.host->resize_for_resolution(*this);
  setCaption("Import into the Trial Balance of " + year_.clientName + " for the Period " +
             shownDate(year_.keys.first) + " - " + shownDate(year_.keys.second));
  boxes_.offerGroups();
  source_.show();
  columns_.show();
  rows_.begin();
  boxes_.show();
  showState();
  focus(vsfi);
}

void frmimport::FORM_UNLOAD(bool& cancel) {
  if (imported_ || !review_.touched()) return;
  const Answer answer =
      context_.MsgBox("Do you want to leave the import? What was chosen here is lost.",
                      Buttons::YesNo, Icon::question, Answer::No);
  cancel = answer != Answer::Yes;
}

void frmimport::FORM_KEYPRESS(Key& key) {
  if (key != keys::Escape) return;
  key = keys::none;
  if (active() == &txtgroup) {
    focus(vsfi);
    boxes_.show();
  } else {
    close();
  }
}

// --- what a choice leads to ---------------------------------------------------------------------

void frmimport::reviewed() {
  source_.show();
  columns_.show();
  rows_.show();
  boxes_.show();
  showState();
}

void frmimport::showState(const std::string& text) {
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
  for (const std::string& doubt : review_.doubts()) state += (state.empty() ? "" : " ") + doubt;
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
  const std::string difference = review_.difference();
  if (difference.empty()) return true;
  return context_.MsgBox(difference + "\r\nDo you want to import it all the same?", Buttons::YesNo,
                         Icon::question, Answer::No) == Answer::Yes;
}

std::string frmimport::note() const {
  return source_.name() + ", " + context_.clock.now().substr(0, 16);
}

void frmimport::CMDIMPORT_CLICK() {
  logErrors("CMDIMPORT_CLICK", [&] {
    if (!mayImport()) return;
    std::optional<ImportEnd> how;
    try {
      const Busy busy(*context_.host, "Importing ....");
      ImportMemory memory(*context_.host, year_.books.client, year_.keys);
      how = LineImport(*context_.host, year_.books)
                .run(review_.toWrite(), review_.books().standing,
                     [&] { memory.keep(review_.additions(note())); });
    } catch (const std::exception& error) {
      showState(std::string(notImported) + ' ' + error.what());
      throw;
    }
    end(*how);
  });
}

void frmimport::end(ImportEnd how) {
  switch (how) {
    case ImportEnd::done:
      return finish();
    case ImportEnd::stopped:
      context_.MsgBox("Stopped. Nothing was imported.", Buttons::OK, Icon::information);
      return;
    case ImportEnd::booksOther:
      compareAnew();
      context_.MsgBox(
          "Other lines stand in the year than those that the source was compared with. Nothing was "
          "imported. It was compared anew: please look at the rows again.",
          Buttons::OK, Icon::exclamation);
      return;
    case ImportEnd::yearGone:
      context_.MsgBox("The year is no longer there. Nothing was imported.", Buttons::OK,
                      Icon::exclamation);
      return;
  }
}

// What is told is stored before; then the opener shows the lines, and the report stands above.
void frmimport::finish() {
  context_.MsgBox(importedText(review_), Buttons::OK, Icon::information);
  imported_ = true;
  close();
  const Busy busy(*context_.host);
  reportImport(*context_.host, *context_.reporter, review_, source_.name());
}

void frmimport::compareAnew() {
  review_.setBooks(readYearBooks(context_, year_));
  boxes_.offerGroups();
  reviewed();
}

void frmimport::takenBack() {
  if (!visible() || !review_.isOpen()) return;
  imported_ = false;
  logErrors("TAKENBACK", [&] {
    compareAnew();
    showState(notImported);
  });
}

// --- what it looks like -------------------------------------------------------------------------

LayoutItem frmimport::layout() {
  const char* const labels[] = {"&Particulars", "&Group", "&Debit", "&Credit", "&Amount", "D&r/Cr"};
  std::vector<LayoutItem> columns;
  for (int at = 0; at < cbocolumn.size(); ++at) {
    columns.push_back(field(labels[at], cbocolumn[at], columnWidth, 1));
  }
  columns.push_back(field("Decimal &mark", cbodecimals, 10));
  columns.push_back(item(chkround));
  const LayoutItem source =
      row({item(lblsource, 1), field("&Sheet", cbosheet, 20), field("&Encoding", cboencoding, 14),
           field("Delimi&ter", cbodelimiter, 11), field("&Headings", cboheading, 36)});
  const LayoutItem chosen = row({field("Sho&w", cboshow, 14), field("&Kind", cbokind, 18),
                                 item(cmdnearest), field("Gro&up of the line", txtgroup, 26, 1),
                                 item(vsfg), item(cmdgroupall), item(cmdconfirm), item(cmdnext)});
  return column({source, row(std::move(columns)), item(vsfi, 1), item(lblquestion), chosen,
                 item(lblstate),
                 row({item(vsft, 1), column({gap(), row({item(cmdimport), item(cmdback)})})})});
}

}  // namespace quillet
