#include "suite/stations/dead_names.h"

#include <string>

#include "data/errors.h"
#include "suite/stations/station_turns.h"

namespace quillet::suite {
namespace {

constexpr Instant day = 24LL * 3600 * 1'000'000;

bool namesLines(const std::string& table) {
  return table.starts_with("tab_") || table.starts_with("jrnl_") || table.starts_with("trade_");
}

}  // namespace

// What was inserted has higher numbers than what stood there a day ago; no more is looked at.
void refuseDeadNames(Database& database, const ActLog& act) {
  for (const std::string& table : act.tables()) {
    if (!namesLines(table)) continue;
    const bool dead =
        !database
             .query("select 1 from `" + table + "` as s where s.row_from='" +
                    instantText(act.instant()) +
                    "' and s.row_id>(select coalesce((select row_id from `" + table +
                    "` where row_from<'" + instantText(act.instant() - day) +
                    "' order by row_id desc limit 1),0)) and (not exists(select 1 from Mast_Part "
                    "as p where p.PartId=s.PartId) or not exists(select 1 from Mast_AllGrp as g "
                    "where g.ALLID=s.AllId)) limit 1")
             ->EOF_();
    if (dead) {
      throw RunTimeError(changedMeanwhile,
                         "A ledger or a group of this entry was deleted or merged at another "
                         "station meanwhile. Please look at the lists, and enter it again.",
                         "Stations");
    }
  }
}

}  // namespace quillet::suite
