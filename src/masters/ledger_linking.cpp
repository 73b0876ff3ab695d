// The ledger master's replacements: particulars become another one in every client's every year.
#include <algorithm>
#include <unordered_set>

#include "data/sql.h"
#include "data/table_names.h"
#include "host/posting.h"
#include "masters/frmtbledmas.h"
#include "masters/year_tables.h"

namespace quillet {
namespace {

// How many names a question lists before it only counts them.
constexpr int namesListed = 20;

}  // namespace

void frmtbledmas::setLinkView(bool on) {
  target_ = on ? selectedId() : std::string();
  targetName_ = on ? selectedName() : std::string();
  lbllink.setCaption(on ? "Particulars selected below will be deleted & will be replaced with '" +
                              targetName_ + "'"
                        : "All the Linked");
  lbllink.setVisible(on);
  for (int row = 1; row <= vsf.rows(); ++row) vsf.setCell(row, linkColumn, "");
  SETCOLWIDTH();
}

void frmtbledmas::leaveLinkView() {
  const std::string target = target_;
  setLinkView(false);
  SETROWSHIDDEN();
  makeShownCurrent(target);
}

void frmtbledmas::CMDLINK_CLICK() {
  trap("CMDLINK_CLICK", [&] {
    if (!target_.empty()) {
      LINKPARTICULARS();
    } else if (rowSelected(vsf, "Please Select a Paritculars.")) {
      setLinkView(true);
      SETBUTTON(false);
      SETROWSHIDDEN();
      focus(vsf);
    }
  });
}

IdList frmtbledmas::GETSRNOS() {
  IdList ids;
  trap("GETSRNOS", [&] {
    for (int row = 1; row <= vsf.rows(); ++row) {
      const std::string& id = vsf.cell(row, idColumn);
      if (vsf.ticked(row) && id != target_) ids.add(std::stol(id));
    }
  });
  return ids;
}

std::string frmtbledmas::linkQuestion() const {
  std::string names;
  int ticked = 0;
  for (int row = 1; row <= vsf.rows(); ++row) {
    if (!vsf.ticked(row) || vsf.cell(row, idColumn) == target_) continue;
    if (++ticked <= namesListed) names += "'" + vsf.cell(row, nameColumn) + "'\r\n";
  }
  if (ticked > namesListed) names += "and " + std::to_string(ticked - namesListed) + " more\r\n";
  return "Do you really want to Replace ?\r\n\r\n" + names + "with '" + targetName_ +
         "'\r\n\r\nClick 'Yes' only if you are sure about use of this facility.\r\n\r\nConfirm ?";
}

void frmtbledmas::LINKPARTICULARS() {
  trap("LINKPARTICULARS", [&] {
    const IdList ids = GETSRNOS();
    if (ids.empty()) {
      tell("Please select a Partiuclar.");
      return;
    }
    if (!ask(linkQuestion())) return;
    changed_ = true;
    replaceInAllYears(" In (" + ids.sql() + ")", std::stol(target_));
    change("Delete From Mast_Part Where PartId In (" + ids.sql() + ")");
    std::unordered_set<std::string> gone;
    for (int row = 1; row <= vsf.rows(); ++row) {
      if (vsf.ticked(row)) gone.insert(vsf.cell(row, idColumn));
    }
    gone.erase(target_);
    vsf.removeRowsIf([&](int row) { return gone.contains(vsf.cell(row, idColumn)); });
    mark(target_, true);
    CMDCANCEL_CLICK();
  });
}

void frmtbledmas::replaceInAllYears(const Sql& condition, long newId) {
  settlePostings(context_);
  const Sql change = " Set PartId=" + sqlNumber(newId) + " Where PartId" + condition;
  walkYearTables(context_, "Replacing Ledgers....", [&](const std::string& table) {
    context_.host->ConQuery("Update " + sqlName(table) + change);
    context_.host->ConQuery("Update " + sqlName(siblingTable(table, "JRNL_")) + change);
    context_.host->ConQuery("Update " + sqlName(siblingTable(table, "TRADE_")) + change);
    return false;
  });
}

void frmtbledmas::REPLACEANDDELETE(long oldId, long newId) {
  trap("REPLACEANDDELETE", [&] {
    changed_ = true;
    const std::string old = std::to_string(oldId);
    replaceInAllYears("=" + sqlNumber(oldId), newId);
    flush();
    change("Delete From Mast_Part Where PartId=" + sqlNumber(oldId));
    vsf.removeRowsIf([&](int row) { return vsf.cell(row, idColumn) == old; });
    mark(std::to_string(newId), true);
    SETROWSHIDDEN();
    makeShownCurrent(std::to_string(newId));
  });
}

}  // namespace quillet
