// The trial-balance editor: the lines of one client's year, alone or beside the previous year's,
// with totals and difference, and the fields that take one line at a time.
//
// The form loads the lines and shows the totals. Each of its parts does one thing more: the grid of
// lines, the entry fields, saving, the group view, the summary, printing, the export.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "controls/basic_controls.h"
#include "controls/choice.h"
#include "controls/control_array.h"
#include "controls/find_bar.h"
#include "controls/grid.h"
#include "controls/text_box.h"
#include "editor/entry_fields.h"
#include "editor/group_page.h"
#include "editor/history_commands.h"
#include "editor/import_command.h"
#include "editor/line_saver.h"
#include "editor/lines_grid.h"
#include "editor/open_books.h"
#include "editor/printouts.h"
#include "editor/summary_page.h"
#include "editor/workbook_export.h"

namespace quillet {

class frmcrtb : public Form {
 public:
  explicit frmcrtb(Context& context);

  // Shows the year of the context for the client of that name; an editor that is open leaves the
  // year it has.
  void showYear(const std::string& clientName);
  // Reviews a file for the current year.
  void IMPORTFILE(SourceFile file) { import_.importFile(std::move(file)); }
  // Whether it is open on that table of the client, as the current or as the previous year.
  bool shows(const std::string& clientCode, const std::string& table) const;
  // Shows names and groups anew after a master that another form opened; a running entry is given
  // up, since what it names may be gone.
  void mastersChanged();

  void takenBack() override;
  void booksMoved(bool masters) override;

  LayoutItem layout() override;
  std::string subject() const override;
  std::string fileSubject() const override;

  // --- menus
  MenuEntry mnuentry{*this, "mnuentry", "&Entry"};
  MenuEntry mnuinsert{*this, "mnuinsert", "&Insert Line", &mnuentry, "Ins"};
  MenuEntry mnualter{*this, "mnualter", "&Alter Line", &mnuentry, "F2"};
  MenuEntry mnudelete{*this, "mnudelete", "&Delete Line", &mnuentry, "Ctrl+Del"};
  MenuEntry mnutakeback{*this, "mnutakeback", "Ta&ke Back", &mnuentry, "Ctrl+Z"};
  MenuEntry mnuline0{*this, "mnuline0", "-", &mnuentry};
  MenuEntry mnufind{*this, "mnufind", "&Find...", &mnuentry, "Ctrl+F"};
  MenuEntry mnufindnext{*this, "mnufindnext", "Find Ne&xt", &mnuentry, "F3"};
  MenuEntry mnufindprevious{*this, "mnufindprevious", "Find Pre&vious", &mnuentry, "Shift+F3"};
  MenuEntry mnuline1{*this, "mnuline1", "-", &mnuentry};
  MenuEntry mnunewgroup{*this, "mnunewgroup", "&New Group...", &mnuentry};
  MenuEntry mnujournal{*this, "mnujournal", "Adjustment &Journal...", &mnuentry};
  MenuEntry cmdgrpmanf{*this, "cmdgrpmanf", "Raw-&Material Binding...", &mnuentry};
  MenuEntry mnuimport{*this, "mnuimport", "Impor&t Lines...", &mnuentry, "Ctrl+I"};
  MenuEntry mnuline2{*this, "mnuline2", "-", &mnuentry};
  MenuEntry mnuexit{*this, "mnuexit", "&Back", &mnuentry, "Ctrl+W"};
  MenuEntry mnuview{*this, "mnuview", "&View"};
  MenuEntry mnurefresh{*this, "mnurefresh", "&Refresh", &mnuview, "F5"};
  MenuEntry mnugroup{*this, "mnugroup", "&Group View", &mnuview, "Ctrl+G"};
  MenuEntry mnushsumm{*this, "mnushsumm", "Summary &Figures", &mnuview, "F6"};
  MenuEntry mnuopening{*this, "mnuopening", "&Opening Agrees with Last Closing...", &mnuview};
  MenuEntry mnustatements{*this, "mnustatements", "State&ments by Head...", &mnuview, "F7"};
  MenuEntry mnusort{*this, "mnusort", "&Sort", &mnuview};
  ControlArray<MenuEntry> mnusortopt{
      *this, "mnusortopt", {"As &Entered", "By &Particular", "By &Group", "By &Amount"}, &mnusort};
  MenuEntry mnuchanges{*this, "mnuchanges", "&Changes...", &mnuview, "F8"};
  MenuEntry mnuasof{*this, "mnuasof", "&As It Stood...", &mnuview, "F9"};
  MenuEntry mnushled{*this, "mnushled", "&Ledger List", &mnuview};
  MenuEntry mnuall{*this, "mnuall", "&All Ledgers", &mnushled};
  MenuEntry mnuclonly{*this, "mnuclonly", "Ledgers of this &Client", &mnushled};
  MenuEntry mnuyropts{*this, "mnuyropts", "&Years"};
  ControlArray<MenuEntry> mnuyrs{
      *this, "mnuyrs", {"&Current Year", "&Previous Year", "&Both Years"}, &mnuyropts};
  MenuEntry mnuprint{*this, "mnuprint", "Prin&t"};
  MenuEntry mnuPreview{*this, "mnuPreview", "&Trial Balance...", &mnuprint, "Ctrl+P"};
  MenuEntry mnuprnvar{*this, "mnuprnvar", "Both Years with &Variance...", &mnuprint};
  MenuEntry mnuprnsumm{*this, "mnuprnsumm", "&Summary Figures...", &mnuprint};
  MenuEntry mnuexport{*this, "mnuexport", "&Export to Excel...", &mnuprint, "Ctrl+E"};
  MenuEntry mnuhelpmenu{*this, "mnuhelpmenu", "&Help"};
  MenuEntry mhelp{*this, "mhelp", "&Trial Balance Editor", &mnuhelpmenu, "F1"};

  Label lbllock{*this, "lbllock"};  // why a year in view takes no changes

  // --- the lines, and the fields for one of them
  Frame famLines{*this, "famLines"};
  Grid vsfm{*this, "vsfm"};
  FindBar findBar{*this, vsfm};
  TextBox txtpart{*this, "txtpart"};
  TextBox txtgroup{*this, "txtgroup"};
  TextBox txtamount{*this, "txtamount"};
  TextBox txtdrcr{*this, "txtdrcr"};
  Grid vsfp{*this, "vsfp"};
  Grid vsfg{*this, "vsfg"};
  Label lblhint{*this, "lblhint"};
  Label lblsaved{*this, "lblsaved"};  // when a line was saved last

  // --- the group view
  Frame famGroups{*this, "famGroups"};
  ComboBox cbogroup{*this, "cbogroup"};
  Label lblgroup{*this, "lblgroup"};
  Grid vsf1{*this, "vsf1"};  // debit lines
  Grid vsf2{*this, "vsf2"};  // credit lines
  Button cmdadd{*this, "cmdadd", "Sho&w More"};
  Button cmdless{*this, "cmdless", "Show &Fewer"};
  Button cmdok{*this, "cmdok", "&Apply"};
  Grid vsf3{*this, "vsf3"};  // the chosen group's lines, which a transfer moves
  ComboBox cbotgroup{*this, "cbotgroup"};
  Button cmdupdate{*this, "cmdupdate", "Transfer &Lines"};

  // --- the summary figures: 0 current year, 1 previous year
  Frame famSummary{*this, "famSummary"};
  Label lblsummary{*this, "lblsummary"};  // the client and the year
  Grid vsfr{*this, "vsfr"};
  ControlArray<TextBox> txtclst{*this, "txtclst", {"", ""}};
  Button cmdprnsumm{*this, "cmdprnsumm", "Print S&ummary"};

  // --- totals: 0 current year, 1 previous year
  ControlArray<Label> lblyear{*this, "lblyear", {"Current year", "Previous year"}};
  ControlArray<TextBox> txttotdeb{*this, "txttotdeb", {"", ""}};
  ControlArray<TextBox> txttotcr{*this, "txttotcr", {"", ""}};
  TextBox txtdiff{*this, "txtdiff"};
  TextBox txtdifft{*this, "txtdifft"};
  Label lblagrees{*this, "lblagrees"};
  ControlArray<Button> cmdclstock{*this, "cmdclstock", {"Closing &Stock", "Closing Stoc&k (Prev)"}};

  Button cmdexport{*this, "cmdexport", "E&xport"};

  // --- loading
  void FORM_LOAD();
  void FORM_UNLOAD();
  void LOADPARTICULARS();
  void LOADGROUPS();
  void LOADTRIALBAL();
  void GETBALANCE();
  void REFRESHTB();
  void SETBUTTON();
  void SETBUTTONS();
  void MNUYRS_CLICK(int index);
  void MNUSORTOPT_CLICK(int index);
  void MNUALL_CLICK();
  void MNUCLONLY_CLICK();
  void VSFM_KEYDOWN(Key& key);
  void MHELP_CLICK();

  // --- lines
  void MNUINSERT_CLICK();
  void MNUALTER_CLICK();
  void MNUDELETE_CLICK();
  void TXTDRCR_KEYPRESS(Key& key);

  // --- other forms
  void MNUJOURNAL_CLICK();
  void MNUNEWGROUP_CLICK();
  void CMDGRPMANF_CLICK();
  void MNUOPENING_CLICK();
  void MNUSTATEMENTS_CLICK();

  void LOADFIGS() { summaryPage_.LOADFIGS(); }

  // --- for the form's parts
  // Shows one of the three: lines, groups, summary.
  void showPage(Frame& page);
  // From a command's button to the list of the page in view, where one goes on.
  void focusList();
  // With nothing else to say it tells why there are no lines.
  void hint(const std::string& text);
  // Gives the running entry up, without a message, and leads back to the lines.
  void leaveEntry();
  // Whatever the registers say that is not known yet: the client's name, the year before.
  void readRegisters();
  // After a change: what stood before is not to be taken for what is stored when reading fails.
  void readStored();
  // The same, with the lists and the page that is in view.
  void showStored() { showStored(books_.years.view()); }

 protected:
  void activated() override;
  void load() override { FORM_LOAD(); }
  void unload(bool& /*cancel*/) override { FORM_UNLOAD(); }

 private:
  static constexpr const char* unread = "The lines could not be read. F5 tries again.";
  static constexpr const char* notImported =
      "The previous year could not be imported. F5 asks again.";

  void attachMenus();
  void attachLines();
  void attachTotals();
  void formKey(Key& key);

  void emptyYear();
  void beginAtLines();
  void emptyLines();
  void chooseLedgers(const std::string& setting);
  void chooseSort(const std::string& setting);
  void loadLedgerList(const char* procedure, const std::string& setting);
  void setView(TwoYears::View view);
  bool importPreviousYear();
  void reload();
  void reloadPage();
  void showStored(TwoYears::View view);
  void refreshShownLines();

  OpenBooks books_;
  SortOption sort_ = SortOption::entered;
  // What could be read; the rest is read with the next refresh.
  bool ledgersRead_ = false;
  bool groupsRead_ = false;
  // While another form works, or after an act was taken back.
  bool asksNothing_ = false;
  bool importFailed_ = false;  // since the lines were read last

  LinesGrid lines_;
  EntryFields entry_;
  LineSaver saver_;
  GroupPage groupPage_;
  SummaryPage summaryPage_;
  EditorPrintouts printouts_;
  WorkbookExport export_;
  ImportCommand import_;
  HistoryCommands history_;

  std::unique_ptr<Form> journal_;  // the one opened last
  std::unique_ptr<Form> master_;   // likewise
};

// The module's single editor, made on first use.
frmcrtb& theEditor(Context& context);

}  // namespace quillet
