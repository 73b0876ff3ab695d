// A form with controls of every kind in a real window, and a person at keyboard and mouse.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

#include "controls/choice.h"
#include "controls/control_array.h"
#include "controls/grid.h"
#include "controls/mask_box.h"
#include "controls/open_forms.h"
#include "controls/text_box.h"
#include "windows/ui/form_windows.h"

namespace quillet::windows {

class TryForm : public Form {
 public:
  explicit TryForm(OpenForms& openForms);

  LayoutItem layout() override;

  MenuEntry lineMenu{*this, "lineMenu", "&Line"};
  MenuEntry remove{*this, "remove", "&Delete", &lineMenu, "Ctrl+Del"};
  TextBox name{*this, "name"};
  TextBox amount{*this, "amount"};
  MaskBox date{*this, "date"};
  ComboBox side{*this, "side"};
  CheckBox all{*this, "all", "&All years"};
  ControlArray<OptionButton> option{*this, "option", {"&One", "&Two"}};
  ControlArray<TextBox> lines{*this, "line", {"", ""}};
  Button ok{*this, "ok", "&Keep"};
  Label hint{*this, "hint", "Totals & sums"};
  Frame frame{*this, "frame", "Lines"};
  Grid grid{*this, "grid"};
  Grid names{*this, "names"};
};

class OnScreen : public testing::Test {
 protected:
  OnScreen();
  ~OnScreen() override;

  // Waits until the windows have seen everything that was done.
  static void settle();
  // The first keys are held down while the last one is struck.
  static void key(std::initializer_list<WORD> keys);
  // Characters, as an input panel types them: one message for each code unit.
  static void type(std::wstring_view text);
  static void press(HWND window, POINT place, bool twice = false);
  static void putOnClipboard(const std::wstring& text);
  // The window of a control, which gets the focus.
  HWND focusOn(Control& control);

  OpenForms openForms;
  FormWindows windows;
  TryForm form{openForms};
};

}  // namespace quillet::windows
