#include "suite/firm_name.h"

#include "controls/form.h"
#include "data/names.h"
#include "data/text.h"
#include "suite/misc_values.h"

namespace quillet::suite {
namespace {

constexpr std::size_t longestFirm = 100;
constexpr const char* firmSection = "Suite";
constexpr const char* firmKey = "CompanyName";

}  // namespace

// A station that has named the firm before the server did goes by that.
std::string FirmName::get() const {
  const std::string own = settings_.companyName();
  return unit_.shared() ? misc_values::get(unit_, firmSection, firmKey, own) : own;
}

void FirmName::set(const std::string& name) const {
  if (!unit_.shared()) return settings_.setCompanyName(name);
  if (misc_values::get(unit_, firmSection, firmKey, "") == name) return;
  misc_values::set(unit_, firmSection, firmKey, name, "", "");
}

bool FirmName::keep(Dialogs& dialogs, TextBox& box) const {
  const std::string name = cleanedName(box.text());
  if (const std::size_t length = lengthOf(name); length > longestFirm) {
    dialogs.MsgBox({"The name of the firm is longer than " + std::to_string(longestFirm) +
                        " characters: it has " + std::to_string(length) + ". Please shorten it.",
                    box.form().caption(), Buttons::OK, Icon::information});
    box.form().focus(box);
    return false;
  }
  set(name);
  return true;
}

}  // namespace quillet::suite
