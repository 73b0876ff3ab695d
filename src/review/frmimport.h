// The review of an import: every row of a file or of pasted cells beside what it becomes in the
// year, until a person says "Import". Modal; the opener hands the year over with INITDATA, opens a
// source, shows the form and reads imported() when it has closed.
//
// Its parts read the source, keep the boxes of its columns, list the rows, take a person's choices
// about them, and print what was done.
#pragma once

#include <string>

#include "controls/basic_controls.h"
#include "controls/choice.h"
#include "controls/control_array.h"
#include "controls/grid.h"
#include "controls/text_box.h"
#include "host/context.h"
#include "review/column_boxes.h"
#include "review/import_review.h"
#include "review/review_rows.h"
#include "review/row_boxes.h"
#include "review/source_boxes.h"

namespace quillet {

class frmimport : public Form {
 public:
  explicit frmimport(Context& context);

  void INITDATA(const ReviewedYear& year);
  // Read the source. False when it cannot be read, which a message says, or was stopped: the form
  // is not to be shown then.
  bool OPENFILE(const std::string& path);
  bool OPENCELLS(const std::string& text);

  // Whether lines were imported.
  bool imported() const { return imported_; }

  LayoutItem layout() override;
  std::string subject() const override;
  void takenBack() override;

  MenuEntry mnulines{*this, "mnulines", "&Lines"};
  MenuEntry mnunext{*this, "mnunext", "Next &Question", &mnulines, "F8"};
  MenuEntry mnukind{*this, "mnukind", "Another &Kind", &mnulines, "F3"};
  MenuEntry mnunearest{*this, "mnunearest", "&Nearest Name or New", &mnulines, "F7"};
  MenuEntry mnugroup{*this, "mnugroup", "&Group...", &mnulines, "F9"};
  MenuEntry mnuconfirm{*this, "mnuconfirm", "&Confirm", &mnulines, "F6"};
  MenuEntry mnuline1{*this, "mnuline1", "-", &mnulines};
  MenuEntry mhelp{*this, "mhelp", "&Help", &mnulines, "F1"};
  MenuEntry mnuback{*this, "mnuback", "&Back", &mnulines, "Ctrl+W"};

  // --- how the source is read
  Label lblsource{*this, "lblsource"};
  ComboBox cbosheet{*this, "cbosheet"};
  ComboBox cboencoding{*this, "cboencoding"};
  ComboBox cbodelimiter{*this, "cbodelimiter"};
  ComboBox cboheading{*this, "cboheading"};
  // In the order of ColumnBoxes::roles.
  ControlArray<ComboBox> cbocolumn{*this, "cbocolumn", {"", "", "", "", "", ""}};
  ComboBox cbodecimals{*this, "cbodecimals"};
  CheckBox chkround{*this, "chkround", "R&ound to paise"};

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
  Button cmdback{*this, "cmdback", "&Back"};

  void FORM_LOAD();
  void FORM_UNLOAD(bool& cancel);
  void FORM_KEYPRESS(Key& key);
  void CMDIMPORT_CLICK();

  // --- for the form's parts
  // How the source is read, or a choice, changed: shows what follows. The current row stays.
  void reviewed();
  // What stands in the way, or that nothing does.
  void showState(const std::string& text = {});

 protected:
  void load() override { FORM_LOAD(); }
  void unload(bool& cancel) override { FORM_UNLOAD(cancel); }

 private:
  bool open(const std::function<SourceBook()>& read);
  bool tellImported(const SourceBook& book);
  bool mayImport();
  std::string note() const;
  void end(ImportEnd how);
  void compareAnew();
  void finish();

  Context& context_;
  ReviewedYear year_;
  bool imported_ = false;

  ImportReview review_;
  SourceBoxes source_;
  ColumnBoxes columns_;
  ReviewRows rows_;
  RowBoxes boxes_;
};

}  // namespace quillet
