#include "controls/vtxt.h"

#include <algorithm>

#include "controls/form.h"
#include "controls/key_checks.h"
#include "controls/open_forms.h"
#include "data/errors.h"
#include "data/text.h"

namespace quillet {
namespace {

// Error number of "subscript out of range".
constexpr long outOfRange = 9;
constexpr std::size_t decimalsTaken = 3;

}  // namespace

VTxt::VTxt(Form& form, std::string name, std::string caption, int index)
    : TextBox(form, std::move(name), std::move(caption), index) {}

void VTxt::logErrors(const char* procedure, const std::function<void()>& body) {
  try {
    body();
  } catch (const std::exception& error) {
    const OpenForms& openForms = form().openForms();
    if (openForms.onError) openForms.onError(name() + '\t' + procedure, error);
  }
}

// --- properties ---------------------------------------------------------------------------------

void VTxt::Table::fill(std::string_view list) {
  count_ = 0;
  for (std::size_t at = 0; at < list.size();) {
    const char32_t character = nextCharacter(list, at);
    if (count_ == entries_.size()) {
      throw RunTimeError(
          outOfRange,
          "A list of characters has room for " + std::to_string(entries_.size()) + " of them.",
          "VTxt");
    }
    entries_[count_++] = character;
  }
}

bool VTxt::Table::holds(char32_t character) const {
  const auto* const end = entries_.begin() + count_;
  return std::find(entries_.begin(), end, character) != end;
}

void VTxt::Include(const std::string& characters) {
  logErrors("LET INCLUDE", [&] {
    include_ = characters;
    included_.fill(include_);
  });
}

void VTxt::Exclude(const std::string& characters) {
  logErrors("LET EXCLUDE", [&] {
    exclude_ = characters;
    excluded_.fill(exclude_);
  });
}

std::string VTxt::SelText() const {
  const std::string shown = text();
  const std::size_t begin = offsetOf(shown, selStart());
  return shown.substr(begin, offsetOf(shown, selStart() + selLength()) - begin);
}

void VTxt::USERCONTROL_READPROPERTIES(const PropertyBag& bag) {
  logErrors("USERCONTROL_READPROPERTIES", [&] {
    const auto text = [&](const char* name) {
      const auto found = bag.find(name);
      return found == bag.end() ? std::string() : found->second;
    };
    const auto number = [&](const char* name, int otherwise) {
      return bag.contains(name) ? std::stoi(bag.at(name)) : otherwise;
    };
    ValidateData(number("ValidateData", 0));
    MaxLength(number("MaxLength", defaultMaxLength));
    MinLength(number("MinLength", 0));
    Include(text("Include"));
    Exclude(text("Exclude"));
  });
}

void VTxt::USERCONTROL_WRITEPROPERTIES(PropertyBag& bag) const {
  if (validateData_ != 0) bag["ValidateData"] = std::to_string(validateData_);
  if (maxLength_ != defaultMaxLength) bag["MaxLength"] = std::to_string(maxLength_);
  if (minLength_ != 0) bag["MinLength"] = std::to_string(minLength_);
  if (!include_.empty()) bag["Include"] = include_;
  if (!exclude_.empty()) bag["Exclude"] = exclude_;
}

// --- keys ---------------------------------------------------------------------------------------

void VTxt::CTXTVALIDATE_KEYPRESS(Key& key) {
  logErrors("CTXTVALIDATE_KEYPRESS", [&] {
    key = upperCase(key);
    switch (key) {
      case keys::Backspace:
      case keys::Escape:
        break;
      case keys::Tab:
        if (!CHECK_M()) key = keys::none;
        break;
      case keys::Enter:
        KeyPress(key);
        key = keys::none;
        form().press(keys::Tab);
        return;
      default:
        check(key);
    }
  });
}

void VTxt::check(Key& key) {
  if (included_.holds(key)) return;
  if (excluded_.holds(key)) return discard(key, "InValid Data");
  if (!key_checks::accepts(validateData_, key)) {
    return discard(key, key_checks::refusal(validateData_));
  }
  const std::string shown = text();
  const std::string_view typed = trimmed(shown);
  if (validateData_ == key_checks::amount && key != U'+' && key != U'-') {
    const std::size_t point = typed.find('.');
    if (point != std::string_view::npos && typed.size() - point > decimalsTaken) {
      return discard(key);
    }
  }
  if (static_cast<int>(lengthOf(typed)) > maxLength_) discard(key);
}

void VTxt::discard(Key& key, const std::string& message) {
  key = keys::none;
  if (!message.empty()) tell(message);
  form().focus(*this);
}

// --- leaving ------------------------------------------------------------------------------------

bool VTxt::fault(const std::string& message) {
  tell(message);
  return false;
}

bool VTxt::CHECK_M() {
  bool passed = false;
  logErrors("CHECK_M", [&] {
    const std::string typed(trimmed(text()));
    if (static_cast<int>(lengthOf(typed)) < minLength_) {
      passed = fault("Data must be at least of " + std::to_string(minLength_) + " characters");
      return;
    }
    const bool date =
        validateData_ == key_checks::shortDate || validateData_ == key_checks::longDate;
    const std::string wrong = date ? key_checks::dateFault(validateData_, typed) : "";
    passed = wrong.empty() || fault(wrong);
  });
  return passed;
}

void VTxt::CTXTVALIDATE_LOSTFOCUS() {
  logErrors("CTXTVALIDATE_LOSTFOCUS", [&] {
    // The message is shown but the focus is not held: a person who cancels must be able to leave.
    if (CHECK_M() && validateData_ == key_checks::amount && !trimmed(text()).empty()) {
      setText(key_checks::twoDecimals(text()));
    }
  });
}

}  // namespace quillet
