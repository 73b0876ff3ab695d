// The home form's commands that lock the chosen year and unlock it. Where the host locks no years
// they are not there.
#pragma once

#include "home/frmlock.h"
#include "host/context.h"

namespace quillet {

class third;

class YearLockCommands {
 public:
  YearLockCommands(third& form, Context& context);

  void MNULOCKYEAR_CLICK();
  void MNUUNLOCKYEAR_CLICK();

 private:
  void open(bool unlocks);
  void showDone(const YearKeys& year);

  third& form_;
  Context& context_;
  frmlock lock_;
};

}  // namespace quillet
