// What a person does at a station, of client A1 and its year 2008.
#pragma once

#include <functional>
#include <string>

#include "server/station.h"

namespace quillet::support {

// In one act: `prepare` types it, `finish` sends it.
struct Deed {
  std::string name;
  std::function<void(Station&)> prepare;
  std::function<void(Station&)> finish;
  // Whether what was typed stands in the form.
  std::function<bool(Station&)> stays;
  std::function<void(Station&)> leave;
  std::string stored;  // asks how often it is
};

Deed aLine();
Deed aVoucher();
Deed aYear();  // the next one

}  // namespace quillet::support
