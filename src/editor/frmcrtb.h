// The trial-balance editor: the lines of one client's year, alone or beside the previous year's,
// with totals and difference, and the fields that take one line at a time.
//
// Loading, entry, group view, moving lines, summary and printing have a source file each. The
// editor reads client, table and dates from the context when it loads and works on its own copies
// from then on.
#pragma once

#include <array>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "books/lines.h"
#include "books/summary_figures.h"
#include "controls/choice.h"
#include "controls/control_array.h"
#include "controls/grid.h"
#include "controls/simple.h"
#include "controls/text_box.h"
#include "data/table_names.h"
#include "host/context.h"

namespace quillet {

class frmcrtb : public Form {
 public:
  explicit frmcrtb(Context& context);

  // Shows the year of the context for the client of that name; an editor that is open leaves the
  // year it has.
  void showYear(const std::string& clientName);
  // Whether it is open on that table of the client, as the current or as the previous year.
  bool shows(const std::string& clientCode, const std::string& table) const;

  Node layout() override;
  std::string subject() const override;

  // --- menus
  MenuEntry mnuentry{*this, "mnuentry", "&Entry"};
  MenuEntry mnuinsert{*this, "mnuinsert", "&Insert Line", &mnuentry, "Ins"};
  MenuEntry mnualter{*this, "mnualter", "&Alter Line", &mnuentry, "F2"};
  MenuEntry mnudelete{*this, "mnudelete", "&Delete Line", &mnuentry, "Ctrl+Del"};
  MenuEntry mnuline1{*this, "mnuline1", "-", &mnuentry};
  MenuEntry mnunewgroup{*this, "mnunewgroup", "&New Group...", &mnuentry};
  MenuEntry mnujournal{*this, "mnujournal", "Adjustment &Journal...", &mnuentry};
  MenuEntry cmdgrpmanf{*this, "cmdgrpmanf", "Raw-&Material Binding...", &mnuentry};
  MenuEntry mnuline2{*this, "mnuline2", "-", &mnuentry};
  MenuEntry mnuexit{*this, "mnuexit", "&Back", &mnuentry, "Ctrl+W"};
  MenuEntry mnuview{*this, "mnuview", "&View"};
  MenuEntry mnurefresh{*this, "mnurefresh", "&Refresh", &mnuview, "F5"};
  MenuEntry mnugroup{*this, "mnugroup", "&Group View", &mnuview, "Ctrl+G"};
  MenuEntry mnushsumm{*this, "mnushsumm", "Summary &Figures", &mnuview, "F6"};
  MenuEntry mnusort{*this, "mnusort", "&Sort", &mnuview};
  ControlArray<MenuEntry> mnusortopt{
      *this, "mnusortopt", {"As &Entered", "By &Particular", "By &Group", "By &Amount"}, &mnusort};
  MenuEntry mnushled{*this, "mnushled", "&Ledger List", &mnuview};
  MenuEntry mnuall{*this, "mnuall", "&All Ledgers", &mnushled};
  MenuEntry mnuclonly{*this, "mnuclonly", "Ledgers of this &Client", &mnushled};
  MenuEntry mnuyropts{*this, "mnuyropts", "&Years"};
  ControlArray<MenuEntry> mnuyrs{
      *this, "mnuyrs", {"&Current Year", "&Previous Year", "&Both Years"}, &mnuyropts};
  MenuEntry mnuprint{*this, "mnuprint", "Prin&t"};
  MenuEntry mnuPreview{*this, "mnuPreview", "&Trial Balance...", &mnuprint, "Ctrl+P"};
  MenuEntry mnuprnsumm{*this, "mnuprnsumm", "&Summary Figures...", &mnuprint};
  MenuEntry mnuexport{*this, "mnuexport", "&Export to Excel...", &mnuprint, "Ctrl+E"};
  MenuEntry mnuhelpmenu{*this, "mnuhelpmenu", "&Help"};
  MenuEntry mhelp{*this, "mhelp", "&Trial Balance Editor", &mnuhelpmenu, "F1"};

  // --- the lines, and the fields for one of them
  Frame famLines{*this, "famLines"};
  Grid vsfm{*this, "vsfm"};
  TextBox txtpart{*this, "txtpart"};
  TextBox txtgroup{*this, "txtgroup"};
  TextBox txtamount{*this, "txtamount"};
  TextBox txtdrcr{*this, "txtdrcr"};
  Grid vsfp{*this, "vsfp"};
  Grid vsfg{*this, "vsfg"};
  Label lblhint{*this, "lblhint"};

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
  Grid vsfr{*this, "vsfr"};
  ControlArray<TextBox> txtclst{*this, "txtclst", {"", ""}};
  Button cmdprnsumm{*this, "cmdprnsumm", "Print S&ummary"};

  // --- totals: 0 current year, 1 previous year
  ControlArray<Label> lblyear{*this, "lblyear", {"Current year", "Previous year"}};
  ControlArray<TextBox> txttotdeb{*this, "txttotdeb", {"", ""}};
  ControlArray<TextBox> txttotcr{*this, "txttotcr", {"", ""}};
  TextBox txtdiff{*this, "txtdiff"};
  TextBox txtdifft{*this, "txtdifft"};
  ControlArray<Button> cmdclstock{*this, "cmdclstock", {"Closing &Stock", "Closing Stoc&k (Prev)"}};

  Button cmdexport{*this, "cmdexport", "E&xport"};

  // --- loading
  void FORM_LOAD();
  void FORM_ACTIVE();
  void FORM_UNLOAD();
  void LOADPARTICULARS();
  void LOADGROUPS();
  void LOADGROUPSEXISTS();
  void LOADTRIALBAL();
  void GETBALANCE();
  void REFRESHTB();
  void SETBUTTON();
  void SETBUTTONS();
  void MNUYRS_CLICK(int index);
  void MNUSORTOPT_CLICK(int index);
  void MNUALL_CLICK();
  void MNUCLONLY_CLICK();
  void VSFM_AFTERSORT();
  void VSFM_ROWCOLCHANGE();
  void VSFM_KEYDOWN(Key& key);
  void MHELP_CLICK();
  void MNUEXIT_CLICK();
  void MNUJOURNAL_CLICK();

  // --- the masters
  // Shows names and groups anew after a master that another form opened; a running entry is given
  // up, since what it names may be gone.
  void mastersChanged();
  void MNUNEWGROUP_CLICK();
  void CMDGRPMANF_CLICK();

  // --- entry
  void MNUINSERT_CLICK();
  void MNUALTER_CLICK();
  void MNUDELETE_CLICK();
  void TXTPART_GOTFOCUS();
  void TXTPART_CHANGE();
  void TXTPART_KEYDOWN(Key& key);
  void TXTPART_KEYPRESS(Key& key);
  void TXTPART_LOSTFOCUS();
  void TXTGROUP_GOTFOCUS();
  void TXTGROUP_CHANGE();
  void TXTGROUP_KEYDOWN(Key& key);
  void TXTGROUP_KEYPRESS(Key& key);
  void TXTGROUP_LOSTFOCUS();
  void TXTAMOUNT_GOTFOCUS();
  void TXTAMOUNT_KEYPRESS(Key& key);
  void TXTAMOUNT_LOSTFOCUS();
  void TXTDRCR_GOTFOCUS();
  void TXTDRCR_VALIDATE(bool& cancel);
  void TXTDRCR_KEYPRESS(Key& key);

  // --- the group view
  void MNUGROUP_CLICK();
  void LOADGRIDS();
  void LOADGRID1(Grid& grid, long groupId, long side);
  void CMDOK_CLICK();
  void CMDADD_CLICK();
  void CMDLESS_CLICK();
  void CMDUPDATE_CLICK();

  // --- summary figures and closing stock
  void MNUSHSUMM_CLICK();
  void LOADFIGS();
  void CMDCLSTOCK_CLICK(int index);

  // --- printing
  void MNUPREVIEW_CLICK();
  void CMDPRNSUMM_CLICK();
  void PrintTrial();
  void REPORT_SUMM();
  void CMDEXPORT_CLICK();

 protected:
  void activated() override { FORM_ACTIVE(); }
  void load() override { FORM_LOAD(); }
  void unload(bool& /*cancel*/) override { FORM_UNLOAD(); }

 private:
  enum Year { current = 0, previous = 1 };
  enum class View { current = 0, previous = 1, both = 2 };
  static constexpr const char* unread = "The lines could not be read. F5 tries again.";

  // What the entry fields say, once it has passed every check.
  struct TypedLine {
    std::string particular;
    std::string group;
    double amount = 0;  // signed: credit is negative
  };

  struct YearLine {
    Year year = current;
    Line line;
  };

  // What a save has taken out of a table to replace it. A save that fails leaves it out, and the
  // next deed, in whatever year, puts it back first.
  struct TakenOut {
    Sql table;
    Sql client;  // as it stands between quotes
    std::vector<Line> lines;
    std::vector<Line> standing;  // the client's others in the table
    bool named = true;           // the masters knew ledger and group of each of the lines
  };

  void attachMenus();
  void attachGrids();
  void attachEntry();
  void attachGroupView();
  void attachSummary();
  void attachPrinting();
  void attachExport();
  Node groupArrangement();
  Node summaryArrangement();
  // Shows one of the three: lines, groups, summary.
  void showPage(Frame& page);

  // Loading.
  void takeContext();
  void emptyYear();
  void emptyLines();
  void emptyGroups();
  void emptyFigures();
  void readRegisters();
  void findPreviousYear();
  void readSettings();
  void chooseLedgers(const std::string& setting);
  void chooseSort(const std::string& setting);
  void refuseWithoutTable();
  void setView(View view);
  void showCaption();
  void readYears(std::vector<Line> (&lines)[2]);
  bool importPreviousYear();
  std::vector<Line> selectLines(Year year);
  void fillNames(std::vector<Entry>& entries);
  void showEntries(std::vector<Entry> entries);
  std::vector<std::string> cellsOf(std::size_t index) const;
  void setGridColumns();
  void reload();
  void reloadPage();
  void showStored();
  void showStored(View view);
  void loadLedgerList(const char* procedure, const std::string& setting);
  IdList ledgerIdsOfClient();
  const Entry* selectedEntry() const;
  std::optional<YearLine> selectedLine() const;
  void selectLine(const YearLine& wanted);
  bool inView(Year year) const;
  Sql tableOf(Year year) const { return sqlName(tables_[year]); }
  bool hasTable() const { return !tables_[current].empty(); }
  bool hasYear(Year year) const {
    return !tables_[year].empty() && tables_[year] != trialBalancePrefix;
  }
  // Whose lines the group view and a printout take: the current year's in the view of both.
  Year yearInView() const { return inView(current) ? current : previous; }

  // A row of the grid as it goes out; its amount is the current year's in the view of both years.
  struct ShownLine {
    const std::string& particular;
    const std::string& group;
    const std::string& amount;
    const std::string& side;
  };
  ShownLine shownLine(int row) const {
    return {vsfm.cell(row, 0), vsfm.cell(row, 1), vsfm.cell(row, 2), vsfm.cell(row, 3)};
  }

  // Group view.
  void chooseGroup(long id);
  void showGroups(int count);
  void listForTransfer();
  void transfer(long target);

  // Summary figures.
  Balances readBalances(Year year);
  double readBalance(const Sql& table, int group, const Sql& only);
  double readClosingStock(Year year);
  void showFigures(const std::array<SummaryRow, summaryRows>& thisYear,
                   const std::array<SummaryRow, summaryRows>& yearBefore);

  // Printing.
  void showReport(const std::function<void()>& write);
  void printTitle(const std::string& title);
  std::string exportTo(const std::filesystem::path& source, const std::filesystem::path& target);
  void exportRows(Workbook& workbook, int sheet);

  void refreshShownLines();

  // Entry.
  void clearEntry();
  void emptyFields();
  void leaveEntry();
  void followAltered();
  void follow(TextBox& box, Grid& list);
  void moveList(TextBox& box, Grid& list, Key& key);
  void pickFromList(TextBox& box, Grid& list);
  bool knownGroup(const std::string& name) const;
  // What was typed as a name: as the list has it where that differs by more than case.
  std::string enteredName(const Grid& list, const std::string& typed) const;
  std::optional<TypedLine> checkedEntry();
  long particularId(const std::string& name);
  long groupId(const std::string& name);
  void addToLedgerList(const std::string& name);
  void saveLine();
  void showSaved(const YearLine& saved);
  void showFailure(Year year);
  double takeOutReplaced(Year year, const Line& line);
  void takeOut(Year year, const Line& line);
  long nextSerial(Year year);
  void insertRow(const Sql& table, const Sql& client, const Line& line);
  Sql rowOf(Year year, const Line& line) const;
  bool putBack();
  bool writeBack();
  bool nothingTakenOut();
  bool canPutBack();
  void tellTakenOut(const std::string& outcome);
  void hint(const std::string& text);
  void popup();

  Context& context_;
  Sql client_;             // code_no as it stands between quotes
  std::string namedCode_;  // the code that clientName_ belongs to
  std::string clientName_;
  std::string firstDate_;
  std::string secondDate_;
  std::string tables_[2];
  View view_ = View::current;
  SortOption sort_ = SortOption::entered;
  std::vector<Line> lines_[2];
  std::vector<Entry> entries_;           // what vsfm shows, in the order it was filled
  std::vector<std::string> ledgerKeys_;  // keys of vsfp's names, in its order
  std::vector<std::string> groupKeys_;   // keys of vsfg's names, in its order
  std::unordered_map<long, std::string> groupNames_;
  // What could be read; the rest is read with the next refresh.
  bool ledgersRead_ = false;
  bool groupsRead_ = false;
  bool linesRead_ = false;

  std::optional<YearLine> altered_;  // nothing while a new line is entered
  std::string alteredGroup_;
  TakenOut takenOut_;
  std::vector<Line> transferable_;  // what vsf3 was filled from, in the order it was filled
  int groupsShown_ = 1;
  bool written_ = false;                    // the report begun last is complete
  std::unique_ptr<StockForms> stockForms_;  // of the closing stock shown last
  std::unique_ptr<Form> journal_;           // the one opened last
  std::unique_ptr<Form> master_;            // likewise
  bool leaving_ = false;  // the entry is being given up: empty fields are no mistake
};

// The module's single editor, made on first use.
frmcrtb& theEditor(Context& context);

}  // namespace quillet
