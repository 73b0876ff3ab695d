// The home form's commands for the end of a year: bringing the chosen year forward, and whether its
// opening agrees with the closing of the year before.
#pragma once

#include <optional>

#include "books/registry.h"
#include "host/context.h"
#include "yearend/frmbringfwd.h"

namespace quillet {

class third;

class YearEndCommands {
 public:
  YearEndCommands(third& form, Context& context);

  void MNUBRINGFWD_CLICK();
  void MNUOPENING_CLICK();

 private:
  std::optional<RegisteredYear> chosenYear();
  void showBrought();

  third& form_;
  Context& context_;
  frmbringfwd review_;
};

}  // namespace quillet
