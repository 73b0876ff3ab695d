// A trial balance as it stood at a moment, beside the one of today, with what differs marked.
// Nothing is changed here.
#pragma once

#include <optional>
#include <string>

#include "controls/basic_controls.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/mask_box.h"
#include "controls/text_box.h"
#include "host/context.h"
#include "suite/history/trial_balance_as_of.h"

namespace quillet::suite {

class frmasof : public Form {
 public:
  frmasof(Context& context, UnitOfWork& unit);

  Label lblsubject{*this, "lblsubject"};
  MaskBox mskdate{*this, "mskdate"};
  TextBox txttime{*this, "txttime"};  // "14:45:07", "14:45"; empty for the end of the day
  Button cmdshow{*this, "cmdshow", "Sho&w"};
  Button cmdearlier{*this, "cmdearlier", "&Earlier Act"};
  Button cmdlater{*this, "cmdlater", "&Later Act"};
  CheckBox chkdiffers{*this, "chkdiffers", "Only what di&ffers"};
  Grid vsf{*this, "vsf"};
  Label lblstate{*this, "lblstate"};
  TextBox txtthendr{*this, "txtthendr"};
  TextBox txtthencr{*this, "txtthencr"};
  TextBox txtnowdr{*this, "txtnowdr"};
  TextBox txtnowcr{*this, "txtnowcr"};
  Button cmdprint{*this, "cmdprint", "&Print..."};
  Button cmdclose{*this, "cmdclose", "&Back"};

  // As it stood at that instant; without one, at the end of the day before.
  void showYear(const YearOfClient& year, Instant at = 0);

  LayoutItem layout() override;
  void takenBack() override;
  std::string subject() const override;
  std::string fileSubject() const override;

 protected:
  void load() override;
  void unload(bool& cancel) override;

 private:
  void attachCommands();
  void formKey(Key& key);
  std::optional<Instant> typedMoment();
  // To the act before or after the moment that changed the lines.
  void step(bool later);
  void showMoment();
  void showBooks();
  void showRows();
  void empty();
  void print();

  Context& context_;
  UnitOfWork& unit_;
  YearOfClient year_;
  Instant at_ = 0;
  TrialBalanceAsOf books_;
};

}  // namespace quillet::suite
