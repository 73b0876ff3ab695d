// The ledger master's knowledge of use: which particulars any year holds, and whose years they are.
#include "books/ledger_use.h"
#include "masters/frmtbledmas.h"

namespace quillet {

// --- marks --------------------------------------------------------------------------------------

void frmtbledmas::FILLINUSE(long partId) {
  const bool done = attempt("FILLINUSE", [&] {
    if (partId == 0) {
      fillAllInUse();
      return;
    }
    TableNames missing;
    const bool used = ledgerInUse(*context_.host, partId, missing);
    tellMissing(missing);
    rows_.mark(partId, used);
  });
  if (!done) status("What is in use could not be searched to its end; the error log says why.");
  showCount();
}

void frmtbledmas::reviewUse() {
  FILLINUSE(0);
  SETROWSHIDDEN();
}

void frmtbledmas::fillAllInUse() {
  LedgerRows::Ids used;
  TableNames missing;
  bool complete = false;
  try {
    complete = findLedgersInUse(*context_.host, missing, [&](long id) { used.insert(id); });
  } catch (const std::exception&) {
    rows_.markFound(used, false);  // what was found before a table failed is in use all the same
    throw;
  }
  tellMissing(missing);
  rows_.markFound(used, complete);
  if (!complete) status("The search for what is in use was stopped.");
}

// --- the list of use ----------------------------------------------------------------------------

bool frmtbledmas::VIEWLISTOFUSE(const std::vector<long>& ids, bool show) {
  vsfC.clearRows();
  vsfC.clearSort();
  // Half a list would deceive: it is shown when the search has come to its end.
  return attempt("VIEWLISTOFUSE", [&] {
    TableNames missing;
    for (const LedgerUse& use : usesOf(*context_.host, ids, missing)) {
      vsfC.addRow({use.client, use.period, use.kind});
    }
    tellMissing(missing);
    if (!show) return;
    showPage(famC);
    focus(vsfC);
  });
}

std::string frmtbledmas::listHeading() const {
  return "List of Clients/F.Y. using Particulars \"" + selectedName() + "\"";
}

void frmtbledmas::CMDVIEW_CLICK() {
  command("CMDVIEW_CLICK", [&] {
    if (!particularSelected()) return;
    lblheadC.setCaption(listHeading());
    if (!VIEWLISTOFUSE({vsf.currentId()}, true))
      status("The search failed; the error log says why.");
  });
}

void frmtbledmas::CMDBACKC_CLICK() {
  showPage(famMain);
  focus(vsf);
}

}  // namespace quillet
