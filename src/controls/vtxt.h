// The validating text box, for codes, names and dates: it turns every key to upper case and checks
// it by a validation mode, an include list, an exclude list and the text's length.
//
// It is a text box in everything else. A form handles it like one: KeyPress and LostFocus run after
// the box's own checks, KeyPress with the key that is left.
#pragma once

#include <array>
#include <cstddef>
#include <exception>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "controls/text_box.h"

namespace quillet {

class VTxt : public TextBox {
 public:
  // The properties as a form's property data keeps them, by name.
  using PropertyBag = std::map<std::string, std::string>;

  VTxt(Form& form, std::string name, std::string caption = {}, int index = -1);

  // The validation mode, see key_checks.h.
  int ValidateData() const { return validateData_; }
  void ValidateData(int mode) { validateData_ = mode; }
  // The longest trimmed text: one that is longer takes no more keys. Not the hard limit of what a
  // table's column holds, which is the text box's maxLength.
  int MaxLength() const { return maxLength_; }
  void MaxLength(int characters) { maxLength_ = characters; }
  // The shortest trimmed text, checked when the box is left.
  int MinLength() const { return minLength_; }
  void MinLength(int characters) { minLength_ = characters; }
  // Characters always accepted, characters always refused: as many as the table holds. The first
  // one too many is a run-time error; those before it count.
  const std::string& Include() const { return include_; }
  void Include(const std::string& characters);
  const std::string& Exclude() const { return exclude_; }
  void Exclude(const std::string& characters);

  // The selected text; setting it replaces the selection, as the checks are for keys alone.
  std::string SelText() const;
  void SelText(const std::string& text) { replaceSelection(text); }

  // Whether the text passes the length and date checks; tells a person why it does not.
  bool CHECK_M();

  // Sets the properties from the bag; one that is not there gets its default.
  void USERCONTROL_READPROPERTIES(const PropertyBag& bag);
  // Puts the properties that differ from their defaults into the bag.
  void USERCONTROL_WRITEPROPERTIES(PropertyBag& bag) const;

  // Shows a text in a message box with OK and no icon; attached by the form.
  std::function<void(const std::string& text)> MsgBox;

  void checkKey(Key& key) override { CTXTVALIDATE_KEYPRESS(key); }
  void checkLeft() override { CTXTVALIDATE_LOSTFOCUS(); }

 private:
  // The characters of a list, taken apart.
  class Table {
   public:
    void fill(std::string_view list);
    bool holds(char32_t character) const;

   private:
    std::array<char32_t, 51> entries_{};
    std::size_t count_ = 0;
  };

  void CTXTVALIDATE_KEYPRESS(Key& key);
  void CTXTVALIDATE_LOSTFOCUS();
  void check(Key& key);
  void discard(Key& key, const std::string& message = {});
  bool fault(const std::string& message);
  void tell(const std::string& message) {
    if (MsgBox) MsgBox(message);
  }

  // As the form's; the errors are logged under the box's own name.
  void logErrors(const char* procedure, const std::function<void()>& body);

  static constexpr int defaultMaxLength = 100;
  int validateData_ = 0;
  int maxLength_ = defaultMaxLength;
  int minLength_ = 0;
  std::string include_;
  std::string exclude_;
  Table included_;
  Table excluded_;
};

}  // namespace quillet
