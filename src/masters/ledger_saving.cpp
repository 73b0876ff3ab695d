// The ledger master's changes of single particulars: adding, renaming, deleting.
#include <unordered_set>

#include "data/sql.h"
#include "data/text.h"
#include "host/meant_name.h"
#include "masters/frmtbledmas.h"

namespace quillet {

void frmtbledmas::CMDUPDATE_CLICK() {
  command("CMDUPDATE_CLICK", [&] {
    if (!target_.empty()) {
      LINKPARTICULARS();
      return;
    }
    const std::string name = cleanedName(VTxt1.text());
    if (name.empty()) {
      tell("Please Specify 'Particulars'.");
      focus(VTxt1);
      return;
    }
    Sql sql = "Select * From Mast_Part Where Particular=" + quoted(name);
    if (!adding_) sql += " and PartId<>" + sqlNumber(selected());
    const auto existing =
        taken(name, sql,
              {vsf, nameColumn, "Select * From Mast_Part Where PartId=", "PartId", "Particular"},
              adding_ ? 0 : selected());
    if (!existing) {
      saveParticular(name);
    } else if (adding_) {
      refuse(name, *existing);
    } else {
      offerExisting(name, *existing);
    }
  });
}

void frmtbledmas::saveParticular(const std::string& name) {
  changed_ = true;
  long id = 0;
  if (adding_) {
    id = context_.host->GetMax_MastPartId(name);
    if (id == 0) {
      tell("Failed to Create Master [" + name + "].");
      focus(VTxt1);
      return;
    }
    addedId_ = id;
  } else {
    id = selected();
    context_.host->ConQuery("Update Mast_Part Set Particular=" + quoted(name) +
                            " Where PartId=" + sqlNumber(id));
  }
  flush();
  SETBUTTON(false);
  LOADGRID(id);
  if (adding_) {
    // The new name need not match what was searched for.
    txtfind.setText("");
    SETROWSHIDDEN();
  } else {
    FILLINUSE(id);
  }
  focus(vsf);
}

void frmtbledmas::refuse(const std::string& name, const NamedId& existing) {
  tell("Duplicate Particulars!!" + whyTaken(name, existing.name));
  focus(VTxt1);
}

void frmtbledmas::offerExisting(const std::string& name, const NamedId& existing) {
  const long oldId = selected();
  const std::string oldName = selectedName();
  if (!VIEWLISTOFUSE(sqlNumber(oldId), false)) {
    status(unsearched);
    return;
  }
  if (oldId == 0 || existing.id == 0 || vsfC.rows() == 0) {
    refuse(name, existing);
    return;
  }
  if (!ask("Can't create Duplicate Particulars!!" + whyTaken(name, existing.name) +
           "\r\n\r\nDo you want to use the existing Particulars?") ||
      !ask("It will delete the existing particulars '" + oldName + "' and will replace with '" +
           existing.name + "'.\r\n\r\nConfirm ?")) {
    return;
  }
  endEntry();
  REPLACEANDDELETE(oldId, existing.id);
}

// --- deleting -----------------------------------------------------------------------------------

void frmtbledmas::CMDDELETE_CLICK() {
  command("CMDDELETE_CLICK", [&] {
    if (Option1[notInUse].checked()) {
      deleteUnused();
    } else {
      deleteSelected();
    }
  });
}

bool frmtbledmas::mayDelete(const Sql& ids, const std::string& refusal) {
  if (!VIEWLISTOFUSE(ids, false)) {
    status(unsearched);
    return false;
  }
  if (vsfC.rows() == 0) return true;
  // The marks told otherwise, or are old.
  if (Option1[notInUse].checked()) {
    reviewUse();
  } else {
    mark(selectedId(), true);
  }
  const bool view = ask(refusal +
                        "\r\n\r\nDo you want to view the list of Client/F.Y. using the "
                        "Particulars?");
  if (view) {
    showPage(famC);
    focus(vsfC);
  }
  return false;
}

void frmtbledmas::deleteSelected() {
  if (!particularSelected()) return;
  const std::string id = selectedId();
  lblheadC.setCaption(listHeading());
  if (!mayDelete(sqlNumber(selected()),
                 "Particulars already in use. You can not delete this Particulars.") ||
      !ask("Do you want to delele the Particulars [" + selectedName() + "] ?",
           "Delete Confirmation")) {
    return;
  }
  changed_ = true;
  context_.host->ConQuery("Delete from Mast_Part Where PartId=" + sqlNumber(selected()));
  vsf.setCurrent(neighbourOfSelected());
  vsf.removeRowsIf([&](int row) { return vsf.cell(row, idColumn) == id; });
  SETROWSHIDDEN();
  flush();
}

int frmtbledmas::neighbourOfSelected() const {
  const std::string id = selectedId();
  const auto stays = [&](int row) { return !vsf.rowHidden(row) && vsf.cell(row, idColumn) != id; };
  for (int row = vsf.current() + 1; row <= vsf.rows(); ++row) {
    if (stays(row)) return row;
  }
  for (int row = vsf.current() - 1; row > 0; --row) {
    if (stays(row)) return row;
  }
  return 0;
}

void frmtbledmas::deleteUnused() {
  IdList ids;
  std::unordered_set<std::string> gone;
  for (int row = 1; row <= vsf.rows(); ++row) {
    const std::string& id = vsf.cell(row, idColumn);
    if (!vsf.rowHidden(row) && gone.insert(id).second) ids.add(std::stol(id));
  }
  if (ids.empty()) {
    tell("Please select a Particulars.");
    return;
  }
  lblheadC.setCaption("List of Clients/F.Y. using Particulars");
  if (!mayDelete(ids.sql(), "Particulars already in use. You can not delete these Particulars.") ||
      !ask("Do you really want to Delete " + std::to_string(gone.size()) +
           " Ledger Masters Not in Use ?")) {
    return;
  }
  changed_ = true;
  change("Delete From Mast_Part Where PartId In (" + ids.sql() + ")");
  vsf.removeRowsIf([&](int row) { return gone.contains(vsf.cell(row, idColumn)); });
  SETROWSHIDDEN();
}

}  // namespace quillet
