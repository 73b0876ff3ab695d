#include "home/third.h"

#include <algorithm>
#include <utility>

#include "books/ledger_cleanup.h"
#include "books/posting.h"
#include "books/year_rules.h"
#include "data/sql.h"
#include "data/year.h"
#include "editor/frmcrtb.h"
#include "home/printouts.h"
#include "host/rights.h"
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
    : Form(context.desk, "third"),
      ClGrd1(*this, "ClGrd1", context),
      context_(context),
      deletion_(context),
      groupMaster_(context),
      ledgerMaster_(context) {
  setCaption("Trial Balance");
  attachModes();
  KeyDown = [this](Key& key) { FORM_KEYDOWN(key); };
  ClGrd1.DblClick = [this] { CLGRD1_DBLCLICK(); };
  flexgrid2.DblClick = [this] { FLEXGRID2_DBLCLICK(); };
  flexgrid2.KeyPress = [this](Key& key) { FLEXGRID2_KEYPRESS(key); };
  MaskEdBox1.KeyPress = [this](Key& key) { MASKEDBOX1_KEYPRESS(key); };
  MaskEdBox2.GotFocus = [this] { MASKEDBOX2_GOTFOCUS(); };
  MaskEdBox2.KeyPress = [this](Key& key) { MASKEDBOX2_KEYPRESS(key); };
  cmdgrpmas.Click = [this] { CMDGRPMAS_CLICK(); };
  cmdledmas.Click = [this] { CMDLEDMAS_CLICK(); };
  mnurefresh.Click = [this] { MNUREFRESH_CLICK(); };
  mnuhelp.Click = [this] { MNUHELP_CLICK(); };
  mnuexit.Click = [this] { MNUEXIT_CLICK(); };
  lblstatus.quiet = true;
  lblprint.quiet = true;
}

void third::attachModes() {
  const ModeButton modes[] = {{&mnucreate, "create", "MNUCREATE_CLICK"},
                              {&mnualter, "alter", "MNUALTER_CLICK"},
                              {&mnudelete, "delete", "MNUDELETE_CLICK"},
                              {&mnumerge, "merge", "MNUMERGE_CLICK"},
                              {&mnualpha, "alphabetical", "MNUALPHA_CLICK"},
                              {&mnusumm, "group_summarized", "MNUSUMM_CLICK"},
                              {&mnudet, "group_detail", "MNUDET_CLICK"}};
  for (const ModeButton& mode : modes) {
    mode.button->Click = [this, mode] {
      trap(mode.procedure, [&] {
        setMode(mode);
        showClients();
      });
    };
  }
}

Node third::layout() {
  const Node commands =
      column({item(mnucreate), item(mnualter), item(mnudelete), item(mnumerge), item(lblprint),
              item(mnualpha), item(mnusumm), item(mnudet), gap(), item(cmdgrpmas), item(cmdledmas),
              item(mnurefresh), item(mnuhelp), item(mnuexit)});
  const Node clients = framed(Frame3, {ClGrd1.arrangement()}, 1);
  const Node dates = framed(
      famdates,
      {row({field("&First date", MaskEdBox1, 12), field("Second da&te", MaskEdBox2, 12), gap()}),
       gap()});
  const Node years =
      framed(Frame1, {item(Label1), stack({dates, framed(famyears, {item(flexgrid2, 1)})})}, 1);
  return column({row({commands, stack({clients, years})}, 1), item(lblstatus)}, 1);
}

// --- the form -----------------------------------------------------------------------------------

void third::FORM_LOAD() {
  trap("FORM_LOAD", [&] {
    context_.host->resize_for_resolution(*this);
    clientCode_.clear();
    clientName_.clear();
    flexgrid2.clearRows();
    ClGrd1.empty();
    setMode({&mnualter, "alter", "MNUALTER_CLICK"});
    showFirstStep();
    justLoaded_ = true;
    orSay(clientsUnread, [&] {
      namespace cc = client_columns;
      ClGrd1.LoadClList(context_.host->GetSettingINI(cc::section, cc::statusKey, ""),
                        context_.host->GetSettingINI(cc::section, cc::groupKey, ""));
      ClGrd1.SelectLastClient();
    });
    status(ClGrd1.notice());
  });
}

void third::FORM_ACTIVATE() {
  trap("FORM_ACTIVATE", [&] {
    if (std::exchange(justLoaded_, false) || !Frame3.visible()) return;
    refreshClients();
    if (!ClGrd1.notice().empty() || lblstatus.caption() == clientsUnread) {
      status(ClGrd1.notice());
    }
  });
}

void third::FORM_RESIZE() {
  // The arrangement follows the window by itself.
}

void third::FORM_UNLOAD() {
  trap("FORM_UNLOAD", [&] { ClGrd1.keepWidths(); });
}

void third::FORM_KEYDOWN(Key& key) {
  trap("FORM_KEYDOWN", [&] {
    if (key != keys::Escape) return;
    key = keys::none;
    if (Frame1.visible()) {
      showClients();
    } else {
      ClGrd1.search("");
    }
  });
}

void third::setMode(const ModeButton& chosen) {
  Button* const buttons[] = {&mnucreate, &mnualter, &mnudelete, &mnumerge,
                             &mnualpha,  &mnusumm,  &mnudet};
  mode_ = chosen.mode;
  for (Button* button : buttons) button->setChosen(button == chosen.button);
}

void third::showFirstStep() {
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
  orSay(clientsUnread, [&] { ClGrd1.refresh(); });
}

// --- choosing a client --------------------------------------------------------------------------

void third::CLGRD1_DBLCLICK() {
  trap("CLGRD1_DBLCLICK", [&] {
    const int row = ClGrd1.Row();
    if (row == 0) return;
    status("");
    const std::string code = ClGrd1.TextMatrix(row, 0);
    if (!context_.host->CheckClpass(code)) return;
    takeClient(code, ClGrd1.TextMatrix(row, 1));
    if (mode_ == "create" || mode_ == "merge") {
      beginDates();
    } else {
      showYears();
    }
  });
}

void third::takeClient(const std::string& code, const std::string& name) {
  clientCode_ = code;
  clientName_ = name;
  if (context_.clientCode != code) context_.setYear({code, {}, {}, {}});
  context_.host->MainPageObj().showClient(code, name);
  // Where it cannot be kept, the client is chosen all the same.
  trap("CLGRD1_DBLCLICK", [&] { context_.host->vLstSelClCode(code); });
}

void third::beginDates() {
  flexgrid2.clearRows();
  listsSources_ = false;
  MaskEdBox1.setText(emptyFirstDate);
  MaskEdBox2.setText(emptySecondDate);
  showSecondStep(famdates, "type the financial year");
  focus(MaskEdBox1);
}

void third::showSecondStep(Frame& with, const std::string& task) {
  famdates.setVisible(&with == &famdates);
  famyears.setVisible(&with == &famyears);
  Label1.setCaption(clientName_ + ": " + task);
  Frame3.setVisible(false);
  ClGrd1.setVisible(false);
  Frame1.setVisible(true);
}

void third::showYears() {
  loadYears();
  if (flexgrid2.rows() == 0) {
    context_.MsgBox("No entry of this year is available.", Buttons::OK, Icon::information);
  }
}

void third::loadYears() {
  flexgrid2.clearRows();
  listsSources_ = false;
  status("");
  RecordsetPtr rows;
  orSay("The years could not be read.", [&] {
    rows =
        context_.query("select code_no,f_year_dt,s_year_dt,f_yr,s_yr from master where code_no='" +
                       client() + "' order by s_yr");
  });
  flexgrid2.setColumns({{.heading = "From", .width = 14}, {.heading = "To", .width = 14}});
  for (; !rows->EOF_(); rows->MoveNext()) {
    flexgrid2.addRow({shownDate(rows->text("F_YR")), shownDate(rows->text("S_YR"))});
  }
  flexgrid2.setCurrent(flexgrid2.rows());
  showSecondStep(famyears, "choose the year");
  focus(flexgrid2);
}

// --- choosing a year ----------------------------------------------------------------------------

void third::FLEXGRID2_DBLCLICK() {
  trap("FLEXGRID2_DBLCLICK", [&] {
    if (listsSources_) {
      context_.MsgBox("DBl Click will not work here,Press Enter to merge.", Buttons::OK,
                      Icon::information);
    } else if (mode_ == "alter" || mode_ == "create" || mode_ == "merge") {
      openEditor();
    } else if (mode_ == "delete") {
      deleteYear();
    } else {
      printChosenYear();
    }
  });
}

void third::FLEXGRID2_KEYPRESS(Key& key) {
  trap("FLEXGRID2_KEYPRESS", [&] {
    if (key != keys::Enter) return;
    key = keys::none;
    if (listsSources_) {
      mergeSources();
    } else {
      FLEXGRID2_DBLCLICK();
    }
  });
}

RecordsetPtr third::selectYear(int row) {
  const std::string first = dateKey(flexgrid2.cell(row, 0));
  const std::string second = dateKey(flexgrid2.cell(row, 1));
  auto year = context_.query("select * from master where code_no='" + client() + "' and f_yr='" +
                             context_.host->escaped(first) + "' and s_yr='" +
                             context_.host->escaped(second) + "'");
  if (!year->EOF_()) return year;
  if (context_.clientCode == clientCode_ && context_.firstDate == first) context_.forgetYear();
  tellYearIsGone(clientName_, yearText(first, second));
  loadYears();
  flexgrid2.setCurrent(std::min(row, flexgrid2.rows()));
  return nullptr;
}

void third::tellYearIsGone(const std::string& clientName, const std::string& year) {
  context_.MsgBox(
      "The Trial Balance of '" + clientName + "' for F.Y. " + year + " does not exist any more.",
      Buttons::OK, Icon::information);
}

void third::openEditor() {
  const int row = flexgrid2.current();
  if (row == 0) return;
  const std::string first = dateKey(flexgrid2.cell(row, 0));
  const std::string second = dateKey(flexgrid2.cell(row, 1));
  context_.forgetYear();
  const auto year = selectYear(row);
  if (!year || !rightToOpen(*year)) return;
  const std::string table = year->text("tbl_nm");
  status("");
  if (table.empty()) {
    status("No table is named for the trial balance of " + yearText(first, second) + ".");
    return;
  }
  context_.setYear({clientCode_, table, first, second});
  theEditor(context_).showYear(clientName_);
}

bool third::rightToOpen(Recordset& year) {
  return year.text("d_of_s").empty() || context_.host->CheckPass(right::open);
}

void third::printChosenYear() {
  const int row = flexgrid2.current();
  if (row == 0) return;
  const auto year = selectYear(row);
  if (!year) return;
  status("");
  const std::string first = flexgrid2.cell(row, 0);
  const std::string second = flexgrid2.cell(row, 1);
  orSay("The trial balance of " + yearText(first, second) + " could not be printed.", [&] {
    settlePostings(*context_.host, context_.unposted);
    printYear(context_, mode_,
              {client(), clientName_, sqlName(year->text("tbl_nm")), first, second});
  });
}

// --- deleting a year ----------------------------------------------------------------------------

void third::deleteYear() {
  const int row = flexgrid2.current();
  if (row == 0) return;
  const std::string year = yearText(flexgrid2.cell(row, 0), flexgrid2.cell(row, 1));
  const Answer answer =
      context_.MsgBox("Do you really want to Delete Trial Balance of '" + clientName_ +
                          "' for F.Y. " + year + " ?\r\n\r\nConfirm Delete ?",
                      Buttons::YesNo, Icon::question, Answer::No);
  if (answer != Answer::Yes) return;
  if (const auto registered = selectYear(row)) {
    openDeletion(*registered);
  }
}

// Also when the deletion failed in the middle: the list tells what is left.
void third::afterDeletion(const std::string& year) {
  trap("FLEXGRID2_DBLCLICK", [&] {
    const int row = flexgrid2.current();
    loadYears();
    flexgrid2.setCurrent(std::min(row, flexgrid2.rows()));
    const std::string files =
        deletion_.filesLeft() ? " Not all of its files could be deleted." : "";
    status(deletion_.registryRowDeleted() ? "Trial balance of " + year + " deleted." + files
           : deletion_.deleted()
               ? "What was chosen of " + year + " is deleted. The year itself stays." + files
               : "The deletion of " + year + " was not completed. Delete it again.");
  });
}

// An editor left open on the year would write its next line into what was removed.
void third::closeEditorOf(const std::string& table) {
  if (!context_.editorForm) return;
  frmcrtb& editor = theEditor(context_);
  if (editor.shows(clientCode_, table)) editor.close();
}

void third::openDeletion(Recordset& year, std::function<void()> overwrite) {
  const bool marked = !year.text("d_of_s").empty();
  const DeletableYear deletable{clientCode_, year.text("tbl_nm"), year.integer("Count"),
                                yearText(year.text("F_YR"), year.text("S_YR")), marked ? "1" : ""};
  status("");
  if (!deletion_.INITDATA(mode_, deletable)) {
    status("The trial balance of " + deletable.yearText + " could not be looked into.");
    return;
  }
  deletion_.showModal([this, deletable, overwrite = std::move(overwrite)] {
    if (!deletion_.touched()) return;
    closeEditorOf(deletable.table);
    const bool selected = context_.clientCode == clientCode_ && context_.table == deletable.table;
    if (selected && (mode_ == "delete" || deletion_.registryRowDeleted())) context_.forgetYear();
    if (mode_ == "delete") {
      afterDeletion(deletable.yearText);
    } else if (deletion_.deleted()) {
      overwrite();
    } else {
      status("The deletion of " + deletable.yearText +
             " was not completed. Enter begins it again.");
    }
  });
}

// --- the other commands -------------------------------------------------------------------------

void third::CMDGRPMAS_CLICK() {
  trap("CMDGRPMAS_CLICK", [&] {
    status("");
    groupMaster_.showModal([this] {
      if (groupMaster_.groupsChanged()) refreshEditor(context_);
    });
  });
}

void third::CMDLEDMAS_CLICK() {
  trap("CMDLEDMAS_CLICK", [&] {
    status("");
    ledgerMaster_.showModal([this] {
      if (ledgerMaster_.changed()) refreshEditor(context_);
    });
  });
}

void third::MNUREFRESH_CLICK() {
  trap("MNUREFRESH_CLICK", [&] {
    status("");
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
  });
}

void third::MNUHELP_CLICK() {
  trap("MNUHELP_CLICK", [&] {
    context_.host->helpid("2-2");
    context_.host->ObjHelp().Show();
  });
}

void third::MNUEXIT_CLICK() {
  trap("MNUEXIT_CLICK", [&] { close(); });
}

}  // namespace quillet
