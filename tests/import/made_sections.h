// What stands in a made book before it is written: groups with their ledgers, in balance.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "import/chance.h"

namespace quillet::support {

struct MadeLedger {
  std::string name;
  std::int64_t balance = 0;  // in paise, debit positive
};
struct MadeSection {
  std::string group;
  std::vector<MadeLedger> ledgers;
};

// Few different amounts, so that sums and equal amounts come by chance; whole rupees; any amount.
enum class AmountStyle { few, rupees, any };

std::vector<MadeSection> madeSections(Chance& chance, AmountStyle style, int ledgers);

}  // namespace quillet::support
