#include "suite/firm_name.h"

#include "controls/form.h"
#include "data/names.h"
#include "data/text.h"

namespace quillet::suite {
namespace {

constexpr std::size_t most = 100;

}  // namespace

bool keepFirmName(Settings& settings, Dialogs& dialogs, TextBox& box) {
  const std::string name = cleanedName(box.text());
  if (const std::size_t length = lengthOf(name); length > most) {
    dialogs.MsgBox({"The name of the firm is longer than " + std::to_string(most) +
                        " characters: it has " + std::to_string(length) + ". Please shorten it.",
                    box.form().caption(), Buttons::OK, Icon::information});
    box.form().focus(box);
    return false;
  }
  settings.setCompanyName(name);
  return true;
}

}  // namespace quillet::suite
