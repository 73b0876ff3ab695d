// A form with every kind of control, for the views' tests. It keeps a events of the events that its
// handlers see, so that a test can tell what a person's key or click really caused.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "controls/basic_controls.h"
#include "controls/choice.h"
#include "controls/control_array.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/mask_box.h"
#include "controls/open_forms.h"
#include "controls/text_box.h"

namespace quillet {

class DemoForm : public Form {
 public:
  explicit DemoForm(OpenForms& openForms, std::string name = "demo");

  LayoutItem layout() override;
  void fillGrid();

  MenuEntry mnufile{*this, "mnufile", "&Entry"};
  MenuEntry mnunew{*this, "mnunew", "&New Line", &mnufile, "Ins"};
  MenuEntry mnuline{*this, "mnuline", "-", &mnufile};
  MenuEntry mnuclose{*this, "mnuclose", "&Back", &mnufile, "Ctrl+W"};
  MenuEntry mnuview{*this, "mnuview", "&View"};
  ControlArray<MenuEntry> mnuyrs{*this, "mnuyrs", {"&Current", "&Previous"}, &mnuview};

  ControlArray<Button> cmdmode{
      *this, "cmdmode", {"&Create Trial Balance", "A&lter Trial Balance", "&Print..."}};
  Frame famlist{*this, "famlist"};
  Grid vsf{*this, "vsf"};
  TextBox txtname{*this, "txtname"};
  TextBox txtamount{*this, "txtamount"};
  Grid vsflist{*this, "vsflist"};
  Frame famset{*this, "famset", "Settings"};
  MaskBox mskdate{*this, "mskdate", "", -1, '#'};
  ComboBox cbogroup{*this, "cbogroup"};
  ListBox lstyears{*this, "lstyears"};
  CheckBox chkall{*this, "chkall", "Show &all ledgers"};
  ControlArray<OptionButton> optside{*this, "optside", {"De&bit", "Cred&it"}};
  TextBox txttotal{*this, "txttotal"};
  Label lblhint{*this, "lblhint", "Tick the lines & press Enter"};
  Frame fampage{*this, "fampage"};
  Button cmdback{*this, "cmdback", "Bac&k"};

  std::vector<std::string> events;
  bool keepFocus = false;  // txtname refuses to be left
  bool mayClose = true;
  std::vector<std::string> takeEvents() { return std::exchange(events, {}); }

 protected:
  void unload(bool& cancel) override { cancel = !mayClose; }

 private:
  void note(std::string what) { events.push_back(std::move(what)); }
  void follow(Control& control);
};

}  // namespace quillet
