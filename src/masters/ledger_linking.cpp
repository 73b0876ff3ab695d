// The ledger master's replacements: particulars become another one in every client's every year.
#include <algorithm>
#include <unordered_set>

#include "books/posting.h"
#include "data/sql.h"
#include "masters/frmtbledmas.h"

namespace quillet {
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
      lblstatus.setCaption("");
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

// Every name: what cannot be undone can be read in full, those that the search hides among it.
std::string frmtbledmas::linkQuestion() const {
  std::string names;
  for (int row = 1; row <= vsf.rows(); ++row) {
    if (!vsf.ticked(row) || vsf.cell(row, idColumn) == target_) continue;
    names += "'" + vsf.cell(row, nameColumn) + "'\r\n";
  }
  return "Do you really want to Replace ?\r\n\r\n" + names + "with '" + targetName_ +
         "'\r\n\r\nClick 'Yes' only if you are sure about use of this facility.\r\n\r\nConfirm ?";
}

// Nothing may go into a ledger that somebody has deleted since it was chosen.
bool frmtbledmas::targetStands() {
  if (!context_.query("Select PartId From Mast_Part Where PartId=" + sqlNumber(std::stol(target_)))
           ->EOF_()) {
    return true;
  }
  tell("'" + targetName_ + "' is there no more: somebody has deleted it.");
  reread();
  return false;
}

void frmtbledmas::LINKPARTICULARS() {
  const bool done = command("LINKPARTICULARS", [&] {
    const IdList ids = GETSRNOS();
    if (ids.empty()) {
      tell("Please select a Partiuclar.");
      return;
    }
    if (!ask(linkQuestion()) || !targetStands()) return;
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
    endEntry();
  });
  if (!done) reviewUse();
}

void frmtbledmas::replaceInAllYears(const Sql& condition, long newId) {
  settlePostings(*context_.host, context_.unposted);
  const Sql change = " Set PartId=" + sqlNumber(newId) + " Where PartId" + condition;
  walk("Replacing Ledgers....", placesOfUse(), [&](const YearTable& table) {
    context_.host->ConQuery("Update " + table.sql() + change);
    return false;
  });
}

void frmtbledmas::REPLACEANDDELETE(long oldId, long newId) {
  const bool done = command("REPLACEANDDELETE", [&] {
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
  if (!done) reviewUse();
}

}  // namespace quillet
