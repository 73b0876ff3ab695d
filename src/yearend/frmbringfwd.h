// The review of a year that is brought forward: every line of the next year's opening with its
// reason, and what is chosen for it, until a person says "Bring Forward". Modal; the opener hands
// the old year over with INITDATA, shows the form and reads broughtInto() when it has closed.
//
// Its parts list the lines and take what is chosen for the whole.
#pragma once

#include <optional>
#include <string>

#include "controls/basic_controls.h"
#include "controls/choice.h"
#include "controls/grid.h"
#include "controls/text_box.h"
#include "host/context.h"
#include "yearend/forward_rows.h"
#include "yearend/share_boxes.h"

namespace quillet {

class frmbringfwd : public Form {
 public:
  explicit frmbringfwd(Context& context);

  // Reads the books, too; throws when that fails. False when the form is not to be shown, which a
  // message says.
  bool INITDATA(const RegisteredYear& last, const std::string& clientName);
  // The year that was written into; nothing when none was.
  const std::optional<RegisteredYear>& broughtInto() const { return broughtInto_; }
  bool madeYear() const { return broughtInto_ && !review_.books().next; }

  LayoutItem layout() override;
  std::string subject() const override;
  void takenBack() override;

  MenuEntry mnulines{*this, "mnulines", "&Lines"};
  MenuEntry mnunext{*this, "mnunext", "Next Line that is &Left", &mnulines, "F8"};
  MenuEntry mnutake{*this, "mnutake", "&Take or Leave", &mnulines, "F6"};
  MenuEntry mnushares{*this, "mnushares", "&Per Cent", &mnulines, "F9"};
  MenuEntry mnuline1{*this, "mnuline1", "-", &mnulines};
  MenuEntry mhelp{*this, "mhelp", "&Help", &mnulines, "F1"};
  MenuEntry mnuback{*this, "mnuback", "&Back", &mnulines, "Ctrl+W"};

  // --- the lines
  ComboBox cboshow{*this, "cboshow"};
  CheckBox chkzero{*this, "chkzero", "&Keep ledgers at zero"};
  ComboBox cbostock{*this, "cbostock"};
  TextBox txtstock{*this, "txtstock"};
  Grid vsfp{*this, "vsfp"};
  Grid vsfl{*this, "vsfl"};
  Label lblstate{*this, "lblstate"};

  // --- whose capital takes the profit
  Grid vsfs{*this, "vsfs"};
  TextBox txtpercent{*this, "txtpercent"};
  TextBox txtcapital{*this, "txtcapital"};
  Grid vsfc{*this, "vsfc"};
  ComboBox cbocapital{*this, "cbocapital"};
  Button cmdcapital{*this, "cmdcapital", "A&dd"};

  // --- totals and the end
  Label lblprofit{*this, "lblprofit"};
  Grid vsft{*this, "vsft"};  // of the old year, of what is brought forward, of the new year
  Button cmdbring{*this, "cmdbring", "Bring &Forward"};
  Button cmdback{*this, "cmdback", "&Back"};

  void FORM_LOAD();
  void FORM_UNLOAD(bool& cancel);
  void FORM_KEYPRESS(Key& key);
  void CMDBRING_CLICK();

  // A choice was made: shows what follows.
  void reviewed();

 protected:
  void load() override { FORM_LOAD(); }
  void unload(bool& cancel) override { FORM_UNLOAD(cancel); }

 private:
  void attachCommands();
  ForwardBooks readBooks();
  void readAnew();
  void showState(const std::string& text = {});
  std::string doubt() const;
  bool mayBring();
  void end(ForwardEnd how, const RegisteredYear& year);
  void finish(const RegisteredYear& year);

  Context& context_;
  RegisteredYear last_;
  std::string clientName_;
  std::optional<RegisteredYear> broughtInto_;
  ForwardReview review_;
  ForwardRows rows_;
  ShareBoxes shares_;
};

}  // namespace quillet
