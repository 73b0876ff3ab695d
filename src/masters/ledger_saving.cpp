// The ledger master's changes of single particulars: adding, renaming, deleting.
#include "data/names.h"
#include "host/meant_name.h"
#include "masters/frmtbledmas.h"
#include "masters/locked_uses.h"

namespace quillet {

void frmtbledmas::CMDUPDATE_CLICK() {
  command("CMDUPDATE_CLICK", [&] {
    if (linking()) {
      LINKPARTICULARS();
      return;
    }
    if (!asSeen()) return;
    const std::string name = cleanedName(VTxt1.text());
    if (name.empty()) {
      tell("Please Specify 'Particulars'.");
      focus(VTxt1);
      return;
    }
    const long own = adding_ ? 0 : vsf.currentId();
    const auto existing = master_.taken(name, own, alike(vsf, LedgerRows::nameColumn, name, own));
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
    id = master_.insert(name);
    if (id == 0) {
      tell("Failed to Create Master [" + name + "].");
      focus(VTxt1);
      return;
    }
    addedId_ = id;
  } else {
    id = vsf.currentId();
    master_.rename(id, name);
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
  const long oldId = vsf.currentId();
  const std::string oldName = selectedName();
  if (!VIEWLISTOFUSE({oldId}, false)) {
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
           existing.name + "'.\r\n\r\nConfirm ?") ||
      !mayReplaceLedgers(context_, {oldId})) {
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

bool frmtbledmas::mayDelete(const std::vector<long>& ids, const std::string& refusal) {
  if (!VIEWLISTOFUSE(ids, false)) {
    status(unsearched);
    return false;
  }
  if (vsfC.rows() == 0) return true;
  // The marks told otherwise, or are old.
  if (Option1[notInUse].checked()) {
    reviewUse();
  } else {
    rows_.mark(vsf.currentId(), true);
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
  const long id = vsf.currentId();
  lblheadC.setCaption(listHeading());
  if (!mayDelete({id}, "Particulars already in use. You can not delete this Particulars.") ||
      !ask("Do you want to delele the Particulars [" + selectedName() + "] ?",
           "Delete Confirmation")) {
    return;
  }
  changed_ = true;
  master_.deleteUnused(id);
  vsf.setCurrent(rows_.neighbour());
  rows_.remove({id});
  SETROWSHIDDEN();
  flush();
}

void frmtbledmas::deleteUnused() {
  const std::vector<long> ids = rows_.shown();
  if (ids.empty()) {
    tell("Please select a Particulars.");
    return;
  }
  if (!rows_.marksComplete()) {
    // Most of what is listed may be in use.
    if (ask("The search for what is in use has not come to its end, so nothing is deleted.\r\n\r\n"
            "Do you want to search again?")) {
      reviewUse();
    }
    return;
  }
  lblheadC.setCaption("List of Clients/F.Y. using Particulars");
  if (!mayDelete(ids, "Particulars already in use. You can not delete these Particulars.") ||
      !ask("Do you really want to Delete " + std::to_string(ids.size()) +
           " Ledger Masters Not in Use ?")) {
    return;
  }
  changed_ = true;
  master_.deleteAll(ids);
  flush();
  rows_.remove({ids.begin(), ids.end()});
  SETROWSHIDDEN();
}

}  // namespace quillet
