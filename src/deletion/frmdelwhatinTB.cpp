#include "deletion/frmdelwhatinTB.h"

#include "books/clients.h"
#include "data/errors.h"
#include "host/rights.h"
#include "host/year_lock.h"

namespace quillet {
namespace {

// Error numbers of a path that cannot be used and of a bad file name.
constexpr long pathAccessError = 75;
constexpr long badFileName = 52;
constexpr long yearIsGone = 3021;  // there is no current record

enum MainOption { all = 0, none = 1, selected = 2 };
enum YesNoOption { yes = 0, no = 1 };

std::string headingOf(const std::string& mode, const std::string& yearText) {
  if (mode == "create") return "Create Trial Balance -> Overwrite existing for F.Y. " + yearText;
  if (mode == "merge") return "Merge Trial Balance -> Overwrite existing for F.Y. " + yearText;
  return "Delete Trial Balance for F.Y. " + yearText;
}

void clear(ControlArray<OptionButton>& options) {
  for (auto& option : options) option->setChecked(false);
}

void copyChoice(const ControlArray<OptionButton>& from, ControlArray<OptionButton>& to) {
  for (int i = 0; i < from.size(); ++i) to[i].setChecked(from[i].checked());
}

void enable(Frame& frame, ControlArray<OptionButton>& options, bool on) {
  frame.setEnabled(on);
  for (auto& option : options) option->setEnabled(on);
}

}  // namespace

frmdelwhatinTB::frmdelwhatinTB(Context& context)
    : Form(context.openForms, "frmdelwhatinTB"),
      context_(context),
      deletion_(*context.host, context.fileRemover, context.unposted) {
  setCaption("Delete Trial Balance Data");
  for (Label* label : {&lblhint, &lblsubject}) label->setQuiet(true);
  KeyPress = [this](Key& key) { FORM_KEYPRESS(key); };
  for (auto& option : optMain) option->Click = [this] { OPTMAIN_CLICK(); };
  for (auto& option : optSchOthData) option->Click = [this] { OPTSCHOTHDATA_CLICK(); };
  cmddelete.Click = [this] { CMDDELETE_CLICK(); };
  cmdcancel.Click = [this] { CMDCANCEL_CLICK(); };
}

LayoutItem frmdelwhatinTB::layout() {
  const auto options = [](ControlArray<OptionButton>& array) {
    std::vector<LayoutItem> items;
    for (auto& option : array) items.push_back(item(*option));
    items.push_back(gap());
    return row(std::move(items));
  };
  return column({item(lblheading), item(lblsubject), framed(famMain, {options(optMain)}),
                 framed(famSchOthData, {options(optSchOthData)}),
                 framed(famSchFA, {options(optSchFA)}), framed(famMiscDet, {options(optMiscDet)}),
                 item(lblhint), gap(), row({gap(), item(cmddelete), item(cmdcancel)})});
}

bool frmdelwhatinTB::INITDATA(const std::string& mode, const RegisteredYear& year,
                              const std::string& clientName) {
  bool ready = false;
  logErrors("INITDATA", [&] {
    mode_ = mode;
    deleted_ = false;
    problems_.clear();
    lblheading.setCaption(headingOf(mode, year.keys.text()));
    lblsubject.setCaption(subjectOf(clientName, year.client, year.keys.first, year.keys.second));
    for (auto* options : {&optMain, &optSchOthData, &optSchFA, &optMiscDet}) clear(*options);
    deletion_.open(year);
    famSchFA.setVisible(hasChart());
    showOptions();
    ready = true;
  });
  return ready;
}

void frmdelwhatinTB::FORM_LOAD() {
  context_.host->resize_for_resolution(*this);
  // Higher and wider than its few lines it would only be empty.
  size.width = 0.5;
  size.height = 0.6;
}

void frmdelwhatinTB::FORM_KEYPRESS(Key& key) {
  if (key == keys::Escape) {
    key = keys::none;
    CMDCANCEL_CLICK();
  } else if (key == keys::Enter && dynamic_cast<OptionButton*>(active())) {
    key = keys::none;
    focusNext();
  }
}

// --- the options --------------------------------------------------------------------------------

void frmdelwhatinTB::showOptions() {
  const bool free = optMain[selected].checked();
  enable(famSchOthData, optSchOthData, free);
  enable(famMiscDet, optMiscDet, free);
  coupleChart();
  lblhint.setCaption(optMain[none].checked() ? "Only the lines of the trial balance are deleted."
                     : free                  ? "Choose Yes or No in every frame."
                     : optMain[all].checked()
                         ? "Everything of this year is deleted, the year itself included."
                         : "");
}

void frmdelwhatinTB::coupleChart() {
  const bool open = hasChart() && deletesSchedules();
  if (!open) clear(optSchFA);
  enable(famSchFA, optSchFA, open && optMain[selected].checked());
  // The frame shows what is going to happen, also where "Yes (All)" has chosen for everything.
  famSchFA.setEnabled(open);
}

void frmdelwhatinTB::OPTMAIN_CLICK() {
  if (!optMain[selected].checked()) {
    const int choice = optMain[all].checked() ? yes : no;
    optSchOthData[choice].setChecked(true);
    optMiscDet[choice].setChecked(true);
    copyChoice(optSchOthData, optSchFA);
  }
  showOptions();
}

void frmdelwhatinTB::OPTSCHOTHDATA_CLICK() {
  copyChoice(optSchOthData, optSchFA);
  coupleChart();
}

// --- before the deletion ------------------------------------------------------------------------

bool frmdelwhatinTB::answered(const ControlArray<OptionButton>& options) {
  for (int i = 0; i < options.size(); ++i) {
    if (options[i].checked()) return true;
  }
  return false;
}

bool frmdelwhatinTB::optionsChosen() {
  // A chart whose frame is closed has nothing to be chosen: it stays with the schedules.
  const bool chosen =
      answered(optMain) && (!optMain[selected].checked() ||
                            (answered(optSchOthData) &&
                             (!famSchFA.enabled() || answered(optSchFA)) && answered(optMiscDet)));
  if (!chosen) context_.MsgBox("Select an option.", Buttons::OK, Icon::information);
  return chosen;
}

bool frmdelwhatinTB::rightsGranted() {
  if (mode_ != "delete" && !context_.host->CheckPass(right::overwrite)) return false;
  return !deletion_.year().isSigned || context_.host->CheckPass(right::remove);
}

bool frmdelwhatinTB::confirmed() {
  std::string more;
  if (deletesSchedules()) more += "\r\n - Schedules/Other Data relevant to Trial Balance";
  if (deletesChart()) more += "\r\n - Depreciation Chart (Fixed Assets)";
  if (deletesMisc()) {
    more += "\r\n - Misc. Forms/Reports/Certificates/Annexures relevant to Balance Sheet";
  }
  const std::string text = "Confirm Deletion of 'Trial Balance' ?";
  return context_.MsgBox(more.empty() ? text : text + "\r\nWith" + more, Buttons::YesNoCancel,
                         Icon::critical, Answer::Cancel) == Answer::Yes;
}

// --- the deletion -------------------------------------------------------------------------------

void frmdelwhatinTB::CMDDELETE_CLICK() {
  if (!optionsChosen() || !rightsGranted() || !confirmed()) return;
  problems_.clear();
  begins("DELETECHOSEN");
  if (lost()) {
    close();
    return;
  }
  deleteChosen();
  deleted_ = true;
  // With this form the editor of the year is closed, which is not there any more; a message stores
  // what was done so far.
  close();
  if (!problems_.empty()) context_.MsgBox(problems_, Buttons::OK, Icon::exclamation);
}

bool frmdelwhatinTB::lost() {
  YearLocks* const locks = context_.environment.yearLocks();
  const RegisteredYear& year = deletion_.year();
  return locks && locks->shared() && refusedAsLocked(context_, year.client, year.keys);
}

void frmdelwhatinTB::deleteChosen() {
  deletion_.deleteTrialBalance();
  // Without a chart some of its rows may be there all the same; the next year of that number would
  // inherit them.
  if (deletesSchedules()) deletion_.deleteSchedules(deletesChart() || removesYear());
  if (deletesMisc()) keepFilesLeft(deletion_.deleteMiscellaneous());
  if (!removesYear()) return;
  deletion_.deleteRegistryRow();
  // In the same transaction: a year that is gone is nobody's.
  hold.leave();
}

void frmdelwhatinTB::keepFilesLeft(const FilesLeft& left) {
  if (!left.any()) return;
  const std::string& client = deletion_.year().client;
  std::string names;
  for (const std::string& file : left.files) names += "\r\n" + file;
  problems_ = left.codeNamesNone ? "The files of this year were not deleted: the client code " +
                                       client + " cannot be part of a file name."
                                 : "These files could not be deleted:" + names;
  logErrors("CMDDELETE_CLICK", [&] {
    if (left.codeNamesNone) {
      throw RunTimeError(
          badFileName, "The client code " + client + " cannot be part of a file name.", "Quillet");
    }
    throw RunTimeError(pathAccessError, "Files not deleted:" + names, "Quillet");
  });
}

// Nothing was deleted, and nobody is to be told that something was.
void frmdelwhatinTB::takenBack() {
  logErrors("TAKENBACK", [&] {
    deleted_ = false;
    const RegisteredYear year = deletion_.year();
    deletion_.open(year);
    hold.take(context_.environment.yearLocks(), year.client, year.keys.second, year.table);
  });
}

// Another station may have deleted the year, and its tables may be another year's by now.
void frmdelwhatinTB::booksMoved(bool masters) {
  if (!masters || !visible() || deleted_) return;
  const RegisteredYear& shown = deletion_.year();
  const auto year = Registry(*context_.host).year(shown.client, shown.keys, YearSelect::home);
  if (year && year->table == shown.table && year->number == shown.number) return;
  close();
  throw RunTimeError(
      yearIsGone,
      "Another station has deleted the year meanwhile, or made it anew. Nothing was deleted here.",
      "Quillet");
}

void frmdelwhatinTB::CMDCANCEL_CLICK() { close(); }

}  // namespace quillet
