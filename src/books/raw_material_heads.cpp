#include "books/raw_material_heads.h"

#include "books/name_check.h"

namespace quillet {
namespace {

constexpr char headOfId[] = "Select * from RawMatGrpM Where GrpId=";

}  // namespace

std::vector<RawMaterialHead> RawMaterialHeads::read(const Sql& select) const {
  const auto rows = host_.query(select);
  std::vector<RawMaterialHead> heads;
  for (; !rows->EOF_(); rows->MoveNext()) {
    heads.push_back({rows->integer("GrpId"), rows->text("GrpHead"), rows->integer("GrpType")});
  }
  return heads;
}

std::vector<RawMaterialHead> RawMaterialHeads::seeded() {
  const Sql select = "Select * from RawMatGrpM Order by GrpId";
  auto heads = read(select);
  if (!heads.empty()) return heads;
  seed();
  return read(select);
}

void RawMaterialHeads::seed() {
  const Sql heads[] = {"1,'RAW MATERIAL',1", "2,'FINISHED GOODS',2", "3,'WORK-IN-PROGRESS',3",
                       "4,'STORES AND SPARES',4", "5,'OTHER CONSUMABLES',4"};
  for (const Sql& head : heads) host_.ConQuery("Insert into RawMatGrpM Values (" + head + ")");
  host_.ConQuery("Flush Tables");
}

std::vector<RawMaterialHead> RawMaterialHeads::heads(long id) const {
  return read(id == 0 ? "Select * from RawMatGrpM" : headOfId + sqlNumber(id));
}

std::optional<NamedId> RawMaterialHeads::taken(const RawMaterialHead& head,
                                               const std::vector<long>& alike) const {
  Sql select = "Select * from RawMatGrpM Where GrpHead=" + host_.quoted(head.name) +
               " and GrpType=" + sqlNumber(head.type);
  if (head.id != 0) select += " and GrpId<>" + sqlNumber(head.id);
  return takenName(host_, head.name, select, alike, {headOfId, "GrpId", "GrpHead"});
}

bool RawMaterialHeads::bound(long id, TableNames& missing) const {
  return walkYearTables(host_, "Searching for the Raw Material Group....", {"RMGRP_"}, missing,
                        [&](const YearTable& table) {
                          const Sql select =
                              "Select * from " + table.sql() + " Where GrpSr=" + sqlNumber(id);
                          return !host_.query(select)->EOF_();
                        });
}

long RawMaterialHeads::insert(const RawMaterialHead& head) {
  const long id = host_.query("Select Max(GrpId) from RawMatGrpM")->integer(0) + 1;
  host_.ConQuery("Insert Into RawMatGrpM Values (" + sqlNumber(id) + "," + host_.quoted(head.name) +
                 "," + sqlNumber(head.type) + ")");
  return id;
}

void RawMaterialHeads::update(const RawMaterialHead& head) {
  host_.ConQuery("Update RawMatGrpM Set GrpHead=" + host_.quoted(head.name) +
                 ",GrpType=" + sqlNumber(head.type) + " Where GrpId=" + sqlNumber(head.id));
}

void RawMaterialHeads::remove(long id) {
  host_.ConQuery("Delete from RawMatGrpM Where GrpId=" + sqlNumber(id));
}

}  // namespace quillet
