#include "books/registry.h"

#include <algorithm>
#include <utility>

#include "data/table_names.h"
#include "data/year.h"

namespace quillet {
namespace {

// In the order of YearSelect.
constexpr SqlPattern yearSelects[] = {
    "select * from master where code_no='{c}' and f_yr='{f}' and s_yr='{s}'",
    "SELECT * FROM master where code_no='{c}' and s_yr='{s}' and f_yr='{f}'",
    "select * from master where code_no= '{c}' and f_yr='{f}' and s_yr='{s}'",
    "Select * from master where code_no='{c}' and f_yr='{f}' and s_yr='{s}'"};

// With the client's code as the caller writes it: files and notes in memory are known by that.
std::optional<RegisteredYear> firstOf(std::vector<RegisteredYear> years,
                                      const std::string& client) {
  if (years.empty()) return std::nullopt;
  years.front().client = client;
  return std::move(years.front());
}

}  // namespace

YearKeys YearKeys::before() const {
  return {firstDateKey(yearOf(first) - 1), secondDateKey(yearOf(second) - 1)};
}

YearKeys YearKeys::after() const {
  return {firstDateKey(yearOf(first) + 1), secondDateKey(yearOf(second) + 1)};
}

std::string YearKeys::text() const { return yearText(first, second); }

// --- reading ------------------------------------------------------------------------------------

std::vector<RegisteredYear> Registry::read(const Sql& select) const {
  const auto rows = host_.query(select);
  std::vector<RegisteredYear> years;
  for (; !rows->EOF_(); rows->MoveNext()) {
    years.push_back({.client = rows->text("code_no"),
                     .keys = {rows->text("f_yr"), rows->text("s_yr")},
                     .firstDate = rows->text("f_year_dt"),
                     .secondDate = rows->text("s_year_dt"),
                     .table = rows->text("tbl_nm"),
                     .number = rows->integer("count"),
                     .isSigned = !rows->text("d_of_s").empty()});
  }
  return years;
}

std::vector<std::string> Registry::readTables(const Sql& select) const {
  const auto rows = host_.query(select);
  std::vector<std::string> tables;
  for (; !rows->EOF_(); rows->MoveNext()) tables.push_back(rows->text(0));
  return tables;
}

std::optional<RegisteredYear> Registry::year(const std::string& client, const YearKeys& keys,
                                             YearSelect select) const {
  const std::pair<char, Sql> values[] = {{'c', host_.escaped(client)},
                                         {'f', host_.escaped(keys.first)},
                                         {'s', host_.escaped(keys.second)}};
  return firstOf(read(filled(yearSelects[static_cast<int>(select)], values)), client);
}

std::optional<RegisteredYear> Registry::yearIn(const std::string& table,
                                               const std::string& client) const {
  return firstOf(read("Select * From Master Where Code_No=" + host_.quoted(client) +
                      " and Tbl_Nm=" + host_.quoted(table)),
                 client);
}

bool Registry::has(const std::string& table, const std::string& client) const {
  return !readTables("select tbl_nm from master where code_no=" + host_.quoted(client) +
                     " and tbl_nm=" + host_.quoted(table))
              .empty();
}

std::string Registry::tableOf(const std::string& client, const YearKeys& keys) const {
  std::string table;
  for (const auto& year : read("select * from master where code_no=" + host_.quoted(client))) {
    if (year.keys == keys) table = year.table;
  }
  return table;
}

std::vector<YearKeys> Registry::keysOf(const std::string& client) const {
  const auto rows =
      host_.query("select code_no,f_year_dt,s_year_dt,f_yr,s_yr from master where code_no=" +
                  host_.quoted(client) + " order by s_yr");
  std::vector<YearKeys> keys;
  for (; !rows->EOF_(); rows->MoveNext()) keys.push_back({rows->text("F_YR"), rows->text("S_YR")});
  return keys;
}

std::vector<RegisteredYear> Registry::yearsOf(const std::string& client) const {
  return read("select * from master where code_no=" + host_.quoted(client) + " ORDER BY s_yr");
}

std::vector<RegisteredYear> Registry::others(const std::string& client,
                                             const YearKeys& keys) const {
  return read("select *  from master where f_yr =" + host_.quoted(keys.first) +
              " and s_yr =" + host_.quoted(keys.second) + " And code_no <> " +
              host_.quoted(client) + " order by code_no");
}

std::vector<std::string> Registry::tables() const {
  return readTables("Select distinct tbl_nm from master");
}

std::vector<std::string> Registry::tables(const std::string& client) const {
  return readTables("Select distinct tbl_nm from master Where Code_No=" + host_.quoted(client));
}

// --- table numbers ------------------------------------------------------------------------------

std::optional<long> Registry::freeNumber(const std::string& client) const {
  const auto rows = host_.query("select count from master where code_no =" + host_.quoted(client) +
                                " order by count");
  std::vector<long> taken;
  for (; !rows->EOF_(); rows->MoveNext()) taken.push_back(rows->integer(0));
  const long numbers = host_.GetTbCount();
  for (long number = 1; number <= numbers; ++number) {
    if (std::find(taken.begin(), taken.end(), number) == taken.end()) return number;
  }
  return std::nullopt;
}

std::string Registry::tableOfNumber(long number) const {
  return trialBalanceTable(host_.GETTBNAME(number));
}

// --- changes ------------------------------------------------------------------------------------

void Registry::insert(const RegisteredYear& year) {
  host_.ConQuery("insert into master(code_no,f_year_dt,s_year_dt,tbl_nm,count,f_yr,s_yr) values(" +
                 host_.quoted(year.client) + "," + host_.quoted(year.firstDate) + "," +
                 host_.quoted(year.secondDate) + "," + host_.quoted(year.table) + "," +
                 sqlNumber(year.number) + "," + host_.quoted(year.keys.first) + "," +
                 host_.quoted(year.keys.second) + ")");
}

void Registry::setDates(const RegisteredYear& year) {
  host_.change("update master set f_year_dt=" + host_.quoted(year.firstDate) + ",s_year_dt=" +
               host_.quoted(year.secondDate) + " where count=" + sqlNumber(year.number) +
               " and code_no=" + host_.quoted(year.client));
}

}  // namespace quillet
