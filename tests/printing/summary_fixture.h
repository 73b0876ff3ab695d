// Two years of one client with something in many groups.
#pragma once

#include "forms/editor_fixture.h"

namespace quillet::support {

class SummaryTest : public EditorTest {
 protected:
  // "OTHER DEPRECIATION" is no depreciation.
  SummaryTest() {
    group("DEPRECIATION", 29);
    group("OTHER DEPRECIATION", 29);
    group("CLOSING STOCK", 7);
    group("CREDITORS", 12);
    previous = addYear("C1", 2007, {{"Counter", "SALES", -50}, {"Cash", "BANKS", 50}});
    current = addYear("C1", 2008,
                      {{"Counter", "SALES", -1'234'567.89},
                       {"Returns", "SALES", 0.89},
                       {"Shop", "RENT", 1'500'000},
                       {"Cars", "DEPRECIATION", 1'000},
                       {"Goodwill", "OTHER DEPRECIATION", 10},
                       {"Cash", "BANKS", 200},
                       {"Owed", "CREDITORS", -400}});
    addYear("C2", 2008);
    exec("insert into " + current + " values(1,'C2',1," + std::to_string(group("SALES")) +
         ",99999,2)");
  }

  // The summary's row of that caption.
  static Texts figures(const frmcrtb& form, const std::string& caption) {
    const Rows rows = shown(form.vsfr);
    const auto at = std::ranges::find(rows, caption, [](const Texts& row) { return row[0]; });
    return at == rows.end() ? Texts(3) : *at;
  }
  static std::string stockOf(const std::string& table) { return "TRADE_" + table.substr(4); }

  std::string previous, current;
};

}  // namespace quillet::support
