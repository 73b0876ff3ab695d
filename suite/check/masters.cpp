#include "suite/check/masters.h"

#include "data/text.h"

namespace quillet::suite::check {
namespace {

std::map<long, std::string> namesIn(Database& database, const std::string& select) {
  std::map<long, std::string> names;
  const RecordsetPtr rows = database.query(select);
  for (; !rows->EOF_(); rows->MoveNext()) {
    if (rows->field(0)) names.try_emplace(rows->integer(0), rows->text(1));
  }
  return names;
}

}  // namespace

Masters::Masters(Database& database, ServiceObject& host)
    : ledgers_(namesIn(database, "select PartId,Particular from Mast_Part")),
      groups_(namesIn(database, "select ALLID,ALLGRP from Mast_AllGrp")),
      heads_(namesIn(database, "select GrpId,GrpHead from RawMatGrpM")),
      merged_(host) {}

std::optional<long> Masters::mergedInto(Id id) const {
  if (!id || hasGroup(id)) return std::nullopt;
  const long now = merged_.successor(*id);
  return now != *id && hasGroup(now) ? std::optional(now) : std::nullopt;
}

std::string Masters::nameIn(const Names& names, Id id, const std::string& kind) {
  if (!id) return "no " + kind;
  const auto found = names.find(*id);
  const bool named = found != names.end() && !trimmed(found->second).empty();
  return named ? found->second : kind + ' ' + std::to_string(*id);
}

}  // namespace quillet::suite::check
