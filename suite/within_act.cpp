#include "suite/within_act.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

#include "data/text.h"

namespace quillet::suite {
namespace {

struct Replacement {
  std::string_view sent;
  std::string_view instead;
};

// A definition ends a transaction, that of a temporary table does not. A transaction within the
// act's own is a part of it that can be taken back.
constexpr std::array<Replacement, 5> replacements{{
    {"create table if not exists ledger_temp", "create temporary table if not exists ledger_temp"},
    {"drop table if exists ledger_temp", "drop temporary table if exists ledger_temp"},
    {"start transaction", "savepoint part"},
    {"commit", "release savepoint part"},
    {"rollback", "rollback to savepoint part"},
}};

bool beginsWith(const std::string& sql, std::string_view start) {
  return equalIgnoringCase(std::string_view(sql).substr(0, start.size()), start);
}

}  // namespace

std::string withinAct(const std::string& sql) {
  for (const Replacement& each : replacements) {
    if (beginsWith(sql, each.sent)) return std::string(each.instead) + sql.substr(each.sent.size());
  }
  return sql;
}

bool changesScratch(const std::string& sql) {
  constexpr std::string_view scratch = "ledger_temp";
  return std::ranges::search(sql, scratch, {}, [](unsigned char c) {
           return std::tolower(c);
         }).begin() != sql.end();
}

}  // namespace quillet::suite
