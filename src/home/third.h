// The home form: what to do, then for which client, then for which year. Creating a year and
// merging trial balances have a source file each.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "books/lines.h"
#include "controls/grid.h"
#include "controls/mask_box.h"
#include "controls/simple.h"
#include "data/year.h"
#include "deletion/frmdelwhatinTB.h"
#include "home/cl_grd.h"
#include "host/context.h"
#include "masters/frmgrpmas.h"
#include "masters/frmtbledmas.h"

namespace quillet {

class third : public Form {
 public:
  explicit third(Context& context);

  Node layout() override;

  Button mnucreate{*this, "mnucreate", "&Create Trial Balance"};
  Button mnualter{*this, "mnualter", "&Alter/View Trial Balance"};
  Button mnudelete{*this, "mnudelete", "&Delete Trial Balance"};
  Button mnumerge{*this, "mnumerge", "&Merge Trial Balances"};
  Button mnualpha{*this, "mnualpha", "Al&phabetically"};
  Button mnusumm{*this, "mnusumm", "&Summarized (Group wise)"};
  Button mnudet{*this, "mnudet", "D&etailed (Group wise)"};
  Button cmdgrpmas{*this, "cmdgrpmas", "&Group Master"};
  Button cmdledmas{*this, "cmdledmas", "&Ledger Master"};
  Button mnurefresh{*this, "mnurefresh", "&Refresh Data"};
  Button mnuhelp{*this, "mnuhelp", "&Help"};
  Button mnuexit{*this, "mnuexit", "&Back"};
  Label lblprint{*this, "lblprint", "Print"};

  Frame Frame3{*this, "Frame3"};  // first step: the client
  ClGrd ClGrd1;
  Frame Frame1{*this, "Frame1"};  // second step: the year
  Label Label1{*this, "Label1"};
  Frame famyears{*this, "famyears"};  // the year is chosen there, or typed in the other
  Grid flexgrid2{*this, "flexgrid2"};
  Frame famdates{*this, "famdates"};
  MaskBox MaskEdBox1{*this, "MaskEdBox1", "", -1, '#'};
  MaskBox MaskEdBox2{*this, "MaskEdBox2", "", -1, '#'};
  Label lblstatus{*this, "lblstatus"};

  void FORM_LOAD();
  void FORM_ACTIVATE();
  void FORM_RESIZE();
  void FORM_UNLOAD();
  void FORM_KEYDOWN(Key& key);
  void CLGRD1_DBLCLICK();
  void FLEXGRID2_DBLCLICK();
  void FLEXGRID2_KEYPRESS(Key& key);
  // --- creating a year
  void MASKEDBOX1_KEYPRESS(Key& key);
  void MASKEDBOX2_GOTFOCUS();
  void MASKEDBOX2_KEYPRESS(Key& key);
  // Finds the client's lowest free table number and the table of that name; false when there is
  // none.
  bool GETTABLE();
  // The table of the client's year with these keys, "" when it has none; nothing on failure.
  std::optional<std::string> GETTABLE1(const std::string& firstKey, const std::string& secondKey);
  // Below 0 when the first of two dates is the earlier one.
  int COMP_DT(const std::string& first, const std::string& second);
  // Copies the particulars of the table given into the new year's; false on failure.
  bool DATA_TRANSFER(const std::string& previousTable);
  // --- the other commands
  void CMDGRPMAS_CLICK();
  void CMDLEDMAS_CLICK();
  void MNUREFRESH_CLICK();
  void MNUHELP_CLICK();
  void MNUEXIT_CLICK();

  // "create", "merge", "alter", "delete", "alphabetical", "group_summarized" or "group_detail".
  const std::string& mode() const { return mode_; }

 protected:
  void activated() override { FORM_ACTIVATE(); }
  void load() override { FORM_LOAD(); }
  void resize() override { FORM_RESIZE(); }
  void unload(bool& /*cancel*/) override { FORM_UNLOAD(); }

 private:
  struct ModeButton {
    Button* button;
    const char* mode;
    const char* procedure;
  };

  // The year that the date boxes ask for, on its way into the registry.
  struct NewYear {
    std::string firstDate;  // as typed
    std::string secondDate;
    std::string firstKey;
    std::string secondKey;
    long count = 0;
    std::string table;
    bool registered = false;  // its row stands in the registry, with these dates:
    std::array<std::string, 2> keptDates;
    std::string text() const { return yearText(firstKey, secondKey); }
  };

  void attachModes();
  void setMode(const ModeButton& chosen);
  void showFirstStep();
  void showClients();
  void refreshClients();
  void showSecondStep(Frame& with, const std::string& task);
  void showYears();
  void loadYears();
  void takeClient(const std::string& code, const std::string& name);
  void beginDates();
  // The registry's row of the year in the list; null when somebody deleted it meanwhile.
  RecordsetPtr selectYear(int row);
  void openEditor();
  bool rightToOpen(Recordset& year);
  void printChosenYear();
  void deleteYear();
  // Runs `overwrite` when the deletion went through that makes room for a year.
  void openDeletion(Recordset& year, std::function<void()> overwrite = {});
  void afterDeletion(const std::string& year);
  void closeEditorOf(const std::string& table);
  void tellYearIsGone(const std::string& clientName, const std::string& year);
  // The code of the client whose years are shown, as it stands between quotes.
  Sql client() const { return context_.host->escaped(clientCode_); }
  void status(const std::string& text) { lblstatus.setCaption(text); }
  // Runs the body; a failure is said in the status line and goes on its way.
  template <class Body>
  void orSay(const std::string& failure, Body&& body) {
    try {
      body();
    } catch (...) {
      status(failure);
      throw;
    }
  }

  // Creating.
  bool datesHold();
  void beginYear();
  RecordsetPtr findYear();
  bool mayOverwrite();
  void overwrite(Recordset& existing);
  void takeRow(Recordset& row);
  void registerYear();
  void writeRegistryRow();
  void selectNewYear();
  bool registerNewYear();
  void fillYear();
  bool offerPreviousYear();
  void finishYear();

  // Merging.
  void listSources();
  RecordsetPtr selectOthersOfYear();
  // Says so when there is none.
  bool anyOtherOfYear(const Recordset& years);
  std::vector<int> chosenSources() const;
  bool mergeAgreed(const std::vector<int>& sources);
  bool sourcesMayBeRead(const std::vector<int>& sources);
  bool sourcesAreThere(const std::vector<int>& sources);
  bool provideTable();
  void mergeSources();
  void writeMerged(const std::vector<Line>& lines, const std::vector<Line>& stock);

  Context& context_;
  frmdelwhatinTB deletion_;
  frmgrpmas groupMaster_;
  frmtbledmas ledgerMaster_;
  std::string mode_;
  // The client chosen last. The context may have gone on to another one by the time a year is.
  std::string clientCode_;
  std::string clientName_;
  NewYear newYear_;
  bool justLoaded_ = false;    // the form became active by being loaded
  bool listsSources_ = false;  // the list shows what can be merged instead of the client's years
};

// The module's single home form, made on first use.
third& theHome(Context& context);

}  // namespace quillet
