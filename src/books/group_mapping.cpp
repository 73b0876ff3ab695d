#include "books/group_mapping.h"

#include <utility>

namespace quillet {
namespace {

constexpr const char* mappingSection = "AllGrp";
constexpr const char* mapAll = "GRP_MAP_ALL";
constexpr char commonCode[] = "#?#COMMON#?#";
constexpr char flushed[] = "Flush Tables";

}  // namespace

GroupMapper::GroupMapper(ServiceObject& host, std::string client)
    : host_(host), client_(std::move(client)) {}

bool GroupMapper::mapsCommon() const {
  return client_.empty() || host_.GetMiscOthInf(mappingSection, mapAll, "Y") != "N";
}

void GroupMapper::mapCommon(bool common) {
  host_.SetMiscOthInf(mappingSection, mapAll, common ? "Y" : "N", "", "");
}

GroupMappings GroupMapper::effective() const { return read(true, true); }
GroupMappings GroupMapper::common() const { return read(true, false); }
GroupMappings GroupMapper::own() const {
  return client_.empty() ? GroupMappings() : read(false, true);
}

GroupMappings GroupMapper::read(bool common, bool own) const {
  own = own && !client_.empty();
  Sql codes = common ? code(false) : Sql();
  if (own) codes += (common ? Sql(",") : Sql()) + code(true);
  const auto rows = host_.query("Select * from AllGrp_Map Where Code_No in (" + codes + ")");
  GroupMappings mappings;
  for (; !rows->EOF_(); rows->MoveNext()) {
    const GroupMapping row{.schedule6 = {rows->integer("SVIMapId"), rows->text("SVIMapName")},
                           .incomeTax = {rows->integer("ITMapId"), rows->text("ITMapName")},
                           .own = rows->text("Code_No") != commonCode};
    GroupMapping& mapping = mappings[rows->integer("AllId")];
    if (row.own || !mapping.own) mapping = row;
  }
  return mappings;
}

Sql GroupMapper::code(bool own) const {
  return own ? host_.quoted(client_) : "'" + Sql(commonCode) + "'";
}

void GroupMapper::remove(long group, bool own) {
  host_.change(
      "Delete from AllGrp_Map Where Code_No=" + code(own) + " and AllId=" + sqlNumber(group),
      flushed);
}

void GroupMapper::save(long group, const GroupMapping& mapping) {
  remove(group, mapping.own);
  const auto values = [&](const NamedId& head) {
    return sqlNumber(head.id) + "," + host_.quoted(head.name);
  };
  host_.change("Insert Into AllGrp_Map Values (" + code(mapping.own) + "," + sqlNumber(group) +
                   "," + values(mapping.schedule6) + "," + values(mapping.incomeTax) + ")",
               flushed);
}

void GroupMapper::map(const std::vector<long>& groups, const ChosenHeads& chosen, bool own) {
  const GroupMappings common = this->common();
  const GroupMappings owned = own ? this->own() : GroupMappings();
  for (const long group : groups) {
    const bool hides = own && common.contains(group);
    GroupMapping mapping;
    if (const auto row = common.find(group); row != common.end()) mapping = row->second;
    if (const auto row = owned.find(group); row != owned.end()) mapping = row->second;
    mapping.own = own;
    if (chosen.schedule6) mapping.schedule6 = *chosen.schedule6;
    if (chosen.incomeTax) mapping.incomeTax = *chosen.incomeTax;
    if (mapping.schedule6.id != 0 || mapping.incomeTax.id != 0 || hides) {
      save(group, mapping);
    } else {
      remove(group, own);
    }
  }
}

void GroupMapper::clear(const std::vector<long>& groups, bool own) {
  for (const long group : groups) remove(group, own);
}

void GroupMapper::copyCommon(const std::vector<long>& groups) {
  const GroupMappings rows = common();
  for (const long group : groups) {
    const auto found = rows.find(group);
    if (found == rows.end()) continue;
    GroupMapping mapping = found->second;
    mapping.own = true;
    save(group, mapping);
  }
}

void removeMappings(ServiceObject& host, const std::vector<long>& groups) {
  host.ConQuery("Delete from AllGrp_Map Where AllId in (" + IdList(groups).sql() + ")");
}

}  // namespace quillet
