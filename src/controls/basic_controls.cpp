#include "controls/basic_controls.h"

#include "controls/form.h"

namespace quillet {

bool Button::handleKey(Key key) {
  if (key != keys::Enter && key != keys::Space) return false;
  Click();
  return true;
}

void Button::setChosen(bool chosen) { set(chosen_, chosen); }

void Toggle::setChecked(bool checked) { set(checked_, checked); }

bool CheckBox::handleKey(Key key) {
  if (key != keys::Space) return false;
  clicked();
  return true;
}

void CheckBox::clicked() {
  setChecked(!checked());
  Click();
}

bool OptionButton::handleKey(Key key) {
  if (key != keys::Space) return false;
  clicked();
  return true;
}

void OptionButton::setChecked(bool checked) {
  Toggle::setChecked(checked);
  if (!checked) return;
  for (Control* other : form().controls()) {
    auto* option = dynamic_cast<OptionButton*>(other);
    if (option && option != this && option->name() == name()) option->Toggle::setChecked(false);
  }
}

void OptionButton::clicked() {
  setChecked(true);
  Click();
}

MenuEntry::MenuEntry(Form& form, std::string name, std::string caption, MenuEntry* parent,
                     std::string shortcut)
    : Toggle(form, std::move(name), std::move(caption)),
      parent_(parent),
      shortcut_(std::move(shortcut)) {}

MenuEntry::MenuEntry(Form& form, std::string name, std::string caption, int index,
                     MenuEntry* parent)
    : Toggle(form, std::move(name), std::move(caption), index), parent_(parent) {}

bool MenuEntry::clickable() const {
  return enabled() && visible() && (parent_ == nullptr || parent_->clickable());
}

}  // namespace quillet
