#include "suite/stations/dead_names.h"

#include <string>

#include "books/clients.h"
#include "data/errors.h"
#include "suite/client_register.h"
#include "suite/history/inserted_rows.h"
#include "suite/history/written_table.h"
#include "suite/stations/station_turns.h"

namespace quillet::suite {
namespace {

// Of a year: what its rows name.
bool namesLedgers(const std::string& table) {
  return !yearSuffix(table).empty() &&
         (table.starts_with("tab_") || table.starts_with("jrnl_") || table.starts_with("trade_"));
}

// That the row `s` names what is not there, but was within a day before the act: what was gone
// before that is named for long.
std::string goneLately(const char* column, const std::string& master, const char* id, Instant at) {
  const std::string named = std::string(" as n where n.") + id + "=s." + column;
  return "(not exists(select 1 from " + master + named + ") and exists(select 1 from " + master +
         " for system_time all" + named + " and n.row_till>'" + instantText(at - oneDay) + "'))";
}

// The heads and groups of a raw-material binding.
bool bindsDeadNames(Database& database, const std::string& table, Instant at) {
  std::string dead = goneLately("GrpSr", "RawMatGrpM", "GrpId", at);
  for (const char* group : {"OsGrpId", "PurGrpId", "CsGrpId"}) {
    dead += " or " + goneLately(group, "Mast_AllGrp", "ALLID", at);
  }
  return !database
              .query("select 1 from `" + table + "` as s where s.row_from='" + instantText(at) +
                     "' and (" + dead + ") limit 1")
              ->EOF_();
}

// Rows that came with the act, and rows that it moved to other ledgers and groups.
bool entersDeadNames(Database& database, const std::string& table, Instant at) {
  const std::string instant = '\'' + instantText(at) + '\'';
  return !database
              .query("(select 1 from `" + table + "` as s where " + insertedAt(table, at, true) +
                     " and (not exists(select 1 from Mast_Part as p where p.PartId=s.PartId) or"
                     " not exists(select 1 from Mast_AllGrp as g where g.ALLID=s.AllId) or"
                     " not exists(select 1 from master as m where m.code_no=s.code_no and"
                     " m.tbl_nm='TAB_" +
                     yearSuffix(table) + "')) limit 1) union (select 1 from `" + table +
                     "` for system_time all as e join `" + table +
                     "` as s on s.row_id=e.row_id where e.row_till=" + instant +
                     " and s.row_from=" + instant + " and (" +
                     goneLately("PartId", "Mast_Part", "PartId", at) + " or " +
                     goneLately("AllId", "Mast_AllGrp", "ALLID", at) + ") limit 1)")
              ->EOF_();
}

// A year whose client was deleted, or given another code, while it was made.
void refuseDeadClient(UnitOfWork& unit, Database& database, const ActLog& act) {
  if (!act.tables().contains("master")) return;
  const RecordsetPtr dead = database.query("select m.code_no from master as m where m.row_from='" +
                                           instantText(act.instant()) +
                                           "' and not exists(select 1 from Main_Info1 as c where "
                                           "c.code_no=m.code_no) limit 1");
  if (dead->EOF_()) return;
  const std::string code = dead->text(0);
  throw RunTimeError(changedMeanwhile,
                     goneClientText(code, codeSince(unit, code)) + " The year was not made.",
                     "Stations");
}

}  // namespace

void refuseDeadNames(UnitOfWork& unit, Database& database, const ActLog& act) {
  refuseDeadClient(unit, database, act);
  for (const std::string& table : act.tables()) {
    if (table.starts_with("rmgrp_") && bindsDeadNames(database, table, act.instant())) {
      throw RunTimeError(changedMeanwhile,
                         "The heading or a group of this item was deleted or merged at another "
                         "station meanwhile. Please look at the lists, and bind it again.",
                         "Stations");
    }
    if (namesLedgers(table) && entersDeadNames(database, table, act.instant())) {
      throw RunTimeError(changedMeanwhile,
                         "The year, a ledger or a group of this entry was deleted or merged at "
                         "another station meanwhile. Please look at the lists, and enter it again.",
                         "Stations");
    }
  }
}

}  // namespace quillet::suite
