#include "editor/frmcrtb.h"

#include <initializer_list>

#include "books/clients.h"
#include "statements/frmstatements.h"

namespace quillet {
namespace {

using enum TwoYears::Year;

constexpr int amountWidth = 18;
constexpr int totalWidth = 15;

}  // namespace

frmcrtb& theEditor(Context& context) {
  if (!context.editorForm) context.editorForm = std::make_unique<frmcrtb>(context);
  return static_cast<frmcrtb&>(*context.editorForm);
}

frmcrtb::frmcrtb(Context& context)
    : Form(context.openForms, "frmcrtb"),
      books_(context),
      lines_(vsfm, *context.host),
      entry_(*this, books_),
      saver_(*this, books_, entry_, lines_),
      groupPage_(*this, books_, saver_),
      summaryPage_(*this, books_),
      printouts_(*this, books_, lines_, summaryPage_),
      export_(*this, books_, lines_),
      import_(*this, books_, saver_),
      history_(*this, books_, entry_) {
  books_.typed = [this](TwoYears::Year year) {
    return year == entry_.year() && !entry_.untouched();
  };
  attachMenus();
  attachLines();
  attachTotals();
  showPage(famLines);
}

void frmcrtb::showYear(const std::string& clientName) {
  if (!close()) return;
  books_.years.setClient(books_.context.clientCode, clientName);
  show();
}

bool frmcrtb::shows(const std::string& clientCode, const std::string& table) const {
  const TwoYears& years = books_.years;
  return visible() && years.client() == clientCode &&
         (years.table(current) == table || years.table(previous) == table);
}

std::string frmcrtb::subject() const {
  const TwoYears& years = books_.years;
  const YearKeys keys = years.keys(years.yearInView());
  return subjectOf(years.clientName(), years.client(), keys.first, keys.second);
}

std::string frmcrtb::fileSubject() const {
  const TwoYears& years = books_.years;
  return fileSubjectOf(years.clientName(), years.client(), years.keys(years.yearInView()).first);
}

// --- what the controls do -----------------------------------------------------------------------

void frmcrtb::attachMenus() {
  mnuinsert.Click = [this] { MNUINSERT_CLICK(); };
  mnualter.Click = [this] { MNUALTER_CLICK(); };
  mnudelete.Click = [this] { MNUDELETE_CLICK(); };
  findBar.isSideStep = [this] { return !entry_.untouched(); };
  mnufind.Click = [this] { findBar.open(); };
  mnufindnext.Click = [this] { findBar.next(); };
  mnufindprevious.Click = [this] { findBar.previous(); };
  mnuexit.Click = [this] { close(); };
  mnujournal.Click = [this] { MNUJOURNAL_CLICK(); };
  mnunewgroup.Click = [this] { MNUNEWGROUP_CLICK(); };
  cmdgrpmanf.Click = [this] { CMDGRPMANF_CLICK(); };
  on(mnuopening.Click, "MNUOPENING_CLICK", [this] { MNUOPENING_CLICK(); });
  mnustatements.Click = [this] { MNUSTATEMENTS_CLICK(); };
  mnustatements.setVisible(frmstatements::offered(books_.context));
  on(mnurefresh.Click, "REFRESHTB", [this] { REFRESHTB(); });
  mnuall.Click = [this] { MNUALL_CLICK(); };
  mnuclonly.Click = [this] { MNUCLONLY_CLICK(); };
  mhelp.Click = [this] { MHELP_CLICK(); };
  for (auto& option : mnusortopt) {
    option->Click = [this, index = option->index()] { MNUSORTOPT_CLICK(index); };
  }
  for (auto& years : mnuyrs) {
    years->Click = [this, index = years->index()] { MNUYRS_CLICK(index); };
  }
}

void frmcrtb::attachLines() {
  vsfm.setZebra(true);
  vsfm.setEmptyText(
      "Type a ledger, its group and its amount below; Enter in the last field saves the line.");
  vsfm.AfterSort = [this] { SETBUTTON(); };
  vsfm.RowColChange = [this] { SETBUTTON(); };
  vsfm.KeyDown = [this](Key& key) { VSFM_KEYDOWN(key); };
  on(vsfm.DblClick, "MNUALTER_CLICK", [this] { MNUALTER_CLICK(); });
  vsfm.Popup = [this] {
    MenuEntry* const entries[] = {&mnuinsert, &mnualter, &mnudelete};
    const int chosen = books_.host().PopupMenuObj().choose(
        {mnuinsert.caption(), mnualter.caption(), mnudelete.caption()});
    if (chosen >= 1 && chosen <= 3) click(*entries[chosen - 1]);
  };
  txtdrcr.KeyPress = [this](Key& key) { TXTDRCR_KEYPRESS(key); };
  KeyDown = [this](Key& key) {
    entry_.takeBack(key);
    findBar.key(key);
  };
  KeyPress = [this](Key& key) { formKey(key); };
  for (Label* label : {&lblhint, &lblsaved, &lblsummary}) label->setQuiet(true);
}

void frmcrtb::attachTotals() {
  for (auto* totals : {&txttotdeb, &txttotcr}) {
    for (auto& total : *totals) total->makeFigure();
  }
  txtdiff.makeFigure();
  txtdifft.setLocked(true);
  txtdifft.tabStop = false;
}

void frmcrtb::VSFM_KEYDOWN(Key& key) {
  if (key != keys::Enter && key != keys::Delete) return;
  MenuEntry& command = key == keys::Enter ? mnualter : mnudelete;
  key = keys::none;
  click(command);
}

// Escape gives the entry up from any of its fields, leads back to the lines, and from there to
// whoever opened the editor.
void frmcrtb::formKey(Key& key) {
  if (key != keys::Escape) return;
  key = keys::none;
  if (famLines.visible() && !entry_.contains(active())) {
    if (findBar.isOpen()) return findBar.close();
    if (entry_.untouched()) return static_cast<void>(close());
  }
  if (famGroups.visible()) mnugroup.Click();
  if (famSummary.visible()) mnushsumm.Click();
  leaveEntry();
}

void frmcrtb::MHELP_CLICK() {
  books_.host().helpid("2-2-1");
  books_.host().ObjHelp().Show();
}

// --- what it looks like -------------------------------------------------------------------------

LayoutItem frmcrtb::layout() {
  const LayoutItem entry =
      row({field("&Particulars", txtpart, 36, 3), field("&Group", txtgroup, 28, 2),
           field("A&mount", txtamount, amountWidth), field("D&r/Cr", txtdrcr, 5),
           named("Ledgers that match", item(vsfp)), named("Groups that match", item(vsfg))});
  const auto totals = [this](int year) {
    const std::string which = year == 0 ? "" : ", previous year";
    return row({item(lblyear[year], 0, 12),
                named("Total debit" + which, field("Debit", txttotdeb[year], totalWidth)),
                named("Total credit" + which, field("Credit", txttotcr[year], totalWidth))});
  };
  // Only the current year has a difference.
  const LayoutItem current =
      row({totals(0), field("Difference", txtdiff, totalWidth),
           named("Side of the difference", item(txtdifft, 0, 6)), item(lblagrees), gap()});
  const LayoutItem commands =
      column({gap(), row({item(cmdclstock[0]), item(cmdclstock[1]), item(cmdexport)})});
  return column(
      {item(lbllock),
       stack({framed(famLines,
                     {named("Lines of the trial balance", item(vsfm, 1)), findBar.arrangement(),
                      row({item(lblhint, 1), item(lblsaved)}), entry},
                     1),
              framed(famGroups, {groupPage_.arrangement()}, 1),
              framed(famSummary, {summaryPage_.arrangement()}, 1)}),
       row({column({current, row({totals(1), gap()})}), gap(), commands})});
}

void frmcrtb::showPage(Frame& page) {
  for (Frame* frame : {&famLines, &famGroups, &famSummary}) frame->setVisible(frame == &page);
  mnugroup.setChecked(famGroups.visible());
  mnushsumm.setChecked(famSummary.visible());
}

void frmcrtb::focusList() {
  if (!dynamic_cast<Button*>(active())) return;
  for (Grid* list : {&vsfm, &vsf1, &vsfr}) {
    if (list->focusable()) focus(*list);
  }
}

void frmcrtb::hint(const std::string& text) {
  const bool missing = text.empty() && books_.years.hasTable() && !books_.years.linesRead();
  const bool failed = text.empty() && importFailed_;
  lblhint.setCaption(missing ? unread : failed ? notImported : text);
}

void frmcrtb::SETBUTTON() {
  logErrors("SETBUTTON", [&] {
    const bool table = books_.years.hasTable();
    const bool lines = table && famLines.visible();
    const bool selected = lines && vsfm.current() > 0;
    for (MenuEntry* command : {&mnuinsert, &mnufind, &mnufindnext, &mnufindprevious}) {
      command->setEnabled(lines);
    }
    mnualter.setEnabled(selected);
    mnudelete.setEnabled(selected);
    for (Control* command :
         std::initializer_list<Control*>{&mnugroup, &mnushsumm, &mnustatements, &mnuprnsumm,
                                         &mnujournal, &mnunewgroup, &cmdgrpmanf, &mnuopening}) {
      command->setEnabled(table);
    }
    const bool read = table && books_.years.linesRead() && groupsRead_;
    for (Control* command : std::initializer_list<Control*>{&mnuPreview, &mnuexport, &cmdexport}) {
      command->setEnabled(read);
    }
    mnuprnvar.setEnabled(read && books_.years.view() == TwoYears::View::both);
    import_.setButton();
    history_.setButtons();
    entry_.enable();
    groupPage_.setButtons();
  });
}

void frmcrtb::SETBUTTONS() {
  logErrors("SETBUTTONS", [&] {
    const bool both = books_.years.view() == TwoYears::View::both;
    cmdclstock[0].setCaption(both ? "Closing &Stock (Curr)" : "Closing &Stock");
    cmdclstock[1].setVisible(both);
    for (auto& button : cmdclstock) button->setEnabled(books_.years.hasTable());
  });
}

}  // namespace quillet
