// The editor's summary figures of both years, and the closing stock that they reckon with.
#pragma once

#include <array>
#include <memory>

#include "books/summary_figures.h"
#include "controls/layout.h"
#include "editor/open_books.h"

namespace quillet {

class frmcrtb;

class SummaryPage {
 public:
  SummaryPage(frmcrtb& form, OpenBooks& books);

  LayoutItem arrangement();
  void clear();
  void LOADFIGS();

 private:
  using Figures = std::array<SummaryRow, summaryRows>;

  void MNUSHSUMM_CLICK();
  void CMDCLSTOCK_CLICK(int index);
  Figures read(TwoYears::Year year);
  void show(const Figures& thisYear, const Figures& yearBefore);

  frmcrtb& form_;
  OpenBooks& books_;
  std::unique_ptr<StockForms> stockForms_;  // of the closing stock shown last
};

}  // namespace quillet
