// The ledger master's replacements: particulars become another one in every client's every year.
#include "books/ledger_use.h"
#include "masters/frmtbledmas.h"
#include "masters/locked_uses.h"

namespace quillet {

void frmtbledmas::setLinkView(bool on) {
  rows_.setTarget(on ? vsf.currentId() : 0);
  nameTarget(on ? selectedName() : std::string());
  SETCOLWIDTH();
}

void frmtbledmas::nameTarget(const std::string& name) {
  const bool on = linking();
  targetName_ = name;
  lbllink.setCaption(on ? "Particulars selected below will be deleted & will be replaced with '" +
                              targetName_ + "'"
                        : "All the Linked");
  lbllink.setVisible(on);
}

void frmtbledmas::leaveLinkView() {
  const long target = rows_.target();
  setLinkView(false);
  SETROWSHIDDEN();
  makeShownCurrent(target);
}

void frmtbledmas::CMDLINK_CLICK() {
  if (linking()) {
    LINKPARTICULARS();
  } else if (rowSelected(vsf, "Please Select a Paritculars.")) {
    lblstatus.setCaption("");
    txtfind.setText("");
    setLinkView(true);
    SETBUTTON(false);
    SETROWSHIDDEN();
    focus(vsf);
  }
}

std::vector<long> frmtbledmas::GETSRNOS() {
  std::vector<long> ids;
  logErrors("GETSRNOS", [&] { ids = rows_.ticked(); });
  return ids;
}

// Every name: what cannot be undone can be read in full, those that the search hides among it.
std::string frmtbledmas::linkQuestion() const {
  std::string names;
  for (const std::string& name : rows_.tickedNames()) names += "'" + name + "'\r\n";
  return "Do you really want to Replace ?\r\n\r\n" + names + "with '" + targetName_ +
         "'\r\n\r\nClick 'Yes' only if you are sure about use of this facility.\r\n\r\nConfirm ?";
}

// Nothing may go into a ledger that somebody has deleted since it was chosen.
bool frmtbledmas::targetStands() {
  if (master_.has(rows_.target())) return true;
  tell("'" + targetName_ + "' is there no more: somebody has deleted it.");
  reread();
  return false;
}

void frmtbledmas::LINKPARTICULARS() {
  const bool done = command("LINKPARTICULARS", [&] {
    const std::vector<long> ids = GETSRNOS();
    if (ids.empty()) {
      tell("Please select a Partiuclar.");
      return;
    }
    if (!ask(linkQuestion()) || !targetStands() || !mayReplaceLedgers(context_, ids)) return;
    changed_ = true;
    TableNames missing;
    replaceLedgers(*context_.host, context_.unposted, ids, rows_.target(), missing);
    tellMissing(missing);
    master_.deleteAll(ids);
    flush();
    rows_.remove({ids.begin(), ids.end()});
    rows_.mark(rows_.target(), true);
    endEntry();
  });
  if (!done) reviewUse();
}

void frmtbledmas::REPLACEANDDELETE(long oldId, long newId) {
  const bool done = command("REPLACEANDDELETE", [&] {
    changed_ = true;
    TableNames missing;
    replaceLedger(*context_.host, context_.unposted, oldId, newId, missing);
    tellMissing(missing);
    flush();
    master_.deleteReplaced(oldId);
    flush();
    rows_.remove({oldId});
    rows_.mark(newId, true);
    SETROWSHIDDEN();
    makeShownCurrent(newId);
  });
  if (!done) reviewUse();
}

}  // namespace quillet
