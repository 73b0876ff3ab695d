// Balance sheet, statement of profit and loss and the heads of the income-tax return of a client's
// year, last year's amounts beside them, drawn from the mapping of the account groups. Below the
// statement stands the schedule of the current head: its groups and ledgers.
//
// The opener hands the year over with INITDATA before it shows the form.
#pragma once

#include <array>
#include <string>

#include "books/two_years.h"
#include "controls/basic_controls.h"
#include "controls/control_array.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "statements/statement_output.h"

namespace quillet {

class frmstatements : public Form {
 public:
  explicit frmstatements(Context& context);

  // Whether there are heads to draw them from.
  static bool offered(Context& context) { return context.environment.statutoryHeads() != nullptr; }

  void INITDATA(const ClientTable& books, const std::string& clientName, const YearKeys& year);

  LayoutItem layout() override;
  std::string subject() const override;
  std::string fileSubject() const override;
  void takenBack() override;
  void booksMoved(bool) override { takenBack(); }

  MenuEntry mnustatement{*this, "mnustatement", "&Statement"};
  MenuEntry mnurefresh{*this, "mnurefresh", "&Refresh", &mnustatement, "F5"};
  MenuEntry mnuPreview{*this, "mnuPreview", "&Print...", &mnustatement, "Ctrl+P"};
  MenuEntry mnuexport{*this, "mnuexport", "&Export to Excel...", &mnustatement, "Ctrl+E"};
  MenuEntry mnuexit{*this, "mnuexit", "&Back", &mnustatement, "Ctrl+W"};

  ControlArray<OptionButton> optpage{
      *this, "optpage", {"&Balance Sheet", "Profit and &Loss", "&Income Tax"}};
  Grid vsfh{*this, "vsfh"};  // the heads
  Label lblschedule{*this, "lblschedule"};
  Grid vsfl{*this, "vsfl"};  // the groups and ledgers of one
  Label lblagrees{*this, "lblagrees"};
  Label lblstatus{*this, "lblstatus"};
  Button cmdprint{*this, "cmdprint", "&Print"};
  Button cmdexport{*this, "cmdexport", "E&xport"};
  Button cmdback{*this, "cmdback", "Bac&k"};

  void FORM_LOAD();
  void FORM_KEYPRESS(Key& key);
  void LOADSTATEMENTS();
  void OPTPAGE_CLICK();
  void LOADSCHEDULE();
  void CMDPRINT_CLICK();
  void CMDEXPORT_CLICK();

 protected:
  void load() override { FORM_LOAD(); }

 private:
  void empty();
  void focusList();
  void showPage();
  void showRows(Grid& grid, const std::vector<StatementRow>& rows);
  StatementKind kind() const;
  const StatementPage& page() const { return pages_[static_cast<std::size_t>(kind())]; }

  Context& context_;
  TwoYears years_;
  ClientTable books_;
  std::string clientName_;
  YearKeys year_;
  std::array<StatementPage, 3> pages_;  // by StatementKind
};

}  // namespace quillet
