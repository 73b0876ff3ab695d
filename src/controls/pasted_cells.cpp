#include "controls/pasted_cells.h"

#include <string_view>

#include "controls/form.h"
#include "controls/open_forms.h"

namespace quillet {

bool isCellRange(std::string_view text) {
  // A spreadsheet ends the last row, too.
  while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.remove_suffix(1);
  return text.find_first_of("\t\n\r") != std::string_view::npos;
}

bool pasteCells(Control& control, const std::string& text) {
  if (!control.PasteCells || !control.enabled() || !isCellRange(text)) return false;
  const Act act(control.form().openForms().acts);
  control.PasteCells(text);
  return true;
}

}  // namespace quillet
