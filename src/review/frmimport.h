// The review of an import: every row of a file or of pasted cells beside what it becomes in the
// year, until a person says "Import". Modal; the opener hands the year over with INITDATA, opens a
// source, shows the form and reads imported() when it has closed.
//
// Its parts read the source, keep the boxes of its columns, list the rows, take a person's choices
// about them, and print what was done.
#pragma once

#include <string>

#include "controls/basic_controls.h"
#include "controls/grid.h"
#include "controls/text_box.h"
#include "review/review_rows.h"
#include "review/row_boxes.h"
#include "review/source_form.h"

namespace quillet {

class frmimport : public SourceForm {
 public:
  explicit frmimport(Context& context);

  LayoutItem layout() override;
  // Whether it was closed for the review of vouchers, since its source holds such.
  bool leadsToVouchers() const { return leadsToVouchers_; }

  MenuEntry mnulines{*this, "mnulines", "&Lines"};
  MenuEntry mnunext{*this, "mnunext", "Next &Question", &mnulines, "F8"};
  MenuEntry mnukind{*this, "mnukind", "Another &Kind", &mnulines, "F3"};
  MenuEntry mnunearest{*this, "mnunearest", "&Nearest Name or New", &mnulines, "F7"};
  MenuEntry mnugroup{*this, "mnugroup", "&Group...", &mnulines, "F9"};
  MenuEntry mnuconfirm{*this, "mnuconfirm", "&Confirm", &mnulines, "F6"};
  MenuEntry mnuline1{*this, "mnuline1", "-", &mnulines};
  MenuEntry mhelp{*this, "mhelp", "&Help", &mnulines, "F1"};
  MenuEntry mnuback{*this, "mnuback", "&Back", &mnulines, "Ctrl+W"};

  // --- the rows
  Grid vsfi{*this, "vsfi"};
  Label lblquestion{*this, "lblquestion"};
  ComboBox cboshow{*this, "cboshow"};
  ComboBox cbokind{*this, "cbokind"};
  Button cmdnearest{*this, "cmdnearest", "&Nearest / New"};
  TextBox txtgroup{*this, "txtgroup"};
  Grid vsfg{*this, "vsfg"};
  Button cmdgroupall{*this, "cmdgroupall", "Set for All &Questions"};
  Button cmdconfirm{*this, "cmdconfirm", "Con&firm"};
  Button cmdnext{*this, "cmdnext", "Ne&xt Question"};

  // --- totals and the end
  Grid vsft{*this, "vsft"};  // of the source, of what is entered, of the year afterwards
  Label lblstate{*this, "lblstate"};
  Button cmdimport{*this, "cmdimport", "&Import"};
  Button cmdvouchers{*this, "cmdvouchers", "&Vouchers..."};
  Button cmdback{*this, "cmdback", "&Back"};

  void CMDIMPORT_CLICK();

  void reviewed() override;
  void showState(const std::string& text) override;

 protected:
  std::string title() const override { return "Import into the Trial Balance"; }
  void begin() override;
  bool leaveBox() override;
  void offerGroups() override { boxes_.offerGroups(); }
  void finish() override;

 private:
  bool mayImport();

  bool leadsToVouchers_ = false;
  ReviewRows rows_;
  RowBoxes boxes_;
};

}  // namespace quillet
