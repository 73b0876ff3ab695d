// The ledger master's knowledge of use: which particulars any year holds, and whose years they are.
#include <unordered_set>

#include "books/client_years.h"
#include "data/sql.h"
#include "masters/frmtbledmas.h"

namespace quillet {
namespace {

constexpr const char* searching = "Searching Ledgers in Use....";

const char* kindOf(const YearTable& table) {
  return table.prefix == "TAB_"    ? "Trial Balance"
         : table.prefix == "JRNL_" ? "Adj. Entries"
                                   : "Closing Stock";
}

}  // namespace

// --- marks --------------------------------------------------------------------------------------

void frmtbledmas::mark(std::string_view partId, bool used) {
  for (int row = vsf.find(idColumn, partId); row > 0; row = vsf.find(idColumn, partId, row + 1)) {
    vsf.setCell(row, inUseColumn, used ? "Y" : "N");
  }
}

void frmtbledmas::FILLINUSE(long partId) {
  const bool done = attempt("FILLINUSE", [&] {
    if (partId == 0) {
      fillAllInUse();
    } else {
      mark(std::to_string(partId), usedAnywhere(partId));
    }
  });
  if (!done) status("What is in use could not be searched to its end; the error log says why.");
}

void frmtbledmas::reviewUse() {
  FILLINUSE(0);
  SETROWSHIDDEN();
}

void frmtbledmas::fillAllInUse() {
  IdList found;
  std::unordered_set<std::string> used;
  const auto search = [&](const Sql& table) {
    Sql sql = "Select Distinct PartId From " + table;
    if (!found.empty()) sql += " Where PartId Not In (" + found.sql() + ")";
    for (const auto rows = context_.query(sql); !rows->EOF_(); rows->MoveNext()) {
      const auto id = rows->field(0);
      if (!id) continue;
      found.add(rows->integer(0));
      used.emplace(*id);
    }
  };
  const auto showMarks = [&](bool complete) {
    for (int row = 1; row <= vsf.rows(); ++row) {
      if (used.contains(vsf.cell(row, idColumn))) {
        vsf.setCell(row, inUseColumn, "Y");
      } else if (complete) {
        vsf.setCell(row, inUseColumn, "N");
      }
    }
  };
  try {
    walk(searching, placesOfUse(), [&](const YearTable& table) {
      search(table.sql());
      return false;
    });
  } catch (const std::exception&) {
    showMarks(false);  // what was found before a table failed is in use all the same
    throw;
  }
  showMarks(true);
}

bool frmtbledmas::usedAnywhere(long partId) {
  return walk(searching, placesOfUse(), [&](const YearTable& table) {
    const auto rows =
        context_.query("Select PartId From " + table.sql() + " Where PartId=" + sqlNumber(partId));
    return !rows->EOF_();
  });
}

// --- the list of use ----------------------------------------------------------------------------

bool frmtbledmas::VIEWLISTOFUSE(const Sql& ids, bool show) {
  bool complete = false;
  trap("VIEWLISTOFUSE", [&] {
    vsfC.clearRows();
    vsfC.clearSort();
    ClientYears names(*context_.host);
    walk(searching, placesOfUse(), [&](const YearTable& table) {
      const Sql fields =
          table.prefix == "TAB_" ? Sql("Distinct(Code_No),PartId") : Sql("Distinct(Code_No)");
      const auto rows = context_.query("Select " + fields + " From " + table.sql() +
                                       " Where PartId in (" + ids + ")");
      for (; !rows->EOF_(); rows->MoveNext()) {
        const std::string code = rows->text(0);
        const std::string& client = names.client(code);
        const ClientYears::Year& year = names.year(code, table.trialBalance);
        vsfC.addRow(
            {client, year.first.empty() ? "" : year.first + "-" + year.second, kindOf(table)});
      }
      return false;
    });
    complete = true;
    if (!show) return;
    showPage(famC);
    focus(vsfC);
  });
  // Half a list would deceive.
  if (!complete) vsfC.clearRows();
  return complete;
}

std::string frmtbledmas::listHeading() const {
  return "List of Clients/F.Y. using Particulars \"" + selectedName() + "\"";
}

void frmtbledmas::CMDVIEW_CLICK() {
  command("CMDVIEW_CLICK", [&] {
    if (!particularSelected()) return;
    lblheadC.setCaption(listHeading());
    if (!VIEWLISTOFUSE(sqlNumber(selected()), true))
      status("The search failed; the error log says why.");
  });
}

void frmtbledmas::CMDBACKC_CLICK() {
  trap("CMDBACKC_CLICK", [&] {
    showPage(famMain);
    focus(vsf);
  });
}

}  // namespace quillet
