#include "suite/history/names_as_of.h"

#include <algorithm>

#include "suite/history/version_query.h"

namespace quillet::suite {

const std::string& NamesAsOf::ledger(long id, Instant at) {
  return find(ledgers_, "PartId,Particular,%f from Mast_Part", id, at);
}

const std::string& NamesAsOf::group(long id, Instant at) {
  return find(groups_, "AllId,AllGrp,%f from Mast_AllGrp", id, at);
}

const std::string& NamesAsOf::primaryGroup(long id, Instant at) {
  return find(primaryGroups_, "GId,Gunder,%f from Mast_Gunder", id, at);
}

const std::string& NamesAsOf::find(Names& names, const char* select, long id, Instant at) {
  static const std::string none;
  if (!names.read) {
    const RecordsetPtr rows = unit_->query(versionsOf(select) + " order by row_from");
    for (; !rows->EOF_(); rows->MoveNext()) {
      names.versions[rows->integer(0)].push_back({rows->integer(2), rows->text(1)});
    }
    names.read = true;
  }
  const auto found = names.versions.find(id);
  if (found == names.versions.end()) return none;
  // A name that is younger than the instant is better than none.
  const auto& versions = found->second;
  const auto next = std::ranges::upper_bound(versions, at, {}, &Version::from);
  return next == versions.begin() ? versions.front().name : std::prev(next)->name;
}

}  // namespace quillet::suite
