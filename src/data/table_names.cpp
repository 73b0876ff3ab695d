#include "data/table_names.h"

#include "data/text.h"

namespace quillet {

std::string trialBalanceTable(std::string_view suffix) {
  return std::string(trialBalancePrefix) + upperCase(suffix);
}

std::string siblingTable(std::string_view trialBalanceTable, std::string_view prefix) {
  return replacedAll(upperCase(trialBalanceTable), trialBalancePrefix, prefix);
}

}  // namespace quillet
