// Changes in words, as the list of changes, its printout and its workbook have them.
#pragma once

#include <string>
#include <vector>

#include "ports/ports.h"
#include "suite/history/changes.h"

namespace quillet::suite {

struct ChangeTexts {
  std::string when, person, station, command, form;
  std::string what;           // "Changed"
  std::string of;             // "Line", "Voucher 7 of 15/06/2008"
  std::string ledger, group;  // as they were called then
  std::string oldGroup;       // where the row came from another one
  std::string before, after;  // amounts with their sides, names
  std::string remark;         // narration, what was taken back, the reason

  // "BANKS (was CAPITAL)"
  std::string groups() const {
    return oldGroup.empty() ? group : group + " (was " + oldGroup + ")";
  }
};

ChangeTexts textsOf(const ServiceObject& host, Changes& changes, const Change& change);

// "1234.50 CR"; an amount without a side when it has none.
std::string balanceText(const ServiceObject& host, Money balance, bool withSide = true);

}  // namespace quillet::suite
