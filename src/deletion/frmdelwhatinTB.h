// The deletion form: removes one client's trial balance of one year, and as much of what hangs on
// it as is chosen. Modal; the opener hands the year over with INITDATA before showing it and reads
// deleted() when it has closed.
#pragma once

#include <span>
#include <string>

#include "controls/control_array.h"
#include "controls/simple.h"
#include "deletion/statements.h"
#include "deletion/year_files.h"
#include "host/context.h"

namespace quillet {

// The year to be deleted, as its row in the registry tells it.
struct DeletableYear {
  std::string client;
  std::string table;
  long count = 0;
  std::string yearText;    // "2008-2009"
  std::string accessMark;  // when not empty, the right to delete is asked for
};

class frmdelwhatinTB : public Form {
 public:
  explicit frmdelwhatinTB(Context& context);

  // Mode "create", "merge" or "delete". False when the year could not be looked into; the form is
  // not to be shown then.
  bool INITDATA(const std::string& mode, const DeletableYear& year);

  // Whether anything was deleted, if only in a try that failed in the middle.
  bool touched() const { return touched_; }
  // Whether the deletion went through.
  bool deleted() const { return deleted_; }
  // Whether the year's row in the registry went too, possibly in a try that failed after that.
  bool registryRowDeleted() const { return registryRowDeleted_; }
  // Whether files stayed that were to go; their names have been told.
  bool filesLeft() const { return !problems_.empty(); }

  Node layout() override;

  Label lblheading{*this, "lblheading"};
  Frame famMain{*this, "famMain", "Delete Other Relevant Data also ?"};
  ControlArray<OptionButton> optMain{*this, "optMain", {"Yes (All)", "No", "Yes (Selected)"}};
  Frame famSchOthData{*this, "famSchOthData",
                      "Delete Schedules/Other Data relevant to Trial Balance"};
  ControlArray<OptionButton> optSchOthData{*this, "optSchOthData", {"Yes", "No"}};
  Frame famSchFA{*this, "famSchFA", "Delete Depreciation Chart (Fixed Assets)"};
  ControlArray<OptionButton> optSchFA{*this, "optSchFA", {"Yes", "No"}};
  Frame famMiscDet{*this, "famMiscDet",
                   "Delete Misc. Forms/Reports/Certificates/Annexures relevant to Balance Sheet"};
  ControlArray<OptionButton> optMiscDet{*this, "optMiscDet", {"Yes", "No"}};
  Label lblhint{*this, "lblhint"};
  Button cmddelete{*this, "cmddelete", "&Delete && Continue >>"};
  Button cmdcancel{*this, "cmdcancel", "&Cancel"};

  void FORM_LOAD();
  void FORM_KEYPRESS(Key& key);
  void OPTMAIN_CLICK();
  void OPTSCHOTHDATA_CLICK();
  void CMDDELETE_CLICK();
  void CMDCANCEL_CLICK();

 protected:
  void load() override { FORM_LOAD(); }

 private:
  bool findChart();
  void showOptions();
  void coupleChart();
  // One of the options is chosen.
  static bool answered(const ControlArray<OptionButton>& options);
  bool optionsChosen();
  bool rightsGranted();
  bool confirmed();

  bool deletesSchedules() const { return optSchOthData[0].checked(); }
  bool deletesChart() const { return hasChart_ && deletesSchedules() && optSchFA[0].checked(); }
  bool deletesMisc() const { return optMiscDet[0].checked(); }
  // Everything goes, so the year's number becomes free for another year.
  bool removesYear() const {
    return deletesSchedules() && deletesMisc() && (deletesChart() || !hasChart_);
  }

  void send(std::span<const deletion::Statement> statements);
  void deleteSchedules();
  void deleteMisc();
  void deleteRegistryRow();
  void refuseFiles();
  void keepFailed(const std::vector<std::string>& files);
  void log(long number, const std::string& description);

  Context& context_;
  std::string mode_;
  DeletableYear year_;
  deletion::Keys keys_;
  bool hasChart_ = false;
  bool touched_ = false;
  bool deleted_ = false;
  bool registryRowDeleted_ = false;
  std::string problems_;  // told at the end
};

}  // namespace quillet
