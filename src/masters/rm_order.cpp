// The binding's order, kept by hand, and its import from the year before.
#include "masters/frmgrpRM.h"

namespace quillet {

// --- order --------------------------------------------------------------------------------------

void frmgrpRM::CMDSORTORDER_CLICK() {
  command("CMDSORTORDER_CLICK", [&] {
    if (state_ == State::sorting) {
      UPDATESORTNOS();
    } else if (!lock.refuses()) {
      setStateM(State::sorting);
      focus(vsfM);
    }
  });
}

void frmgrpRM::CMDUP_CLICK() { moveItem(-1); }

void frmgrpRM::CMDDOWN_CLICK() { moveItem(1); }

void frmgrpRM::moveItem(int step) {
  if (!itemSelected(vsfM)) return;
  const int to = vsfM.current() + step;
  if (to >= 1 && to <= vsfM.rows()) vsfM.moveRow(vsfM.current(), to);
}

void frmgrpRM::UPDATESORTNOS() {
  command("UPDATESORTNOS", [&] {
    if (!ask("Do you want to Update Sorting Order?")) return;
    std::vector<long> order;
    for (int row = 1; row <= vsfM.rows(); ++row) order.push_back(vsfM.rowId(row));
    binding_.setOrder(order);
    setStateM(State::browsing);
    LOADGRIDM(0);
    focus(vsfM);
  });
}

// --- the previous year --------------------------------------------------------------------------

void frmgrpRM::IMPORTFROMPREVYR() {
  command("IMPORTFROMPREVYR", [&] {
    const std::string previous = binding_.importable();
    if (previous.empty() || !ask("Do you want to Import from Previous Year?")) return;
    binding_.importFrom(previous);
    LOADLIST();
    LOADGRIDM(0);
  });
}

}  // namespace quillet
