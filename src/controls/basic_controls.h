// The controls without a text of their own to edit: label, frame, button, option, check box, menu
// entry.
#pragma once

#include "controls/control.h"

namespace quillet {

// A line of text that a person only reads.
class Label : public Control {
 public:
  using Control::Control;
  // A quiet label is a hint: drawn smaller and dimmed.
  bool quiet() const { return quiet_; }
  void setQuiet(bool quiet) { set(quiet_, quiet); }

 private:
  bool quiet_ = false;
};

// A group of controls that is shown and enabled as one; its caption, if any, heads it.
class Frame : public Control {
 public:
  using Control::Control;
};

class Button : public Control {
 public:
  using Control::Control;
  bool takesFocus() const override { return true; }
  bool handleKey(Key key) override;
  // The chosen one of several commands is drawn as pressed.
  bool chosen() const { return chosen_; }
  void setChosen(bool chosen);

 private:
  bool chosen_ = false;
};

// Something that is ticked or not.
class Toggle : public Control {
 public:
  using Control::Control;
  bool takesFocus() const override { return true; }
  bool checked() const { return checked_; }
  virtual void setChecked(bool checked);

 private:
  bool checked_ = false;
};

class CheckBox : public Toggle {
 public:
  using Toggle::Toggle;
  bool handleKey(Key key) override;
  // Turns the tick and runs Click.
  void clicked() override;
};

// One of several choices: choosing one clears the others of its array.
class OptionButton : public Toggle {
 public:
  using Toggle::Toggle;
  bool handleKey(Key key) override;
  void setChecked(bool checked) override;
  // Chooses it and runs Click.
  void clicked() override;
};

// An entry of the form's menu bar: a heading when other entries name it as their parent, a command
// otherwise. A caption of "-" draws a line. Entries never take the focus.
class MenuEntry : public Toggle {
 public:
  MenuEntry(Form& form, std::string name, std::string caption, MenuEntry* parent = nullptr,
            std::string shortcut = {});
  MenuEntry(Form& form, std::string name, std::string caption, int index, MenuEntry* parent);
  bool takesFocus() const override { return false; }
  MenuEntry* parent() const { return parent_; }
  // A key that runs the command from anywhere on the form, such as "F5" or "Ctrl+P".
  const std::string& shortcut() const { return shortcut_; }
  // It and every heading above it are enabled and visible.
  bool clickable() const override;

 private:
  MenuEntry* parent_;
  std::string shortcut_;
};

}  // namespace quillet
