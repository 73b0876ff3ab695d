#include "books/ledger_master.h"

#include "books/name_check.h"

namespace quillet {
namespace {

constexpr char ledgerOfId[] = "Select * From Mast_Part Where PartId=";

}  // namespace

std::vector<NamedId> LedgerMaster::ledgers(long id) const {
  const auto rows = host_.query(id == 0 ? "Select * From Mast_Part" : ledgerOfId + sqlNumber(id));
  const int partId = rows->column("PartId");
  const int name = rows->column("Particular");
  std::vector<NamedId> ledgers;
  ledgers.reserve(rows->RecordCount());
  for (; !rows->EOF_(); rows->MoveNext()) {
    ledgers.push_back({rows->integer(partId), rows->text(name)});
  }
  return ledgers;
}

bool LedgerMaster::has(long id) const {
  return !host_.query("Select PartId From Mast_Part Where PartId=" + sqlNumber(id))->EOF_();
}

std::optional<NamedId> LedgerMaster::taken(const std::string& name, long except,
                                           const std::vector<long>& alike) const {
  Sql select = "Select * From Mast_Part Where Particular=" + host_.quoted(name);
  if (except != 0) select += " and PartId<>" + sqlNumber(except);
  return takenName(host_, name, select, alike, {ledgerOfId, "PartId", "Particular"});
}

long LedgerMaster::insert(const std::string& name) { return host_.GetMax_MastPartId(name); }

void LedgerMaster::rename(long id, const std::string& name) {
  host_.ConQuery("Update Mast_Part Set Particular=" + host_.quoted(name) +
                 " Where PartId=" + sqlNumber(id));
}

void LedgerMaster::deleteUnused(long id) {
  host_.ConQuery("Delete from Mast_Part Where PartId=" + sqlNumber(id));
}

void LedgerMaster::deleteReplaced(long id) {
  host_.ConQuery("Delete From Mast_Part Where PartId=" + sqlNumber(id));
}

void LedgerMaster::deleteAll(const std::vector<long>& ids) {
  host_.ConQuery("Delete From Mast_Part Where PartId In (" + IdList(ids).sql() + ")");
}

}  // namespace quillet
