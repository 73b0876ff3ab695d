// A host's window and a small form in front of it, and the hands of a person: keys that go the way
// of real ones.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "controls/basic_controls.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/text_box.h"
#include "windows/ui/form_windows.h"

namespace quillet::windows {

// Holds one of most things that the frame of a window deals with.
class SampleForm : public Form {
 public:
  explicit SampleForm(OpenForms& openForms, std::string name = "sample");
  LayoutItem layout() override;

  MenuEntry menu{*this, "menu", "&Menu"};
  MenuEntry command{*this, "command", "&Command", &menu, "F5"};
  MenuEntry other{*this, "other", "&Other", &menu, "Ctrl+P"};
  MenuEntry help{*this, "mnuhelp", "&Help", &menu};
  TextBox particular{*this, "particular"};
  TextBox amount{*this, "amount"};
  Button save{*this, "save", "&Save"};
  Button send{*this, "send", "S&end"};
  Button stop{*this, "stop", "Stop &it"};
  Button start{*this, "start", "Start &it"};
  Grid names{*this, "names"};

  std::vector<std::string> done;  // commands that ran
  bool refusesToClose = false;

 protected:
  void unload(bool& cancel) override { cancel = refusesToClose; }
};

class Desk {
 public:
  Desk();
  ~Desk();
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;

  HWND host() const { return host_; }
  OpenForms forms;
  FormWindows windows;

  HWND show(Form& form);
  HWND showModal(Form& form);
  // The messages that are there, as the loop of a host with these accelerators takes them.
  void pump(HACCEL accelerators = nullptr);
  // Presses the keys, the first ones held down while the last one is struck.
  void strike(std::initializer_list<WORD> keys, HACCEL accelerators = nullptr);
  // The same for keys that are only taken later.
  static void queue(std::initializer_list<WORD> keys);
  // What the host's accelerators did.
  std::vector<WORD> taken;

 private:
  static LRESULT CALLBACK receive(HWND window, UINT message, WPARAM wide, LPARAM longer);
  HWND host_ = nullptr;
};

}  // namespace quillet::windows
