// A client of the register: a new one, or one that is altered.
//
// What was typed stays until it is stored or a person gives it up, whatever fails.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "controls/basic_controls.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/lookup_list.h"
#include "controls/mask_box.h"
#include "controls/text_box.h"
#include "ports/ports.h"
#include "suite/client_register.h"

namespace quillet::suite {

class frmClient : public Form {
 public:
  // How many trial-balance tables there are is asked when it matters.
  frmClient(OpenForms& openForms, UnitOfWork& unit, Dialogs& dialogs, Clock& clock,
            std::function<long()> tableCount);

  TextBox txtcode{*this, "txtcode"};
  OptionButton optfirm{*this, "optkind", "Firm &or company", 0};
  OptionButton optperson{*this, "optkind", "&Person", 1};
  Frame famfirm{*this, "famfirm"};
  TextBox txtname{*this, "txtname"};
  Frame famperson{*this, "famperson"};
  TextBox txtfirst{*this, "txtfirst"};
  TextBox txtmiddle{*this, "txtmiddle"};
  TextBox txtlast{*this, "txtlast"};
  TextBox txtstatus{*this, "txtstatus"};
  Grid vsfstatus{*this, "vsfstatus"};
  MaskBox mskborn{*this, "mskborn"};
  TextBox txtfather{*this, "txtfather"};
  TextBox txtcompany{*this, "txtcompany"};
  TextBox txtaddress{*this, "txtaddress"};
  TextBox txtgroupcode{*this, "txtgroupcode"};
  Grid vsfgroup{*this, "vsfgroup"};
  TextBox txtgroupname{*this, "txtgroupname"};
  CheckBox chkpassword{*this, "chkpassword", "Opened with a pass&word"};
  TextBox txtpassword{*this, "txtpassword"};
  TextBox txtagain{*this, "txtagain"};
  Label lblhint{*this, "lblhint"};
  Button cmdsave{*this, "cmdsave", "Sa&ve"};
  Button cmdcancel{*this, "cmdcancel", "Cancel"};

  // Shows a new client, or the one with that code; false when there is none any more. `saved` runs
  // with its code once it is stored and the form is closed.
  using Saved = std::function<void(const std::string& code)>;
  void add(Saved saved);
  bool alter(const std::string& code, Saved saved);

  LayoutItem layout() override;
  void takenBack() override;

 protected:
  void load() override;

 private:
  // The texts as they stand in the fields.
  struct Typed {
    Client client;
    bool asksPassword = false;
    std::string password, again;
    bool operator==(const Typed&) const = default;
  };

  void attach();
  static void attachList(LookupList& list, TextBox& box);
  void show(const Client& client, Saved saved);
  void fillLists();
  void showKind();
  void showPasswordFields();
  void completeGroup();
  void formKey(Key& key);
  void giveUp();
  TextBox& nameBox() { return optperson.checked() ? txtfirst : txtname; }
  Typed typed() const;
  void save();
  bool bornIsRight();
  bool passwordIsRight();
  void store(const Client& client);
  bool refuse(Control& field, const std::string& text);
  Control& boxOf(ClientRefused::Field field);

  UnitOfWork& unit_;
  Dialogs& dialogs_;
  Clock& clock_;
  std::function<long()> tableCount_;
  LookupList statuses_{vsfstatus};
  LookupList groups_{vsfgroup};
  Saved saved_;
  std::optional<std::string> altered_;  // the code of the client that is altered
  bool hadPassword_ = false;
  Client shown_;     // as it was when the form was opened
  Typed untouched_;  // the fields then
};

}  // namespace quillet::suite
