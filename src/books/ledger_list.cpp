#include "books/ledger_list.h"

#include <unordered_set>

#include "books/registry.h"
#include "data/sql.h"

namespace quillet {
namespace {

constexpr char selectNames[] = "Select Distinct Particular From Mast_Part";

}  // namespace

NameList namesIn(Recordset& rows) {
  NameList names;
  names.reserve(rows.RecordCount());
  for (; !rows.EOF_(); rows.MoveNext()) names.append(rows.text(0), 0);
  names.sort();
  return names;
}

NameList allLedgers(ServiceObject& host) { return namesIn(*host.query(selectNames)); }

NameList ledgersOf(ServiceObject& host, const std::string& client) {
  std::unordered_set<long> known;
  IdList ids;
  for (const std::string& table : Registry(host).tables(client)) {
    if (table.empty()) continue;
    const auto rows = host.query("Select Distinct PartId From " + sqlName(table) +
                                 " Where Code_No=" + host.quoted(client));
    known.reserve(known.size() + rows->RecordCount());
    for (; !rows->EOF_(); rows->MoveNext()) {
      if (known.insert(rows->integer(0)).second) ids.add(rows->integer(0));
    }
  }
  if (ids.empty()) return {};
  return namesIn(*host.query(selectNames + (" Where PartId In (" + ids.sql() + ")")));
}

}  // namespace quillet
