// The editor's summary figures: the balances of both years' groups, shown as trading figures,
// profit, balance-sheet totals and ratios.
#include "books/amount.h"
#include "data/table_names.h"
#include "editor/frmcrtb.h"
#include "ports/busy.h"

namespace quillet {
namespace {

constexpr const char* figureFormat = "#,##0.00;(#,##0.00)";
constexpr const char* stockFormat = "#,##0.00";
constexpr const char* noFigure = "-";
constexpr int figureWidth = 22;

}  // namespace

void frmcrtb::attachSummary() {
  vsfr.setColumns({{.heading = "Particulars", .width = 30, .stretch = true},
                   {.heading = "Amount(Curr)", .align = Align::right, .width = figureWidth},
                   {.heading = "Amount(Prev)", .align = Align::right, .width = figureWidth}});
  for (auto& box : txtclst) {
    box->rightAligned = true;
    box->setLocked(true);
    box->tabStop = false;
  }
  mnushsumm.Click = [this] { MNUSHSUMM_CLICK(); };
  for (auto& button : cmdclstock) {
    button->Click = [this, index = button->index()] { CMDCLSTOCK_CLICK(index); };
  }
}

Node frmcrtb::summaryArrangement() {
  return column({item(vsfr, 1), row({field("Closing stock", txtclst[current], figureWidth),
                                     field("Previous year", txtclst[previous], figureWidth),
                                     item(cmdprnsumm), gap()})},
                1);
}

void frmcrtb::MNUSHSUMM_CLICK() {
  trap("MNUSHSUMM_CLICK", [&] {
    const bool show = !famSummary.visible();
    leaveEntry();
    showPage(show ? famSummary : famLines);
    if (show) LOADFIGS();
    focus(show ? vsfr : vsfm);
    SETBUTTON();
  });
}

void frmcrtb::LOADFIGS() {
  const int selected = vsfr.current();
  emptyFigures();
  trap("LOADFIGS", [&] {
    const Busy busy(*context_.host);
    // Without them the year before would seem to have no figures.
    readRegisters();
    std::array<SummaryRow, summaryRows> figures[2];
    for (const Year year : {current, previous}) figures[year] = summaryOf(readBalances(year));
    showFigures(figures[current], figures[previous]);
    vsfr.setCurrent(selected);
  });
  if (vsfr.rows() == 0) emptyFigures();
}

void frmcrtb::emptyFigures() {
  vsfr.clearRows();
  for (auto& box : txtclst) box->setText("");
}

Balances frmcrtb::readBalances(Year year) {
  Balances balances;
  const Sql table = tableOf(year);
  const bool exists = hasYear(year);
  const auto balance = [&](int group, const Sql& only) {
    return exists ? readBalance(table, group, only) : 0.0;
  };
  for (int group = 1; group <= summaryGroups; ++group) {
    balances.group[static_cast<std::size_t>(group)] = balance(group, "");
  }
  balances.appropriations = balance(splitGroup, " and mast_allgrp.allgrp<>'DEPRECIATION'");
  balances.depreciation = balance(splitGroup, " and mast_allgrp.allgrp='DEPRECIATION'");
  txtclst[year].setText(
      context_.host->formatgen(exists ? readClosingStock(year) : 0.0, stockFormat));
  // What a person reads is what is reckoned with.
  balances.closingStock = shownAmount(txtclst[year].text()).rupees();
  return balances;
}

double frmcrtb::readBalance(const Sql& table, int group, const Sql& only) {
  const auto rows = context_.query("Select sum(amt),nid from " + table +
                                   ",mast_allgrp Where mast_allgrp.gid=" + sqlNumber(group) + only +
                                   " and " + table + ".allid=mast_allgrp.allid and " + table +
                                   ".Code_No='" + client_ + "' group by nid");
  double balance = 0;
  for (; !rows->EOF_(); rows->MoveNext()) {
    if (rows->integer(1) == debit) balance += rows->number(0);
    if (rows->integer(1) == credit) balance -= rows->number(0);
  }
  return balance;
}

double frmcrtb::readClosingStock(Year year) {
  const auto row =
      context_.query("Select sum(amt) from " + sqlName(siblingTable(tables_[year], "TRADE_")) +
                     " Where Code_No='" + client_ + "'");
  return row->EOF_() ? 0 : row->number(0);
}

void frmcrtb::showFigures(const std::array<SummaryRow, summaryRows>& thisYear,
                          const std::array<SummaryRow, summaryRows>& yearBefore) {
  const auto shown = [&](const std::optional<double>& figure) {
    return figure ? context_.host->formatgen(*figure, figureFormat) : noFigure;
  };
  for (std::size_t i = 0; i < thisYear.size(); ++i) {
    const int row = vsfr.addRow(
        {std::string(thisYear[i].caption), shown(thisYear[i].value), shown(yearBefore[i].value)});
    vsfr.setRowEmphasised(row, thisYear[i].result);
  }
}

// --- closing stock ------------------------------------------------------------------------------

void frmcrtb::CMDCLSTOCK_CLICK(int index) {
  trap("CMDCLSTOCK_CLICK", [&] {
    const Year year = view_ == View::both && index == previous ? previous : yearInView();
    stockForms_ = context_.surroundings.createStockForms(desk());
    StockForm& form = stockForms_->ObjTrade();
    form.LoadData(*context_.host, namedCode_, siblingTable(tables_[year], "TRADE_"));
    form.Show(1, [this] { LOADFIGS(); });
  });
}

}  // namespace quillet
