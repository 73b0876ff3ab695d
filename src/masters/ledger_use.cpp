// The ledger master's knowledge of use: which particulars any year holds, and whose years they are.
#include <map>
#include <unordered_set>
#include <utility>

#include "data/sql.h"
#include "data/table_names.h"
#include "masters/frmtbledmas.h"
#include "masters/year_tables.h"

namespace quillet {
namespace {

constexpr const char* searching = "Searching Ledgers in Use....";

// The tables of a year in which a particular can stand.
struct Places {
  explicit Places(const std::string& table)
      : names{sqlName(table), sqlName(siblingTable(table, "JRNL_")),
              sqlName(siblingTable(table, "TRADE_"))} {}
  Sql names[3];
};

// The clients and years behind codes and tables, each looked up once.
class Users {
 public:
  explicit Users(Context& context) : context_(context) {}

  const std::string& client(const std::string& code) {
    const auto [at, isNew] = clients_.try_emplace(code);
    if (isNew) {
      const auto row = context_.query("Select * From TempClTbl Where CodeNo=" + quoted(code));
      // A client that has left the list is still told by its code.
      at->second = row->EOF_() ? code : row->text("Name");
    }
    return at->second;
  }

  const std::string& year(const std::string& code, const std::string& table) {
    const auto [at, isNew] = years_.try_emplace({code, table});
    if (isNew) {
      const auto row = context_.query("Select * From Master Where Code_No=" + quoted(code) +
                                      " and Tbl_Nm=" + quoted(table));
      if (!row->EOF_()) at->second = row->text("F_YR") + "-" + row->text("S_YR");
    }
    return at->second;
  }

 private:
  Sql quoted(const std::string& text) const { return context_.host->quoted(text); }

  Context& context_;
  std::map<std::string, std::string> clients_;
  std::map<std::pair<std::string, std::string>, std::string> years_;
};

}  // namespace

// --- marks --------------------------------------------------------------------------------------

void frmtbledmas::mark(std::string_view partId, bool used) {
  for (int row = vsf.find(idColumn, partId); row > 0; row = vsf.find(idColumn, partId, row + 1)) {
    vsf.setCell(row, inUseColumn, used ? "Y" : "N");
  }
}

void frmtbledmas::FILLINUSE(long partId) {
  trap("FILLINUSE", [&] {
    if (partId == 0) {
      fillAllInUse();
    } else {
      mark(std::to_string(partId), usedAnywhere(partId));
    }
  });
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
  const auto showMarks = [&] {
    for (int row = 1; row <= vsf.rows(); ++row) {
      if (used.contains(vsf.cell(row, idColumn))) vsf.setCell(row, inUseColumn, "Y");
    }
  };
  try {
    walkYearTables(context_, searching, [&](const std::string& table) {
      for (const Sql& place : Places(table).names) search(place);
      return false;
    });
  } catch (const std::exception&) {
    showMarks();  // what was found before a table failed is in use all the same
    throw;
  }
  showMarks();
}

bool frmtbledmas::usedAnywhere(long partId) {
  return walkYearTables(context_, searching, [&](const std::string& table) {
    for (const Sql& place : Places(table).names) {
      const auto rows =
          context_.query("Select PartId From " + place + " Where PartId=" + sqlNumber(partId));
      if (!rows->EOF_()) return true;
    }
    return false;
  });
}

// --- the list of use ----------------------------------------------------------------------------

bool frmtbledmas::VIEWLISTOFUSE(const Sql& ids, bool show) {
  bool complete = false;
  trap("VIEWLISTOFUSE", [&] {
    vsfC.clearRows();
    vsfC.clearSort();
    Users users(context_);
    const auto list = [&](const Sql& fields, const Sql& from, const char* kind,
                          const std::string& table) {
      const auto rows =
          context_.query("Select " + fields + " From " + from + " Where PartId in (" + ids + ")");
      for (; !rows->EOF_(); rows->MoveNext()) {
        const std::string code = rows->text(0);
        vsfC.addRow({users.client(code), users.year(code, table), kind});
      }
    };
    walkYearTables(context_, searching, [&](const std::string& table) {
      const Places places(table);
      list("Distinct(Code_No),PartId", places.names[0], "Trial Balance", table);
      list("Distinct(Code_No)", places.names[1], "Adj. Entries", table);
      list("Distinct(Code_No)", places.names[2], "Closing Stock", table);
      return false;
    });
    complete = true;
    if (!show) return;
    showPage(famC);
    focus(vsfC);
  });
  return complete;
}

std::string frmtbledmas::listHeading() const {
  return "List of Clients/F.Y. using Particulars \"" + selectedName() + "\"";
}

void frmtbledmas::CMDVIEW_CLICK() {
  trap("CMDVIEW_CLICK", [&] {
    if (!particularSelected()) return;
    lblheadC.setCaption(listHeading());
    VIEWLISTOFUSE(sqlNumber(selected()), true);
  });
}

void frmtbledmas::CMDBACKC_CLICK() {
  trap("CMDBACKC_CLICK", [&] {
    showPage(famMain);
    focus(vsf);
  });
}

}  // namespace quillet
