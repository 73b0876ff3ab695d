// The editor's ways to other forms: the journal, a new group while a line is entered, the
// raw-material binding, the statements.
#include "editor/frmcrtb.h"
#include "journal/frmjrnl.h"
#include "masters/frmgrpRM.h"
#include "masters/frmgrpmas.h"
#include "ports/busy.h"
#include "statements/frmstatements.h"
#include "yearend/opening_report.h"

namespace quillet {

using enum TwoYears::Year;

void frmcrtb::MNUJOURNAL_CLICK() {
  leaveEntry();
  if (!saver_.mayChangeLines()) return;
  const TwoYears& years = books_.years;
  const TwoYears::Year year = mnuyrs[previous].checked() ? previous : current;
  auto journal = std::make_unique<frmjrnl>(books_.context);
  journal->INITDATA(years.table(year), year == previous,
                    {years.client(), years.clientName(), years.keys(current).first});
  journal_ = std::move(journal);
  // Vouchers have been posted into the lines that stand here, some of them on new ledgers.
  journal_->showModal([this] {
    LOADPARTICULARS();
    showStored();
  });
}

void frmcrtb::MNUNEWGROUP_CLICK() {
  auto groups = std::make_unique<frmgrpmas>(books_.context);
  frmgrpmas& form = *groups;
  form.INITDATA(books_.years.client());
  master_ = std::move(groups);
  form.showModal([this, &form] {
    if (!form.groupsChanged()) return;
    LOADGROUPS();
    if (form.linesTouched()) {
      refreshShownLines();
    } else {
      reloadPage();
    }
    if (form.newGroup().empty()) return;
    txtgroup.setText(form.newGroup());
    entry_.hideLists();
  });
}

void frmcrtb::CMDGRPMANF_CLICK() {
  const TwoYears& years = books_.years;
  const TwoYears::Year year = mnuyrs[previous].checked() ? previous : current;
  const YearKeys keys = years.keys(year);
  auto binding = std::make_unique<frmgrpRM>(books_.context);
  binding->INITDATA(
      {years.client(), years.clientName(), years.table(year), keys.first, keys.second});
  master_ = std::move(binding);
  master_->showModal();
}

void frmcrtb::MNUOPENING_CLICK() {
  const TwoYears& years = books_.years;
  if (years.hasTable()) {
    reportOpening(books_.context, years.client(), years.keys(years.yearInView()));
  }
}

void frmcrtb::MNUSTATEMENTS_CLICK() {
  leaveEntry();
  if (!saver_.mayChangeLines()) return;
  const TwoYears& years = books_.years;
  const TwoYears::Year year = years.yearInView();
  auto statements = std::make_unique<frmstatements>(books_.context);
  statements->INITDATA(years.books(year), years.clientName(), years.keys(year));
  master_ = std::move(statements);
  master_->showModal();
}

void frmcrtb::mastersChanged() {
  logErrors("MASTERSCHANGED", [&] {
    leaveEntry();
    {
      const Busy busy(books_.host());
      LOADPARTICULARS();
      LOADGROUPS();
    }
    refreshShownLines();
  });
}

// Where no line is shown no name is stale, and loading an empty year would offer the import again.
void frmcrtb::refreshShownLines() {
  if (vsfm.rows() > 0 || !books_.years.linesRead()) {
    showStored();
  } else {
    reloadPage();
  }
}

}  // namespace quillet
