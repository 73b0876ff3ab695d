#include "books/group_master.h"

#include <algorithm>

#include "books/group_use.h"
#include "books/name_check.h"

namespace quillet {
namespace {

constexpr char groupOfId[] = "Select * From Mast_AllGrp Where AllId=";

}  // namespace

std::vector<NamedId> GroupMaster::primaryGroups() const {
  const auto rows = host_.query("Select * From Mast_Gunder Order by Gunder");
  std::vector<NamedId> groups;
  for (; !rows->EOF_(); rows->MoveNext()) {
    groups.push_back({rows->integer("GId"), rows->text("Gunder")});
  }
  return groups;
}

std::vector<AccountGroup> GroupMaster::read(const Sql& select) const {
  const auto rows = host_.query(select);
  std::vector<AccountGroup> groups;
  for (; !rows->EOF_(); rows->MoveNext()) {
    groups.push_back({rows->integer("AllId"), rows->integer("GId"), rows->text("ALLGRP"),
                      rows->text("UserGrp")});
  }
  return groups;
}

std::vector<AccountGroup> GroupMaster::groups(long id) const {
  return read(id == 0 ? "Select * From Mast_AllGrp" : groupOfId + sqlNumber(id));
}

std::vector<AccountGroup> GroupMaster::groupsByName() const {
  return read("Select * From Mast_AllGrp order by ALLGRP");
}

bool GroupMaster::hasAll(const std::vector<long>& ids) const {
  const auto there = host_.query("Select Distinct AllId from Mast_AllGrp where ALLID in (" +
                                 IdList(ids).sql() + ")");
  return there->RecordCount() == std::ssize(ids);
}

std::optional<NamedId> GroupMaster::taken(const AccountGroup& group,
                                          const std::vector<long>& alike) const {
  Sql select = "Select * from Mast_AllGrp Where ALLGRP=" + host_.quoted(group.name);
  if (group.id != 0) select += " and ALLID<>" + sqlNumber(group.id);
  return takenName(host_, group.name, select, alike, {groupOfId, "ALLID", "ALLGRP"});
}

long GroupMaster::nextId(TableNames& missing) const {
  const long highest = host_.query("Select Max(AllId) from Mast_AllGrp")->integer(0);
  return std::max(highest, highestGroupInUse(host_, missing)) + 1;
}

void GroupMaster::insert(const AccountGroup& group) {
  host_.ConQuery("Insert Into Mast_AllGrp Values (" + sqlNumber(group.id) + "," +
                 sqlNumber(group.primaryGroup) + "," + host_.quoted(group.name) + ",'Y')");
}

void GroupMaster::update(const AccountGroup& group) {
  host_.ConQuery("Update Mast_AllGrp Set ALLGRP=" + host_.quoted(group.name) +
                 ", GID=" + sqlNumber(group.primaryGroup) + " Where AllId=" + sqlNumber(group.id));
}

void GroupMaster::remove(long id) {
  host_.ConQuery("Delete from Mast_AllGrp Where ALLID=" + sqlNumber(id));
}

}  // namespace quillet
