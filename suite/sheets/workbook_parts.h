// Where the parts of a workbook are in its zip file.
#pragma once

#include <string>
#include <vector>

#include "suite/sheets/zip_file.h"

namespace quillet::suite {

struct WorkbookParts {
  struct Sheet {
    std::string name;
    std::string part;
    bool hidden = false;
  };
  std::vector<Sheet> sheets;  // those of cells, in their order
  std::string strings;        // empty when it has none
  std::string styles;
  bool from1904 = false;         // how it counts days
  bool calculatesFirst = false;  // whoever wrote it left the values of formulas to the reader
};

// Throws SourceError when the file is no workbook.
WorkbookParts workbookParts(const ZipFile& zip);

}  // namespace quillet::suite
