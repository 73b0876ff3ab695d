// The binding's order, kept by hand, and its import from the year before.
#include <utility>

#include "data/sql.h"
#include "data/table_names.h"
#include "data/year.h"
#include "masters/frmgrpRM.h"

namespace quillet {

// --- order --------------------------------------------------------------------------------------

void frmgrpRM::CMDSORTORDER_CLICK() {
  command("CMDSORTORDER_CLICK", [&] {
    if (state_ == State::sorting) {
      UPDATESORTNOS();
    } else {
      setStateM(State::sorting);
      focus(vsfM);
    }
  });
}

void frmgrpRM::CMDUP_CLICK() {
  trap("CMDUP_CLICK", [&] { moveRow(-1); });
}

void frmgrpRM::CMDDOWN_CLICK() {
  trap("CMDDOWN_CLICK", [&] { moveRow(1); });
}

void frmgrpRM::moveRow(int step) {
  if (!itemSelected(vsfM)) return;
  const int from = vsfM.current();
  const int to = from + step;
  if (to < 1 || to > vsfM.rows()) return;
  for (int c = 0; c < vsfM.cols(); ++c) {
    std::string moved = vsfM.cell(from, c);
    vsfM.setCell(from, c, vsfM.cell(to, c));
    vsfM.setCell(to, c, std::move(moved));
  }
  vsfM.setCurrent(to);
}

void frmgrpRM::UPDATESORTNOS() {
  command("UPDATESORTNOS", [&] {
    if (!ask("Do you want to Update Sorting Order?")) return;
    for (int row = 1; row <= vsfM.rows(); ++row) {
      context_.host->ConQuery("Update " + table_ + " Set GrpOrder=" + sqlNumber(row) + ofClient() +
                              " and SrNo=" + sqlNumber(idAt(vsfM, row, srNoColumn)));
    }
    flush();
    const int row = vsfM.current();
    setStateM(State::browsing);
    LOADGRIDM(0);
    vsfM.setCurrent(row);
    focus(vsfM);
  });
}

// --- the previous year --------------------------------------------------------------------------

std::string frmgrpRM::previousTable() {
  const auto row = context_.query(
      "Select * from master where code_no='" + client_ + "' and f_yr='" +
      context_.host->escaped(firstDateKey(yearOf(year_.firstDate) - 1)) + "' and s_yr='" +
      context_.host->escaped(secondDateKey(yearOf(year_.secondDate) - 1)) + "'");
  if (row->EOF_()) return {};
  const std::string suffix = context_.host->GETTBNAME(row->integer("Count"));
  return suffix.empty() ? std::string() : siblingTable(trialBalanceTable(suffix), "RMGRP_");
}

void frmgrpRM::IMPORTFROMPREVYR() {
  command("IMPORTFROMPREVYR", [&] {
    const Sql previous = sqlName(previousTable());
    if (previous.empty()) return;
    const auto items =
        context_.query("Select * from " + previous + ofClient() + " Order by GrpOrder");
    if (items->EOF_() || !ask("Do you want to Import from Previous Year?")) return;
    change("Insert into " + table_ + " Select * from " + previous + ofClient());
    copySetup();
    LOADLIST();
    LOADGRIDM(0);
  });
}

void frmgrpRM::copySetup() {
  const int year = yearOf(year_.secondDate);
  const auto setupOf = [&](int fYr) {
    return context_.query("Select * from RmSchSetup" + ofClient() + " and FYr=" + sqlNumber(fYr));
  };
  const auto previous = setupOf(year - 1);
  if (previous->EOF_() || !setupOf(year)->EOF_()) return;
  Sql values = "'" + client_ + "'," + sqlNumber(year);
  for (const char* field : {"Head", "RmGroup", "OsGroup", "PurGroup", "SalGroup", "CsGroup"}) {
    values += "," + quoted(previous->text(field));
  }
  change("Insert into RmSchSetup Values (" + values + ")");
}

}  // namespace quillet
