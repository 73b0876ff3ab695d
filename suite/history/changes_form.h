// What was changed in a client's year, or in the names and groups of all clients: by whom, when and
// by which command. Nothing is changed here.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "controls/basic_controls.h"
#include "controls/choice.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/lookup_list.h"
#include "controls/mask_box.h"
#include "controls/text_box.h"
#include "host/context.h"
#include "suite/history/changes.h"

namespace quillet::suite {

class frmchanges : public Form {
 public:
  // `showAsOf` shows a year as it stood at an instant.
  using ShowAsOf = std::function<void(const YearOfClient& year, Instant at)>;
  frmchanges(Context& context, UnitOfWork& unit, ShowAsOf showAsOf);

  Label lblsubject{*this, "lblsubject"};
  ComboBox cboyear{*this, "cboyear"};  // the client's years, then the masters
  MaskBox mskfrom{*this, "mskfrom"};
  MaskBox msktill{*this, "msktill"};
  TextBox txtledger{*this, "txtledger"};
  Grid vsfp{*this, "vsfp"};
  Button cmdshow{*this, "cmdshow", "Sho&w"};
  Grid vsf{*this, "vsf"};
  Label lblact{*this, "lblact"};      // the act of the current row
  Label lblcount{*this, "lblcount"};  // how many changes are shown
  Button cmdasof{*this, "cmdasof", "As It &Stood..."};
  Button cmdprint{*this, "cmdprint", "&Print..."};
  Button cmdexport{*this, "cmdexport", "E&xport..."};
  Button cmdclose{*this, "cmdclose", "&Back"};

  // The changes of the last month; without a year, of the client's last one.
  void showYear(const YearOfClient& year);

  LayoutItem layout() override;
  std::string subject() const override;
  std::string fileSubject() const override;
  void takenBack() override;

  static constexpr const char* allClients = "Names and groups of all clients";

 protected:
  void load() override;
  void unload(bool& cancel) override;

 private:
  void attach();
  void formKey(Key& key);
  void fillYears();
  void fillLedgers();
  bool showsMasters() const { return cboyear.chosen() > static_cast<int>(years_.size()); }
  YearOfClient yearInView() const;
  std::optional<Period> period();
  std::optional<long> ledgerAsked();
  void showSubject();
  void showChanges();
  void tellCount(const Period& period);
  std::string whyEmpty(const Period& period);
  void tellAct();
  void showAsItStood();
  // Of very many changes it is asked first.
  bool agreed(const char* toWhat);

  Context& context_;
  UnitOfWork& unit_;
  ShowAsOf showAsOf_;
  LookupList ledgers_{vsfp};
  YearOfClient opened_;
  std::vector<YearEver> years_;  // in the order of the box
  std::optional<Changes> changes_;
};

}  // namespace quillet::suite
