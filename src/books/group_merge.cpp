#include "books/group_merge.h"

#include "books/group_mapping.h"
#include "books/merged_groups.h"
#include "books/posting.h"
#include "ports/busy.h"

namespace quillet {
namespace {

// One statement for each table number that there is.
void replaceInAllYears(ServiceObject& host, const Sql& ids, long target, TableNames& missing) {
  const Busy busy(host, "Merging Groups....");
  const long tables = host.GetTbCount();
  host.objProgress().Max(tables);
  for (long i = 1; i <= tables; ++i) {
    const std::string suffix = host.GETTBNAME(i);
    const std::string table = "tab_" + suffix;
    if (!suffix.empty()) {
      onTable(host, table, missing, [&] {
        host.ConQuery("Update " + sqlName(table) + " set ALLID=" + sqlNumber(target) +
                      " where ALLID in (" + ids + ")");
      });
    }
    host.objProgress().update_pg();
  }
}

}  // namespace

void mergeGroups(ServiceObject& host, UnpostedChanges& unposted, const std::vector<long>& ids,
                 long target, TableNames& missing) {
  postAllMissing(host, unposted);
  // First, so that no journal is left with a group of which nobody knows where it went.
  MergedGroups(host).keep(ids, target);
  const Sql list = IdList(ids).sql();
  replaceInAllYears(host, list, target, missing);
  // Before the groups: what fails here can be done again while they are there.
  removeMappings(host, ids);
  host.ConQuery("Delete from Mast_AllGrp where ALLID in (" + list + ")");
}

}  // namespace quillet
