#include "home/third.h"

#include <initializer_list>
#include <utility>

#include "books/clients.h"
#include "books/ledger_cleanup.h"
#include "editor/frmcrtb.h"
#include "ports/busy.h"

namespace quillet {
namespace {

constexpr const char* clientsUnread = "The clients could not be read.";

// An editor left open behind shows, and would write, names and groups as it read them.
void refreshEditor(Context& context) {
  if (context.editorForm && context.editorForm->visible()) theEditor(context).mastersChanged();
}

}  // namespace

third& theHome(Context& context) {
  if (!context.homeForm) context.homeForm = std::make_unique<third>(context);
  return static_cast<third&>(*context.homeForm);
}

third::third(Context& context)
    : Form(context.openForms, "third"),
      ClGrd1(*this, "ClGrd1", context),
      years(*this, context),
      newYear(*this, context),
      mergeList(*this, context),
      removal(*this, context),
      yearEnd(*this, context),
      yearLock(*this, context),
      context_(context),
      groupMaster_(context),
      ledgerMaster_(context) {
  setCaption("Trial Balance");
  attachCommands();
  KeyDown = [this](Key& key) { FORM_KEYDOWN(key); };
  ClGrd1.DblClick = [this] { CLGRD1_DBLCLICK(); };
  flexgrid2.DblClick = [this] { FLEXGRID2_DBLCLICK(); };
  flexgrid2.KeyPress = [this](Key& key) { FLEXGRID2_KEYPRESS(key); };
  cmdgrpmas.Click = [this] { CMDGRPMAS_CLICK(); };
  cmdledmas.Click = [this] { CMDLEDMAS_CLICK(); };
  mnurefresh.Click = [this] { MNUREFRESH_CLICK(); };
  mnuhelp.Click = [this] { MNUHELP_CLICK(); };
  mnuexit.Click = [this] { MNUEXIT_CLICK(); };
  for (Label* label : {&lblstatus, &lblprint, &lblproposal}) label->setQuiet(true);
}

void third::attachCommands() {
  const Command commands[] = {{&mnucreate, "create"},      {&mnualter, "alter"},
                              {&mnudelete, "delete"},      {&mnumerge, "merge"},
                              {&mnualpha, "alphabetical"}, {&mnusumm, "group_summarized"},
                              {&mnudet, "group_detail"}};
  for (const Command& command : commands) {
    command.button->Click = [this, command] {
      choose(command);
      showClients();
    };
  }
}

std::string third::fileSubject() const {
  const YearKeys* year = years.chosen();
  return year ? fileSubjectOf(clientName_, clientCode_, year->first) : std::string();
}

LayoutItem third::layout() {
  const LayoutItem commands =
      column({item(mnucreate), item(mnualter), item(mnudelete), item(mnumerge), item(lblprint),
              item(mnualpha), item(mnusumm), item(mnudet), gap(), item(cmdgrpmas), item(cmdledmas),
              item(mnurefresh), item(mnuhelp), item(mnuexit)});
  const LayoutItem clients = framed(Frame3, {ClGrd1.arrangement()}, 1);
  const LayoutItem dates = framed(
      famdates, {row({field("&First date", MaskEdBox1, 12), field("Second da&te", MaskEdBox2, 12),
                      item(cmdyear), item(cmdyearimport), gap()}),
                 item(lblproposal), named("Years that there are", item(grdyears, 1)),
                 // Takes the room where there are none.
                 gap(0)});
  const LayoutItem list =
      framed(famyears, {named("Years", item(flexgrid2, 1)),
                        row({item(cmdchanges), item(cmdasof), gap(), item(cmdmerge)})});
  const LayoutItem year = framed(Frame1, {item(Label1), stack({dates, list})}, 1);
  return column({row({commands, stack({clients, year})}, 1), item(lblstatus)}, 1);
}

// --- the form -----------------------------------------------------------------------------------

void third::FORM_LOAD() {
  context_.host->resize_for_resolution(*this);
  clientCode_.clear();
  clientName_.clear();
  flexgrid2.clearRows();
  ClGrd1.empty();
  choose({&mnualter, "alter"});
  showFirstStep();
  justLoaded_ = true;
  statusOnFailure(clientsUnread, [&] {
    namespace cc = client_columns;
    ClGrd1.LoadClList(context_.host->GetSettingINI(cc::section, cc::statusKey, ""),
                      context_.host->GetSettingINI(cc::section, cc::groupKey, ""));
    ClGrd1.SelectLastClient();
  });
  status(ClGrd1.notice());
}

void third::FORM_ACTIVATE() {
  logErrors("FORM_ACTIVATE", [&] {
    if (std::exchange(justLoaded_, false) || removal.runs()) return;
    if (famyears.shown() && !mergeList.shown()) return years.refresh();
    if (!Frame3.visible()) return;
    refreshClients();
    if (!ClGrd1.notice().empty() || lblstatus.caption() == clientsUnread) {
      status(ClGrd1.notice());
    }
  });
}

// Lists that were read during the act may show what is not there; the row that it began with is
// chosen again.
void third::takenBack() {
  // What it says was done is not.
  if (openForms().active() == this) status("");
  logErrors("TAKENBACK", [&] { newYear.takenBack(); });
  logErrors("TAKENBACK", [&] {
    if (clientIsGone()) {
      leaveGoneClient();
    } else if (mergeList.shown()) {
      mergeList.show();
    } else if (famyears.shown()) {
      years.showAt(flexgrid2.current());
    } else {
      showAnew();
    }
  });
}

// What is ticked to be merged stays; the merge reads it once more.
void third::booksMoved(bool) {
  logErrors("BOOKSMOVED", [&] {
    if (clientIsGone()) {
      leaveGoneClient();
    } else if (!mergeList.shown()) {
      showAnew();
    }
  });
}

void third::showAnew() {
  if (Frame3.visible()) {
    refreshClients();
  } else if (famyears.visible()) {
    years.refresh();
  } else {
    newYear.showYears();
  }
}

void third::FORM_UNLOAD() {
  newYear.leave();
  removal.leave();
  ClGrd1.keepWidths();
}

void third::FORM_KEYDOWN(Key& key) {
  if (key == keys::Find && focus(ClGrd1.txtsearch)) key = keys::none;
  if (key != keys::Escape) return;
  key = keys::none;
  if (Frame1.visible()) {
    showClients();
  } else {
    ClGrd1.search("");
  }
}

void third::choose(const Command& command) {
  Button* const buttons[] = {&mnucreate, &mnualter, &mnudelete, &mnumerge,
                             &mnualpha,  &mnusumm,  &mnudet};
  mode_ = command.mode;
  for (Button* button : buttons) button->setChosen(button == command.button);
}

void third::showFirstStep() {
  newYear.leave();
  removal.leave();
  Frame1.setVisible(false);
  Frame3.setVisible(true);
  ClGrd1.setVisible(true);
  focus(ClGrd1);
}

void third::showClients() {
  showFirstStep();
  status("");
  refreshClients();
  status(ClGrd1.notice());
}

void third::refreshClients() {
  statusOnFailure(clientsUnread, [&] { ClGrd1.refresh(); });
}

// --- choosing a client --------------------------------------------------------------------------

void third::CLGRD1_DBLCLICK() {
  const int row = ClGrd1.Row();
  if (row == 0) return;
  status("");
  const std::string code = ClGrd1.TextMatrix(row, 0);
  if (!context_.host->CheckClpass(code)) return;
  takeClient(code, ClGrd1.TextMatrix(row, 1));
  // The search has led to its choice; the next letters begin another one.
  ClGrd1.search("");
  if (mode_ == "create" || mode_ == "merge") {
    newYear.begin();
  } else {
    years.show();
  }
}

void third::takeClient(const std::string& code, const std::string& name) {
  clientCode_ = code;
  clientName_ = name;
  if (context_.clientCode != code) context_.setYear({code, {}, {}, {}});
  context_.host->MainPageObj().showClient(code, name);
  // Where it cannot be kept, the client is chosen all the same.
  logErrors("CLGRD1_DBLCLICK", [&] { context_.host->vLstSelClCode(code); });
}

std::string third::clientInView() const {
  return Frame1.visible() ? clientCode_ : ClGrd1.TextMatrix(ClGrd1.Row(), 0);
}

void third::registerChanged(const std::string& current, const std::string& told) {
  clientCode_.clear();
  clientName_.clear();
  showClients();
  ClGrd1.showClient(current);
  status(ClGrd1.notice().empty() ? told : told + ' ' + ClGrd1.notice());
}

// --- choosing a year ----------------------------------------------------------------------------

void third::showSecondStep(Frame& with, const std::string& task) {
  famdates.setVisible(&with == &famdates);
  famyears.setVisible(&with == &famyears);
  Label1.setCaption(clientName_ + ": " + task);
  Frame3.setVisible(false);
  ClGrd1.setVisible(false);
  Frame1.setVisible(true);
}

void third::FLEXGRID2_DBLCLICK() {
  if (mergeList.shown()) {
    context_.MsgBox("DBl Click will not work here,Press Enter to merge.", Buttons::OK,
                    Icon::information);
  } else if (mode_ == "alter" || mode_ == "create" || mode_ == "merge") {
    years.open();
  } else if (mode_ == "delete") {
    years.remove();
  } else {
    years.print();
  }
}

void third::FLEXGRID2_KEYPRESS(Key& key) {
  if (key != keys::Enter) return;
  key = keys::none;
  if (mergeList.shown()) {
    mergeList.merge();
  } else {
    flexgrid2.DblClick();
  }
}

void third::tellYearIsGone(const std::string& clientName, const YearKeys& year) {
  context_.MsgBox("The Trial Balance of '" + clientName + "' for F.Y. " + year.text() +
                      " does not exist any more.",
                  Buttons::OK, Icon::information);
}

// From a command's button to where one goes on.
void third::focusList() {
  if (!dynamic_cast<Button*>(active())) return;
  for (Control* where : std::initializer_list<Control*>{&ClGrd1, &flexgrid2, &MaskEdBox1}) {
    if (where->focusable()) {
      focus(*where);
      return;
    }
  }
}

// --- the other commands -------------------------------------------------------------------------

void third::CMDGRPMAS_CLICK() {
  status("");
  focusList();
  groupMaster_.INITDATA(Frame1.visible() ? clientCode_ : std::string());
  groupMaster_.showModal([this] {
    if (groupMaster_.groupsChanged()) refreshEditor(context_);
  });
}

void third::CMDLEDMAS_CLICK() {
  status("");
  focusList();
  ledgerMaster_.showModal([this] {
    if (ledgerMaster_.changed()) refreshEditor(context_);
  });
}

void third::MNUREFRESH_CLICK() {
  status("");
  focusList();
  LedgerCleanup cleanup;
  try {
    const Busy busy(*context_.host);
    cleanup = cleanLedgerMaster(*context_.host);
  } catch (...) {
    status("The ledger master was not looked through to its end.");
    refreshEditor(context_);
    throw;
  }
  if (cleanup.removed > 0) refreshEditor(context_);
  status(textOf(cleanup));
}

void third::MNUHELP_CLICK() {
  focusList();
  context_.host->helpid("2-2");
  context_.host->ObjHelp().Show();
}

void third::MNUEXIT_CLICK() { close(); }

}  // namespace quillet
