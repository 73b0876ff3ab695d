// The editor's ways to the masters: a new group while a line is entered, the raw-material binding.
#include "data/year.h"
#include "editor/frmcrtb.h"
#include "masters/frmgrpRM.h"
#include "masters/frmgrpmas.h"
#include "ports/busy.h"

namespace quillet {

void frmcrtb::MNUNEWGROUP_CLICK() {
  trap("MNUNEWGROUP_CLICK", [&] {
    auto groups = std::make_unique<frmgrpmas>(context_);
    frmgrpmas& form = *groups;
    master_ = std::move(groups);
    form.showModal([this, &form] {
      if (!form.groupsChanged()) return;
      LOADGROUPS();
      if (form.linesTouched()) {
        refreshShownLines();
      } else {
        reloadPage();
      }
      if (!form.newGroup().empty()) txtgroup.setText(form.newGroup());
    });
  });
}

void frmcrtb::mastersChanged() {
  trap("MASTERSCHANGED", [&] {
    leaveEntry();
    {
      const Busy busy(*context_.host);
      LOADPARTICULARS();
      LOADGROUPS();
    }
    refreshShownLines();
  });
}

// Where no line is shown no name is stale, and loading an empty year would offer the import again.
void frmcrtb::refreshShownLines() {
  if (vsfm.rows() > 0 || !linesRead_) {
    showStored();
  } else {
    reloadPage();
  }
}

void frmcrtb::CMDGRPMANF_CLICK() {
  trap("CMDGRPMANF_CLICK", [&] {
    const bool before = mnuyrs[previous].checked();
    const int years = before ? 1 : 0;
    auto binding = std::make_unique<frmgrpRM>(context_);
    binding->INITDATA({namedCode_, clientName_, tables_[before ? previous : current],
                       firstDateKey(yearOf(firstDate_) - years),
                       secondDateKey(yearOf(secondDate_) - years)});
    master_ = std::move(binding);
    master_->showModal();
  });
}

}  // namespace quillet
