#include "books/year_creation.h"

#include <algorithm>

#include "books/trial_balance.h"
#include "data/year.h"
#include "ports/busy.h"

namespace quillet {

void YearCreation::begin(const std::string& client, const std::string& firstDate,
                         const std::string& secondDate) {
  year_ = {};
  year_.client = client;
  year_.firstDate = firstDate;
  year_.secondDate = secondDate;
  year_.keys = {firstDateKey(yearOf(firstDate)), secondDateKey(yearOf(secondDate))};
  registered_ = false;
}

// --- the table ----------------------------------------------------------------------------------

std::optional<RegisteredYear> YearCreation::existing() const {
  return registry_.year(year_.client, year_.keys, YearSelect::creation);
}

void YearCreation::takeTableOf(const RegisteredYear& row) {
  year_.table = row.table;
  year_.number = row.number;
  keptDates_[0] = row.firstDate;
  keptDates_[1] = row.secondDate;
}

void YearCreation::findRow() {
  const auto row = existing();
  registered_ = row.has_value();
  if (row) takeTableOf(*row);
}

bool YearCreation::takeFreeTable() {
  const auto number = registry_.freeNumber(year_.client);
  year_.number = number.value_or(0);
  year_.table = number ? registry_.tableOfNumber(*number) : "";
  registered_ = false;
  return !year_.table.empty();
}

// --- the registry -------------------------------------------------------------------------------

RegisteredYear YearCreation::normalised() const {
  RegisteredYear row = year_;
  row.firstDate = host_.date_prob_handle(year_.firstDate);
  row.secondDate = host_.date_prob_handle(year_.secondDate);
  return row;
}

void YearCreation::insertRow() {
  registry_.insert(normalised());
  registered_ = true;
}

void YearCreation::registerYear() {
  if (!registered_) {
    insertRow();
    host_.ConQuery(flushTables);
    return;
  }
  const RegisteredYear row = normalised();
  if (row.firstDate != keptDates_[0] || row.secondDate != keptDates_[1]) registry_.setDates(row);
}

// --- the year before ----------------------------------------------------------------------------

std::optional<RegisteredYear> YearCreation::previous() const {
  const auto years = registry_.yearsOf(year_.client);
  const auto found = std::find_if(years.rbegin(), years.rend(), [&](const RegisteredYear& year) {
    return year.keys.second < year_.keys.second;
  });
  return found == years.rend() ? std::nullopt : std::optional(*found);
}

long YearCreation::lastSerial(const Sql& table) const {
  return host_
      .query("Select max(srno) as maxsrno from " + table +
             " Where Code_No=" + host_.quoted(year_.client))
      ->integer("maxsrno");
}

void YearCreation::copyLines(const std::string& previousTable, bool figures) {
  const Sql table = sqlName(year_.table);
  long srno = lastSerial(table);
  const auto rows = host_.query("SELECT * FROM " + sqlName(previousTable) +
                                " WHERE CODE_NO=" + host_.quoted(year_.client) + " ORDER BY SrNo");
  const Busy busy(host_, "Loading previous year....");
  Progress& progress = host_.objProgress();
  progress.Max(rows->RecordCount());
  const int code = rows->column("Code_No");
  const int partId = rows->column("PartId");
  const int allId = rows->column("AllId");
  const int amount = rows->column("Amt");
  const int nid = rows->column("nid");
  for (; !rows->EOF_(); rows->MoveNext()) {
    const Line line{++srno, rows->integer(partId), rows->integer(allId),
                    figures ? rows->number(amount) : 0, rows->integer(nid)};
    host_.ConQuery(lineInsert(table, host_.quoted(rows->text(code)), line));
    progress.update_pg();
  }
  host_.ConQuery(flushTables);
}

}  // namespace quillet
