#include "windows/host/late_spreadsheet.h"

#include <utility>

namespace quillet::windows {

LateSpreadsheet::LateSpreadsheet() : application_(Late::create("Excel.Application")) {
  try {
    // Nobody sees its window, so nobody could answer what it asks.
    application_.put("DisplayAlerts", false);
  } catch (const std::exception&) {
    // One without this switch asks nothing either.
  }
}

LateSpreadsheet::~LateSpreadsheet() {
  try {
    Quit();
  } catch (const std::exception&) {
    // It was told to quit; the failure before is the one that is told.
  }
}

Workbook& LateSpreadsheet::Open(const std::string& path) {
  workbook_ = std::make_unique<LateWorkbook>(application_.object("Workbooks").object("Open", path));
  return *workbook_;
}

void LateSpreadsheet::Quit() {
  workbook_.reset();
  if (const Late application = std::exchange(application_, {})) application.call("Quit");
}

}  // namespace quillet::windows
