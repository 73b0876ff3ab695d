// The review of an import of vouchers: every line of a file or of pasted cells, voucher by voucher,
// with what becomes of it in the year's journal, until a person says "Import".
#pragma once

#include <string>

#include "controls/grid.h"
#include "controls/text_box.h"
#include "review/group_box.h"
#include "review/review_vouchers.h"
#include "review/source_form.h"
#include "review/voucher_review.h"

namespace quillet {

class frmvchimport : public SourceForm {
 public:
  explicit frmvchimport(Context& context);

  LayoutItem layout() override;

  MenuEntry mnuvouchers{*this, "mnuvouchers", "&Lines"};
  MenuEntry mnunext{*this, "mnunext", "Next &Question", &mnuvouchers, "F8"};
  MenuEntry mnunearest{*this, "mnunearest", "&Nearest Name or New", &mnuvouchers, "F7"};
  MenuEntry mnugroup{*this, "mnugroup", "&Group...", &mnuvouchers, "F9"};
  MenuEntry mnuline1{*this, "mnuline1", "-", &mnuvouchers};
  MenuEntry mhelp{*this, "mhelp", "&Help", &mnuvouchers, "F1"};
  MenuEntry mnuback{*this, "mnuback", "&Back", &mnuvouchers, "Ctrl+W"};

  Grid vsfi{*this, "vsfi"};
  Label lblquestion{*this, "lblquestion"};
  ComboBox cboshow{*this, "cboshow"};
  Button cmdnearest{*this, "cmdnearest", "&Nearest / New"};
  TextBox txtgroup{*this, "txtgroup"};
  Grid vsfg{*this, "vsfg"};
  Button cmdgroupall{*this, "cmdgroupall", "Set for All &Questions"};
  Button cmdnext{*this, "cmdnext", "Ne&xt Question"};
  Grid vsft{*this, "vsft"};  // of the source, and of what is entered
  Label lblstate{*this, "lblstate"};
  Button cmdimport{*this, "cmdimport", "&Import"};
  Button cmdback{*this, "cmdback", "&Back"};

  void CMDIMPORT_CLICK();

  void reviewed() override;
  void showState(const std::string& text) override;

 protected:
  std::string title() const override { return "Import Vouchers into the Journal"; }
  void begin() override;
  bool leaveBox() override;
  YearBooks readBooks() override;
  void offerGroups() override { group_.offer(review_.books().known); }
  void finish() override;

 private:
  void attachRows();
  void showRow();
  void setGroup(const std::vector<int>& rows);
  void turnNearest();
  bool mayImport();
  int leftWithReason() const;

  VoucherReview vouchers_{review_};
  ReviewVouchers rows_;
  GroupBox group_;
};

}  // namespace quillet
