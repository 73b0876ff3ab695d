// The menu bar of a form's window, made from its menu entries. Entries may come and go while the
// form is open.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "controls/basic_controls.h"
#include "controls/form.h"

namespace quillet::windows {

class FormMenu {
 public:
  explicit FormMenu(Form& form) : form_(form) {}
  FormMenu(const FormMenu&) = delete;
  FormMenu& operator=(const FormMenu&) = delete;

  // Brings the window's bar up to date; true when it was made anew.
  bool refresh(HWND window);
  // The entry of a WM_COMMAND, null for another's.
  MenuEntry* entry(WORD command) const;
  // The entry that the key, with what is held down beside it, is the shortcut of.
  MenuEntry* shortcut(WPARAM virtualKey) const;

 private:
  // What the bar is made anew for when it changes.
  struct Item {
    MenuEntry* entry;
    unsigned id;
    unsigned heading;
    bool heads;
    bool enabled;  // of a heading; a command is enabled in place
    std::string caption;
    std::string shortcut;
    bool operator==(const Item&) const = default;
  };
  std::vector<Item> gather() const;
  HMENU build(unsigned heading) const;
  void draw(HWND window);

  Form& form_;
  HMENU bar_ = nullptr;  // goes with the window
  std::vector<Item> items_;
};

}  // namespace quillet::windows
