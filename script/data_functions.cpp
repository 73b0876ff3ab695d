// quillet.add_client, query, exec, check, backup, statements, fail, log, notices: the register, the
// database, the books, the error log.
#include <algorithm>
#include <charconv>
#include <fstream>

#include "data/text.h"
#include "script/call.h"
#include "script/quillet_library.h"
#include "script/session.h"
#include "suite/backup/backup.h"
#include "suite/check/books_check.h"
#include "suite/client_register.h"
#include "suite/history/written_table.h"

namespace quillet::script {
namespace {

struct ClientField {
  const char* name;
  std::string suite::Client::*value;
};

constexpr ClientField clientFields[] = {
    {"code", &suite::Client::code},
    {"name", &suite::Client::name},
    {"first", &suite::Client::first},
    {"middle", &suite::Client::middle},
    {"last", &suite::Client::last},
    {"status", &suite::Client::status},
    {"father", &suite::Client::father},
    {"born", &suite::Client::born},
    {"address", &suite::Client::address},
    {"group_code", &suite::Client::groupCode},
    {"group_name", &suite::Client::groupName},
    {"company", &suite::Client::company},
    {"password", &suite::Client::password},
};

// A misspelt field is an error and not ignored.
void mustBeClientFields(const Call& call) {
  for (const std::string& key : call.keys(1)) {
    const auto called = [&](const ClientField& field) { return key == field.name; };
    if (std::none_of(std::begin(clientFields), std::end(clientFields), called)) {
      throw Error("a client has no field '" + key + "'");
    }
  }
}

int addClient(Call& call) {
  suite::Client client;
  for (const ClientField& field : clientFields) {
    client.*field.value = call.field(1, field.name).value_or(std::string());
  }
  mustBeClientFields(call);
  suite::addClient(call.session().practice.database(), client);
  return call.none();
}

// --- the database -------------------------------------------------------------------------------

void pushNumber(lua_State* state, std::string_view text) {
  const char* end = text.data() + text.size();
  lua_Integer whole = 0;
  if (const auto [stop, error] = std::from_chars(text.data(), end, whole);
      error == std::errc() && stop == end) {
    lua_pushinteger(state, whole);
    return;
  }
  double number = 0;
  std::from_chars(text.data(), end, number);
  lua_pushnumber(state, number);
}

void pushField(lua_State* state, const Recordset& rows, int column) {
  const auto field = rows.field(column);
  if (!field) {
    lua_pushnil(state);
  } else if (rows.numeric(column)) {
    pushNumber(state, *field);
  } else {
    pushText(state, *field);
  }
}

std::vector<std::string> lowerCaseNames(const Recordset& rows) {
  std::vector<std::string> names;
  for (int column = 0; column < rows.fieldCount(); ++column) {
    std::string name(rows.fieldName(column));
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    names.push_back(std::move(name));
  }
  return names;
}

int query(Call& call) {
  lua_State* state = call.state();
  const std::string sql = call.text(1);
  // A change sent this way would be no act: not logged, and not held against locked years.
  if (!suite::writtenBy(sql).tables.empty()) {
    throw Error("quillet.query only reads; quillet.exec changes the books");
  }
  const RecordsetPtr rows = call.session().practice.database().query(sql);
  const auto names = lowerCaseNames(*rows);
  lua_newtable(state);
  for (lua_Integer position = 1; !rows->EOF_(); rows->MoveNext(), ++position) {
    lua_newtable(state);
    for (int column = 0; column < rows->fieldCount(); ++column) {
      pushField(state, *rows, column);
      lua_pushvalue(state, -1);
      lua_rawseti(state, -3, column + 1);
      lua_setfield(state, -2, names[column].c_str());
    }
    lua_rawseti(state, -2, position);
  }
  return 1;
}

int exec(Call& call) {
  const std::string sql = call.text(1);
  suite::Practice& practice = call.session().practice;
  // In the middle of an act it is a part of that act, however it ends.
  practice.environment().unit().execute(sql);
  practice.service().executedElsewhere(sql);
  return call.none();
}

int check(Call& call) {
  lua_State* state = call.state();
  lua_newtable(state);
  lua_Integer position = 0;
  for (const auto& finding : suite::check::examineBooks(call.session().practice).findings) {
    const YearKeys& year = finding.place.year;
    lua_newtable(state);
    for (const auto& [field, value] : {std::pair("client", finding.place.client),
                                       {"year", year.first.empty() ? "" : year.text()},
                                       {"table", finding.place.table},
                                       {"rule", finding.rule},
                                       {"what", finding.what},
                                       {"remedy", finding.remedy}}) {
      pushText(state, value);
      lua_setfield(state, -2, field);
    }
    lua_pushboolean(state, finding.mendable ? 1 : 0);
    lua_setfield(state, -2, "mendable");
    lua_rawseti(state, -2, ++position);
  }
  return 1;
}

int backUp(Call& call) {
  suite::Practice& practice = call.session().practice;
  suite::backup::write(practice.database(), practice.folder(), call.text(1));
  return call.none();
}

int statements(Call& call) {
  return call.give(call.session().practice.service().statements().take());
}

int fail(Call& call) {
  using suite::StatementInterceptor;
  const long error = call.absent(2) ? StatementInterceptor::unknownError : call.integer(2);
  call.session().practice.service().statements().failNext(call.text(1), 0, error);
  return call.none();
}

int log(Call& call) {
  std::vector<std::string> lines;
  std::ifstream file(std::filesystem::path(call.session().practice.service().ExePath()) /
                     "TalLog.log");
  for (std::string line; std::getline(file, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
  }
  return call.give(lines);
}

int notices(Call& call) {
  suite::Notices& notices = call.session().practice.frontEnd().notices();
  const std::vector<std::string> lines = notices.open();
  notices.close();
  return call.give(lines);
}

}  // namespace

void addDataFunctions(lua_State* state) {
  const luaL_Reg functions[] = {{"add_client", entry<addClient>},
                                {"query", entry<query>},
                                {"exec", entry<exec>},
                                {"check", entry<check>},
                                {"backup", entry<backUp>},
                                {"statements", entry<statements>},
                                {"fail", entry<fail>},
                                {"log", entry<log>},
                                {"notices", entry<notices>},
                                {nullptr, nullptr}};
  luaL_setfuncs(state, functions, 0);
}

}  // namespace quillet::script
