#include "editor/summary_page.h"

#include "books/amount.h"
#include "books/closing_stock.h"
#include "editor/frmcrtb.h"
#include "ports/busy.h"

namespace quillet {
namespace {

using enum TwoYears::Year;

constexpr const char* figureFormat = "#,##0.00;(#,##0.00)";
constexpr const char* noFigure = "-";
constexpr int figureWidth = 22;

}  // namespace

SummaryPage::SummaryPage(frmcrtb& form, OpenBooks& books) : form_(form), books_(books) {
  form.vsfr.sortable = false;  // a sheet of figures
  form.vsfr.setColumns({{.heading = "Particulars", .width = 30, .stretch = true},
                        {.heading = "Amount(Curr)", .align = Align::right, .width = figureWidth},
                        {.heading = "Amount(Prev)", .align = Align::right, .width = figureWidth}});
  for (auto& box : form.txtclst) box->makeFigure();
  form.mnushsumm.Click = [this] { MNUSHSUMM_CLICK(); };
  for (auto& button : form.cmdclstock) {
    button->Click = [this, index = button->index()] { CMDCLSTOCK_CLICK(index); };
  }
}

LayoutItem SummaryPage::arrangement() {
  return column({item(form_.lblsummary), named("Summary", item(form_.vsfr, 1)),
                 row({field("Closing stock", form_.txtclst[current], figureWidth),
                      named("Closing stock, previous year",
                            field("Previous year", form_.txtclst[previous], figureWidth)),
                      item(form_.cmdprnsumm), gap()})},
                1);
}

void SummaryPage::MNUSHSUMM_CLICK() {
  const bool show = !form_.famSummary.visible();
  form_.leaveEntry();
  form_.showPage(show ? form_.famSummary : form_.famLines);
  if (show) LOADFIGS();
  form_.focus(show ? form_.vsfr : form_.vsfm);
  form_.SETBUTTON();
}

void SummaryPage::LOADFIGS() {
  const int selected = form_.vsfr.current();
  clear();
  form_.logErrors("LOADFIGS", [&] {
    const Busy busy(books_.host());
    // Without them the year before would seem to have no figures.
    form_.readRegisters();
    form_.lblsummary.setCaption(form_.subject());
    const Figures thisYear = read(current);
    show(thisYear, read(previous));
    form_.vsfr.setCurrent(selected);
  });
  if (form_.vsfr.rows() == 0) clear();
}

void SummaryPage::clear() {
  form_.vsfr.clearRows();
  form_.lblsummary.setCaption("");
  for (auto& box : form_.txtclst) box->setText("");
}

SummaryPage::Figures SummaryPage::read(TwoYears::Year year) {
  const TwoYears& years = books_.years;
  Balances balances;
  Money stock;
  if (years.has(year)) {
    balances = readBalances(books_.host(), years.books(year));
    const ClosingStock closing(books_.host(), {stockTable(years.table(year)), years.client()});
    // What a person reads is what is reckoned with.
    stock = Money::rounded(closing.total());
  }
  form_.txtclst[year].setText(groupedAmount(books_.host(), stock));
  balances.closingStock = stock.rupees();
  return summaryOf(balances);
}

void SummaryPage::show(const Figures& thisYear, const Figures& yearBefore) {
  const auto shown = [&](const std::optional<double>& figure) {
    return figure ? books_.host().formatgen(*figure, figureFormat) : noFigure;
  };
  for (int i = 0; i < summaryRows; ++i) {
    const int row = form_.vsfr.addRow(
        {std::string(thisYear[i].caption), shown(thisYear[i].value), shown(yearBefore[i].value)});
    form_.vsfr.setRowEmphasised(row, thisYear[i].result);
  }
}

// --- closing stock ------------------------------------------------------------------------------

void SummaryPage::CMDCLSTOCK_CLICK(int index) {
  const TwoYears& years = books_.years;
  const bool ofPrevious = years.view() == TwoYears::View::both && index == previous;
  const TwoYears::Year year = ofPrevious ? previous : years.yearInView();
  stockForms_ = books_.context.environment.createStockForms(form_.openForms());
  StockForm& stock = stockForms_->ObjTrade();
  stock.LoadData(books_.host(), years.client(), stockTable(years.table(year)));
  form_.focusList();
  stock.Show(1, [this] { LOADFIGS(); });
}

}  // namespace quillet
