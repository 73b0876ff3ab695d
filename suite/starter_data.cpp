#include "suite/starter_data.h"

#include <algorithm>
#include <utility>

#include "suite/bulk_insert.h"
#include "suite/data_reader.h"
#include "suite/database.h"

namespace quillet::suite {
namespace {

constexpr std::pair<std::string_view, GrandGroup> grandGroups[] = {
    {"assets", GrandGroup::assets},
    {"liabilities", GrandGroup::liabilities},
    {"incomes", GrandGroup::incomes},
    {"expenses", GrandGroup::expenses}};

std::vector<PrimaryGroup> readPrimaryGroups() {
  std::vector<PrimaryGroup> groups;
  for (DataReader row("primary_groups.tsv"); row.next();) {
    groups.push_back({row.number("id"), row.text("name"), row.choice("grand group", grandGroups)});
  }
  return groups;
}

std::vector<AccountGroup> readAccountGroups() {
  std::vector<AccountGroup> groups;
  for (DataReader row("account_groups.tsv"); row.next();) {
    const auto primary = std::find_if(
        primaryGroups().begin(), primaryGroups().end(),
        [id = row.number("primary group")](const auto& each) { return each.id == id; });
    if (primary == primaryGroups().end()) row.refuse("primary group");
    groups.push_back({row.number("id"), row.text("name"), &*primary});
  }
  return groups;
}

bool isEmpty(Database& database, const std::string& table) {
  return database.query("select 1 from " + table + " limit 1")->EOF_();
}

}  // namespace

const std::vector<PrimaryGroup>& primaryGroups() {
  static const std::vector<PrimaryGroup> groups = readPrimaryGroups();
  return groups;
}

const std::vector<AccountGroup>& accountGroups() {
  static const std::vector<AccountGroup> groups = readAccountGroups();
  return groups;
}

const AccountGroup* accountGroup(std::string_view name) {
  const auto found = std::find_if(accountGroups().begin(), accountGroups().end(),
                                  [&](const AccountGroup& group) { return group.name == name; });
  return found == accountGroups().end() ? nullptr : &*found;
}

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
      insert.row(group.id, group.primary->id, group.name, "N");
    insert.send();
  }
}

}  // namespace quillet::suite
