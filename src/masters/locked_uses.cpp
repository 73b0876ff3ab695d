#include "masters/locked_uses.h"

#include "books/locked_years.h"
#include "host/year_lock.h"

namespace quillet {

bool mayReplaceLedgers(Context& context, const std::vector<long>& ids) {
  const Sql carries = "PartId in (" + IdList(ids).sql() + ")";
  return mayChangeLocked(
      context,
      lockedWith(*context.host, lockedYears(context), {"TAB_", "JRNL_", "TRADE_"}, carries),
      "The replacement");
}

bool mayMergeGroups(Context& context, const std::vector<long>& ids) {
  const Sql carries = "AllId in (" + IdList(ids).sql() + ")";
  return mayChangeLocked(
      context, lockedWith(*context.host, lockedYears(context), {"TAB_"}, carries), "The merge");
}

bool mayMoveGroup(Context& context, long id) {
  const Sql group = sqlNumber(id);
  return mayChangeLocked(
      context,
      lockedWith(*context.host, lockedYears(context), {"TAB_", "JRNL_", "TRADE_", "RMGRP_"},
                 "AllId=" + group, group + " in (OsGrpId,PurGrpId,SalGrpId,CsGrpId)"),
      "The move to another primary group");
}

}  // namespace quillet
