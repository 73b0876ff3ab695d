// The closing stock of a client's year: one line for each ledger and stock group, kept in the
// year's stock table. Lines are entered, altered and merged as in the trial-balance editor; stock
// has no side, so its amounts are never negative.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "controls/form.h"
#include "controls/grid.h"
#include "controls/simple.h"
#include "controls/text_box.h"
#include "ports/ports.h"

namespace quillet::suite {

class frmTrade : public Form, public StockForm {
 public:
  frmTrade(Desk& desk, Dialogs& dialogs);

  Grid vsf{*this, "vsf"};  // "Particulars", "Group", "Amount"; hidden "PartId", "AllId"
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

  Node layout() override;

 protected:
  void load() override;

 private:
  struct Pair {
    long partId = 0;
    long allId = 0;
    bool operator==(const Pair&) const = default;
  };

  void attachEntry();
  void attachList(TextBox& box, Grid& list);
  void formKey(Key& key);
  void fillGroups();
  void fillLedgers();
  void showLines();
  void alterLine();
  void deleteLine();
  void saveLine();
  void clearEntry();
  bool entering() const;
  std::optional<std::string> knownGroup() const;
  double merged(Pair line, double amount);
  Sql removal(Pair line) const;
  void change(const std::vector<Sql>& statements);
  RecordsetPtr query(const Sql& sql);
  Sql where(Pair line) const;
  Answer ask(const std::string& text, Buttons buttons, Icon icon);

  Dialogs& dialogs_;
  ServiceObject* host_ = nullptr;  // from LoadData on
  Sql client_;                     // as it stands between quotes
  Sql table_;
  std::optional<Pair> altered_;
};

// The component through which the module comes by the form.
class StockFormsOnDesk : public StockForms {
 public:
  StockFormsOnDesk(Desk& desk, Dialogs& dialogs) : form_(desk, dialogs) {}
  StockForm& ObjTrade() override { return form_; }

 private:
  frmTrade form_;
};

}  // namespace quillet::suite
