#include "books/usual_group.h"

#include <algorithm>
#include <map>
#include <vector>

#include "books/registry.h"
#include "books/trial_balance.h"
#include "books/year_tables.h"
#include "data/names.h"

namespace quillet {
namespace {

long groupIn(ServiceObject& host, const TwoYears& years, TwoYears::Year year, long partId) {
  if (!years.has(year)) return 0;
  if (!years.inView(year)) return TrialBalance(host, years.books(year)).groupOf(partId);
  const std::vector<Line>& lines = years.lines(year);
  const auto found = std::find_if(lines.begin(), lines.end(),
                                  [&](const Line& line) { return line.partId == partId; });
  return found == lines.end() ? 0 : found->allId;
}

using LineCounts = std::map<long, long>;  // by group

long mostOf(const LineCounts& lines) {
  const auto most = std::max_element(
      lines.begin(), lines.end(), [](const auto& a, const auto& b) { return a.second < b.second; });
  return most == lines.end() ? 0 : most->first;
}

long commonestGroup(ServiceObject& host, const AccountGroups& groups, long partId) {
  std::vector<Sql> selects;
  for (const std::string& table : Registry(host).tables()) {
    if (table.empty()) continue;
    selects.push_back("Select AllId,Count(*) From " + sqlName(table) +
                      " Where PartId=" + sqlNumber(partId) + " Group By AllId");
  }
  LineCounts lines;
  queryAll(host, selects, [&](const Recordset& row) {
    if (groups.contains(row.integer(0))) lines[row.integer(0)] += row.integer(1);
  });
  return mostOf(lines);
}

}  // namespace

long ledgerNamed(ServiceObject& host, const std::string& name) {
  const auto rows =
      host.query("Select PartId,Particular From Mast_Part Where Particular=" + host.quoted(name) +
                 " Order By PartId");
  const auto found = bestMatch(*rows, "PartId", "Particular", name);
  return found && sameName(found->name, name) ? found->id : 0;
}

long usualGroup(ServiceObject& host, const TwoYears& years, const AccountGroups& groups,
                long partId) {
  const TwoYears::Year inView = years.yearInView();
  const TwoYears::Year other = inView == TwoYears::current ? TwoYears::previous : TwoYears::current;
  for (const TwoYears::Year year : {inView, other}) {
    const long group = groupIn(host, years, year, partId);
    if (groups.contains(group)) return group;
  }
  return commonestGroup(host, groups, partId);
}

std::unordered_map<long, long> usualGroups(ServiceObject& host, const AccountGroups& groups,
                                           const std::vector<long>& partIds) {
  std::unordered_map<long, long> usual;
  if (partIds.empty()) return usual;
  const IdList ids(partIds);
  std::vector<Sql> selects;
  for (const std::string& table : Registry(host).tables()) {
    if (table.empty()) continue;
    selects.push_back("Select PartId,AllId,Count(*) From " + sqlName(table) + " Where PartId In (" +
                      ids.sql() + ") Group By PartId,AllId");
  }
  std::unordered_map<long, LineCounts> lines;
  queryAll(host, selects, [&](const Recordset& row) {
    if (groups.contains(row.integer(1))) lines[row.integer(0)][row.integer(1)] += row.integer(2);
  });
  for (const auto& [partId, counts] : lines) usual[partId] = mostOf(counts);
  return usual;
}

}  // namespace quillet
