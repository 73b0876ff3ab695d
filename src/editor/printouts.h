// The editor's two documents: the trial balance as the grid shows it, and the summary figures.
#pragma once

#include <functional>
#include <string>

#include "editor/lines_grid.h"
#include "editor/open_books.h"
#include "editor/summary_page.h"

namespace quillet {

class EditorPrintouts {
 public:
  EditorPrintouts(frmcrtb& form, OpenBooks& books, const LinesGrid& lines, SummaryPage& summary);

 private:
  void CMDPRNSUMM_CLICK();
  void PrintTrial();
  void PrintVariance();
  void REPORT_SUMM();
  void showReport(const char* procedure, const std::function<void()>& write);
  void printTitle(const std::string& title);

  frmcrtb& form_;
  OpenBooks& books_;
  const LinesGrid& lines_;
  SummaryPage& summary_;
};

}  // namespace quillet
