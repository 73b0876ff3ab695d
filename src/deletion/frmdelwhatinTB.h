// The deletion form: removes one client's trial balance of one year, and as much of what hangs on
// it as is chosen. Modal; the opener hands the year over with INITDATA before showing it and reads
// deleted() when it has closed.
#pragma once

#include <string>

#include "books/year_deletion.h"
#include "controls/basic_controls.h"
#include "controls/control_array.h"
#include "host/context.h"
#include "host/year_hold.h"

namespace quillet {

class frmdelwhatinTB : public Form {
 public:
  explicit frmdelwhatinTB(Context& context);

  // Mode "create", "merge" or "delete". False when the year could not be looked into; the form is
  // not to be shown then.
  bool INITDATA(const std::string& mode, const RegisteredYear& year,
                const std::string& clientName = {});

  // Keeps other stations from changing the year while a person is asked about it. Whoever asks the
  // first question takes it, and leaves it when the last one is answered.
  YearHold hold;

  // Whether anything was deleted, if only in a try that failed in the middle.
  bool touched() const { return deletion_.touched(); }
  // Whether the deletion went through.
  bool deleted() const { return deleted_; }
  // Whether the year's row in the registry went too, possibly in a try that failed after that.
  bool registryRowDeleted() const { return deletion_.registryRowDeleted(); }
  // Whether files stayed that were to go; their names have been told.
  bool filesLeft() const { return !problems_.empty(); }

  LayoutItem layout() override;
  void takenBack() override;
  void booksMoved(bool masters) override;

  Label lblheading{*this, "lblheading"};
  Label lblsubject{*this, "lblsubject"};
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
  void showOptions();
  void coupleChart();
  // One of the options is chosen.
  static bool answered(const ControlArray<OptionButton>& options);
  bool optionsChosen();
  bool rightsGranted();
  bool confirmed();
  // True, and a person was told, when another station has had the year since it was taken.
  bool lost();

  bool hasChart() const { return deletion_.hasChart(); }
  bool deletesSchedules() const { return optSchOthData[0].checked(); }
  bool deletesChart() const { return hasChart() && deletesSchedules() && optSchFA[0].checked(); }
  bool deletesMisc() const { return optMiscDet[0].checked(); }
  // Everything goes, so the year's number becomes free for another year.
  bool removesYear() const {
    return deletesSchedules() && deletesMisc() && (deletesChart() || !hasChart());
  }

  void deleteChosen();
  void keepFilesLeft(const FilesLeft& left);

  Context& context_;
  std::string mode_;
  YearDeletion deletion_;
  bool deleted_ = false;
  std::string problems_;  // told at the end
};

}  // namespace quillet
