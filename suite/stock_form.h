// The closing stock of a client's year: one line for each ledger and stock group, kept in the
// year's stock table. Lines are entered, altered and merged as in the trial-balance editor; stock
// has no side, so its amounts are never negative.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "books/closing_stock.h"
#include "books/registry.h"
#include "controls/basic_controls.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/lookup_list.h"
#include "controls/text_box.h"
#include "host/loss_note.h"
#include "host/year_hold.h"
#include "ports/ports.h"
#include "ports/year_locks.h"

namespace quillet::suite {

class frmTrade : public Form, public StockForm {
 public:
  // Without locks no year is locked. `notice` tells by a line that stays until it is closed.
  frmTrade(
      OpenForms& openForms, Dialogs& dialogs, const Clock& clock, YearLocks* locks = nullptr,
      LossNote::Tell notice = [](const std::string&) {});

  Label lblsubject{*this, "lblsubject"};
  Label lbllock{*this, "lbllock"};  // why the year takes no changes
  Grid vsf{*this, "vsf"};           // "Particulars", "Group", "Amount"
  TextBox txtpart{*this, "txtpart"};
  TextBox txtgroup{*this, "txtgroup"};
  TextBox txtamount{*this, "txtamount"};
  Grid vsfp{*this, "vsfp"};
  Grid vsfg{*this, "vsfg"};
  Label lblhint{*this, "lblhint"};
  TextBox txttotal{*this, "txttotal"};
  Button cmddelete{*this, "cmddelete", "&Delete"};
  Button cmdclose{*this, "cmdclose", "&Back"};

  void LoadData(ServiceObject& host, const std::string& client, const std::string& table) override;
  void Show(int modal, std::function<void()> closed) override;

  LayoutItem layout() override;
  void takenBack() override;
  void booksMoved(bool masters) override;

 protected:
  void load() override;
  void unload(bool&) override { hold_.leave(); }

 private:
  void attachEntry();
  void formKey(Key& key);
  void showSubject();
  void showLock();
  // True, and a person was told, when the year is locked by now.
  bool refusesChange();
  void showLines();
  void alterLine();
  void deleteLine();
  void saveLine();
  // The group typed; the beginning of its name stands for the name. Null when there is none.
  const NameList::Entry* typedGroup() const;
  void clearEntry();
  void restoreEntry();
  void followLedger();
  void leaveMovedLine();
  // The entry as its fields show it, "Steel, STOCK, 150.00".
  std::string entry() const;
  bool entering() const;
  void change(const std::function<void()>& statements);
  Answer ask(const std::string& text, Buttons buttons = Buttons::OK, Icon icon = Icon::information);

  Dialogs& dialogs_;
  const Clock& clock_;
  YearLocks* locks_;
  YearHold hold_;
  LossNote loss_;
  LossNote::Tell notice_;
  std::optional<YearLock> lock_;  // as it was read last
  LookupList ledgers_{vsfp};
  LookupList groups_{vsfg};
  ServiceObject* host_ = nullptr;  // from LoadData on
  ClientTable books_;
  YearKeys keys_;        // both "" for a year that the registry does not have
  std::string subject_;  // client and year
  std::optional<ClosingStock> stock_;
  std::vector<ClosingStock::Line> lines_;  // a row's id is the position of its line, from 1
  std::optional<LedgerGroup> altered_;
  double alteredAmount_ = 0;  // as it was when it was chosen
  std::string alteredName_;
  // The entry that was saved last, and the act that saved it.
  struct Save {
    unsigned long act = 0;
    std::string ledger, group, amount;
    std::optional<LedgerGroup> altered;
    bool listed = false;  // the ledger, before the save
  };
  Save lastSave_;
  int changedRow_ = 0;  // the current one when the lines were changed last
};

// The component through which the module comes by the form.
class StockComponent : public StockForms {
 public:
  StockComponent(OpenForms& openForms, Dialogs& dialogs, const Clock& clock, YearLocks* locks,
                 LossNote::Tell notice)
      : form_(openForms, dialogs, clock, locks, std::move(notice)) {}
  StockForm& ObjTrade() override { return form_; }

 private:
  frmTrade form_;
};

}  // namespace quillet::suite
