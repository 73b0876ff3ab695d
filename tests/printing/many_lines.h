// As many lines as a printout or an export may meet.
#pragma once

#include "forms/editor_fixture.h"
#include "suite/bulk_insert.h"

namespace quillet::support {

class ManyLinesTest : public EditorTest {
 protected:
  // Lines of the second client, of odd amounts; the first ledgers have these names.
  void fill(const std::string& table, int lines, const Texts& names = {}) {
    suite::BulkInsert ledgers(practice.database(), "Mast_Part(PartId,Particular)");
    suite::BulkInsert rows(practice.database(), table + "(srno,code_no,partid,allid,amt,nid)");
    const long banks = group("BANKS");
    for (int i = 1; i <= lines; ++i) {
      const auto index = static_cast<std::size_t>(i - 1);
      ledgers.row(50'000 + i, index < names.size() ? names[index] : "Ledger " + std::to_string(i));
      const std::string amount =
          std::to_string(i * 7919 % 1'000'003) + '.' + std::to_string(10 + i % 90);
      rows.row(i, "C2", 50'000 + i, banks, suite::BulkInsert::Number{amount}, i % 3 == 0 ? 2 : 1);
    }
    ledgers.send();
    rows.send();
    host().executedElsewhere("insert into Mast_Part");
  }
};

}  // namespace quillet::support
