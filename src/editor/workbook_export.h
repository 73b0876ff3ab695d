// The editor's export: the lines that the grid shows, written into a copy of a template workbook.
#pragma once

#include "editor/lines_grid.h"
#include "editor/open_books.h"

namespace quillet {

class frmcrtb;

class WorkbookExport {
 public:
  WorkbookExport(frmcrtb& form, OpenBooks& books, const LinesGrid& lines);

 private:
  void CMDEXPORT_CLICK();
  void writeRows(Workbook& workbook, int sheet);

  frmcrtb& form_;
  OpenBooks& books_;
  const LinesGrid& lines_;
};

}  // namespace quillet
