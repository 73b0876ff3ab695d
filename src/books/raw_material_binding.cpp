#include "books/raw_material_binding.h"

#include <algorithm>

#include "data/table_names.h"
#include "data/year.h"

namespace quillet {
namespace {

// As the masters write it.
constexpr char flush[] = "Flush Tables";

// Where the binding keeps the groups, and the primary group that each belongs to.
constexpr const char* groupFields[] = {"OsGrpId", "PurGrpId", "CsGrpId"};
constexpr int primaryGroupOf[] = {18, 19, 7};

void addIds(ServiceObject& host, IdList& list, const Sql& select) {
  for (const auto rows = host.query(select); !rows->EOF_(); rows->MoveNext()) {
    if (rows->field(0)) list.add(rows->integer(0));
  }
}

std::vector<NamedId> namesOf(ServiceObject& host, int primaryGroup, const IdList& ids) {
  std::vector<NamedId> names;
  if (ids.empty()) return names;
  const auto rows = host.query("Select * from Mast_AllGrp Where GID=" + sqlNumber(primaryGroup) +
                               " and AllId in (" + ids.sql() + ") Order by AllGrp");
  for (; !rows->EOF_(); rows->MoveNext()) {
    names.push_back({rows->integer("AllId"), rows->text("ALLGRP")});
  }
  return names;
}

}  // namespace

void RawMaterialBinding::open(const std::string& client, const std::string& table,
                              const YearKeys& year) {
  clientCode_ = client;
  trialBalance_ = table;
  year_ = year;
  client_ = host_.escaped(client);
  table_ = sqlName(siblingTable(table, "RMGRP_"));
}

// --- items --------------------------------------------------------------------------------------

std::vector<BoundItem> RawMaterialBinding::read(const Sql& select) const {
  const auto rows = host_.query(select);
  std::vector<BoundItem> items;
  for (; !rows->EOF_(); rows->MoveNext()) {
    BoundItem& item = items.emplace_back();
    item.srNo = rows->integer("SrNo");
    item.head = rows->integer("GrpSr");
    item.order = rows->integer("GrpOrder");
    for (int place = 0; long& group : item.groups) group = rows->integer(groupFields[place++]);
  }
  return items;
}

std::vector<BoundItem> RawMaterialBinding::items(long srNo) const {
  Sql select = "Select * from " + table_ + ofClient();
  if (srNo != 0) select += " and SrNo=" + sqlNumber(srNo);
  auto items = read(select);
  std::stable_sort(items.begin(), items.end(),
                   [](const BoundItem& a, const BoundItem& b) { return a.order < b.order; });
  return items;
}

bool RawMaterialBinding::isBound(int place, long group, long exceptSrNo) const {
  Sql select = "Select * from " + table_ + ofClient() + " and " + sqlName(groupFields[place]) +
               "=" + sqlNumber(group);
  if (exceptSrNo != 0) select += " and SrNo<>" + sqlNumber(exceptSrNo);
  return !host_.query(select)->EOF_();
}

long RawMaterialBinding::next(const Sql& column) const {
  return host_.query("Select Max(" + column + ") from " + table_ + ofClient())->integer(0) + 1;
}

long RawMaterialBinding::insert(const BoundItem& item) {
  const long srNo = next("SrNo");
  const long order = next("GrpOrder");
  const auto& [opening, purchases, closing] = item.groups;
  host_.ConQuery("Insert Into " + table_ + " Values ('" + client_ + "'," + sqlNumber(srNo) + "," +
                 sqlNumber(item.head) + "," + sqlNumber(opening) + "," + sqlNumber(purchases) +
                 ",0," + sqlNumber(closing) + "," + sqlNumber(order) + ")");
  return srNo;
}

void RawMaterialBinding::update(const BoundItem& item) {
  const auto& [opening, purchases, closing] = item.groups;
  host_.change("Update " + table_ + " Set GrpSr=" + sqlNumber(item.head) +
                   ",OsGrpId=" + sqlNumber(opening) + ",PurGrpId=" + sqlNumber(purchases) +
                   ",SalGrpId=0,CsGrpId=" + sqlNumber(closing) + ofClient() +
                   " and SrNo=" + sqlNumber(item.srNo),
               flush);
}

void RawMaterialBinding::remove(const BoundItem& item) {
  host_.change("Delete from " + table_ + ofClient() + " and SrNo=" + sqlNumber(item.srNo), flush);
  host_.change("Update " + table_ + " Set GrpOrder=GrpOrder-1" + ofClient() + " and GrpOrder>" +
                   sqlNumber(item.order),
               flush);
}

void RawMaterialBinding::setOrder(const std::vector<long>& srNos) {
  for (long order = 0; const long srNo : srNos) {
    host_.ConQuery("Update " + table_ + " Set GrpOrder=" + sqlNumber(++order) + ofClient() +
                   " and SrNo=" + sqlNumber(srNo));
  }
  host_.ConQuery(flush);
}

// --- groups to choose from ----------------------------------------------------------------------

PerStockGroup<IdList> RawMaterialBinding::groupsInUse() const {
  PerStockGroup<IdList> lists;
  const Sql table = sqlName(trialBalance_);
  for (const int place : {0, 1}) {
    addIds(host_, lists[place],
           "Select Distinct " + table + ".allid from " + table + ",mast_allgrp Where " + table +
               ".allid=mast_allgrp.allid and mast_allgrp.gid=" + sqlNumber(primaryGroupOf[place]) +
               " and " + table + ".Code_No='" + client_ + "'");
  }
  const Sql stock = sqlName(siblingTable(trialBalance_, "TRADE_"));
  addIds(host_, lists[2], "Select Distinct " + stock + ".allid from " + stock + ofClient());
  return lists;
}

PerStockGroup<std::vector<NamedId>> RawMaterialBinding::choices() const {
  auto wanted = groupsInUse();
  const auto bound = read("Select * from " + table_ + ofClient());
  PerStockGroup<std::vector<NamedId>> choices;
  for (int place = 0; auto& names : choices) {
    IdList& ids = wanted[place];
    for (const BoundItem& item : bound) ids.add(item.groups[place]);
    names = namesOf(host_, primaryGroupOf[place], ids);
    for (const BoundItem& item : bound) {
      const long id = item.groups[place];
      const bool offered = id == 0 || std::any_of(names.begin(), names.end(),
                                                  [&](const auto& name) { return name.id == id; });
      if (!offered) names.push_back({id, std::to_string(id)});
    }
    ++place;
  }
  return choices;
}

// --- the previous year --------------------------------------------------------------------------

std::string RawMaterialBinding::importable() const {
  const auto year = Registry(host_).year(clientCode_, year_.before(), YearSelect::binding);
  if (!year || host_.GETTBNAME(year->number).empty()) return {};
  std::string previous = siblingTable(Registry(host_).tableOfNumber(year->number), "RMGRP_");
  const auto items =
      host_.query("Select * from " + sqlName(previous) + ofClient() + " Order by GrpOrder");
  return items->EOF_() ? std::string() : previous;
}

void RawMaterialBinding::importFrom(const std::string& previous) {
  host_.change("Insert into " + table_ + " Select * from " + sqlName(previous) + ofClient(), flush);
  copySetup();
}

void RawMaterialBinding::copySetup() {
  const int year = yearOf(year_.second);
  const auto setupOf = [&](int fYr) {
    return host_.query("Select * from RmSchSetup" + ofClient() + " and FYr=" + sqlNumber(fYr));
  };
  const auto previous = setupOf(year - 1);
  if (previous->EOF_() || !setupOf(year)->EOF_()) return;
  Sql values = "'" + client_ + "'," + sqlNumber(year);
  for (const char* field : {"Head", "RmGroup", "OsGroup", "PurGroup", "SalGroup", "CsGroup"}) {
    values += "," + host_.quoted(previous->text(field));
  }
  host_.change("Insert into RmSchSetup Values (" + values + ")", flush);
}

}  // namespace quillet
