#include "suite/starter_data.h"

#include <string>

#include "suite/bulk_insert.h"
#include "suite/database.h"

namespace quillet::suite {
namespace {

bool isEmpty(Database& database, const std::string& table) {
  return database.query("select 1 from " + table + " limit 1")->EOF_();
}

}  // namespace

void installStarterData(Database& database) {
  if (isEmpty(database, "Mast_Gunder")) {
    BulkInsert insert(database, "Mast_Gunder(GId,Gunder,ggid)");
    for (const PrimaryGroup& group : primaryGroups())
      insert.row(group.id, group.name, static_cast<int>(group.grand));
    insert.send();
  }
  if (isEmpty(database, "Mast_AllGrp")) {
    BulkInsert insert(database, "Mast_AllGrp(ALLID,GID,ALLGRP,UserGrp)");
    for (const AccountGroup& group : accountGroups())
      insert.row(group.id, group.primary, group.name, "N");
    insert.send();
  }
}

}  // namespace quillet::suite
