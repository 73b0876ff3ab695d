#include "review/source_form.h"

#include <algorithm>

#include "books/clients.h"
#include "books/usual_group.h"
#include "data/year.h"
#include "host/error_log.h"
#include "ports/busy.h"

namespace quillet {
namespace {

constexpr int columnWidth = 12;
constexpr const char* notImported =
    "Nothing was imported, everything is as it was before. Import tries again.";

ControlArray<ComboBox> columnBoxes(Form& form, std::size_t boxes) {
  ControlArray<ComboBox> all{form, "cbocolumn", {}};
  for (std::size_t box = 0; box < boxes; ++box) all.load("");
  return all;
}

template <class Roles>
std::vector<ColumnRole> rolesOf(const Roles& roles) {
  std::vector<ColumnRole> all;
  for (const auto& each : roles) all.push_back(each.role);
  return all;
}

}  // namespace

SourceForm::SourceForm(Context& context, std::string name, std::vector<Role> roles)
    : Form(context.openForms, std::move(name)),
      cbocolumn(columnBoxes(*this, roles.size())),
      context_(context),
      review_([this](const std::string& headings) { return memory().mapping(headings); },
              [this](const std::vector<long>& partIds) {
                AccountGroups groups;
                groups.load(*context_.host);
                return usualGroups(*context_.host, groups, partIds);
              }),
      source_(*this, context, review_),
      roles_(std::move(roles)),
      columns_(*this, review_, rolesOf(roles_)) {
  KeyPress = [this](Key& key) { FORM_KEYPRESS(key); };
}

void SourceForm::attachCommands(MenuEntry& help, MenuEntry& back, Button& backButton) {
  back.Click = [this] { close(); };
  backButton.Click = [this] { close(); };
  help.Click = [this] {
    context_.host->helpid("import");
    context_.host->ObjHelp().Show();
  };
}

std::string SourceForm::subject() const {
  return subjectOf(year_.clientName, year_.books.client, year_.keys.first, year_.keys.second);
}

// --- opening ------------------------------------------------------------------------------------

void SourceForm::OPENFILE(SourceFile file) {
  source_.takeFile(file.path);
  open(std::move(file.book));
}

bool SourceForm::OPENCELLS(const std::string& text) {
  try {
    SourceBook book = source_.readCells(text);
    if (book.sheets.empty()) return false;
    open(std::move(book));
    return true;
  } catch (const SourceError& error) {
    context_.MsgBox(error.what(), Buttons::OK, Icon::exclamation);
    return false;
  }
}

void SourceForm::open(SourceBook book) {
  imported_ = false;
  review_.forget();
  if (const auto before = memory().imported(book.fingerprint)) {
    context_.MsgBox("This was imported into the year before: " + *before +
                        ".\r\nWhat stands there already is not entered again.",
                    Buttons::OK, Icon::information);
  }
  const Busy busy(*context_.host, "Comparing with the year ....");
  review_.open(std::move(book), readBooks());
}

void SourceForm::takeSource(const SourceForm& from) {
  year_ = from.year_;
  imported_ = false;
  source_.take(from.source_);
  const Busy busy(*context_.host, "Comparing with the year ....");
  review_.open(from.review_.book(), readBooks());
  const std::size_t sheet = from.review_.sheetIndex();
  if (sheet != review_.sheetIndex()) review_.chooseSheet(sheet);
}

void SourceForm::FORM_LOAD() {
  context_.host->resize_for_resolution(*this);
  setCaption(title() + " of " + year_.clientName + " for the Period " +
             shownDate(year_.keys.first) + " - " + shownDate(year_.keys.second));
  offerGroups();
  showSource();
  begin();
  showState({});
}

void SourceForm::FORM_KEYPRESS(Key& key) {
  if (key != keys::Escape) return;
  key = keys::none;
  if (!leaveBox()) close();
}

void SourceForm::FORM_UNLOAD(bool& cancel) {
  if (imported_ || !review_.touched()) return;
  const Answer answer =
      context_.MsgBox("Do you want to leave the import? What was chosen here is lost.",
                      Buttons::YesNo, Icon::question, Answer::No);
  cancel = answer != Answer::Yes;
}

// --- how it is read ------------------------------------------------------------------------------

void SourceForm::showSource() {
  source_.show();
  columns_.show();
}

LayoutItem SourceForm::sourceLayout() {
  std::vector<LayoutItem> columns;
  for (int at = 0; at < cbocolumn.size(); ++at) {
    columns.push_back(
        field(roles_[static_cast<std::size_t>(at)].label, cbocolumn[at], columnWidth, 1));
  }
  columns.push_back(field("Decimal &mark", cbodecimals, 10));
  columns.push_back(item(chkround));
  const LayoutItem source =
      row({item(lblsource, 1), field("&Sheet", cbosheet, 20), field("&Encoding", cboencoding, 14),
           field("Delimi&ter", cbodelimiter, 11), field("&Headings", cboheading, 36)});
  return column({source, row(std::move(columns))});
}

// --- importing ----------------------------------------------------------------------------------

std::string SourceForm::withDoubts(std::string text) const {
  const std::string doubts = review_.doubts();
  if (!text.empty() && !doubts.empty()) text += ' ';
  return std::move(text) + doubts;
}

std::string SourceForm::note() const {
  return source_.name() + ", " + context_.clock.now().substr(0, 16);
}

void SourceForm::enter(const std::function<ImportEnd()>& run) {
  std::optional<ImportEnd> how;
  try {
    const Busy busy(*context_.host, "Importing ....");
    how = run();
  } catch (const std::exception& error) {
    showState(std::string(notImported) + ' ' + error.what());
    // All of it was taken back.
    throw NothingDone(error);
  }
  end(*how);
}

void SourceForm::end(ImportEnd how) {
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

void SourceForm::compareAnew() {
  review_.setBooks(readBooks());
  offerGroups();
  reviewed();
}

void SourceForm::takenBack() {
  if (!visible() || !review_.isOpen()) return;
  imported_ = false;
  logErrors("TAKENBACK", [&] {
    compareAnew();
    showState(notImported);
  });
}

}  // namespace quillet
