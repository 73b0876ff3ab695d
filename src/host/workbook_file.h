// A workbook that a person names: a copy of one of the practice's templates, filled through the
// spreadsheet application. What stands at the target changes at once or not at all.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/context.h"

namespace quillet {

struct WorkbookFile {
  std::string boxTitle;
  std::string source;    // the template below the program folder, "\Databases\ORVO_TB.xls"
  std::string proposed;  // the first proposal: a name below the documents folder, "" the template
  std::string ownName;   // proposed after a file that cannot be taken
  std::vector<std::string> sheets;  // what the template must hold, in any case of letters
  std::string sheetMissing;         // told when it does not

  // Called with the positions of those sheets.
  std::function<void(Workbook& workbook, const std::vector<int>& sheets)> fill;
};

// Asks for the target and writes the workbook; tells how it went.
void exportWorkbook(Context& context, const WorkbookFile& file);

}  // namespace quillet
