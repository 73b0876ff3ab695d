// The editor's journal command.
#include "editor/frmcrtb.h"
#include "journal/frmjrnl.h"

namespace quillet {

void frmcrtb::MNUJOURNAL_CLICK() {
  trap("MNUJOURNAL_CLICK", [&] {
    leaveEntry();
    if (!nothingTakenOut()) return;
    const Year year = mnuyrs[previous].checked() ? previous : current;
    auto journal = std::make_unique<frmjrnl>(context_);
    journal->INITDATA(tables_[year], year == previous, {namedCode_, clientName_, firstDate_});
    journal_ = std::move(journal);
    // Vouchers have been posted into the lines that stand here, some of them on new ledgers.
    journal_->showModal([this] {
      LOADPARTICULARS();
      showStored();
    });
  });
}

}  // namespace quillet
