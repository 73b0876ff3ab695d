#include "suite/server_setup.h"

#include <stdexcept>

#include "suite/server_login.h"

namespace quillet::suite {
namespace {

std::string account(ClientConnection& connection, const std::string& name) {
  return connection.quoted(name) + "@'%'";
}

}  // namespace

std::vector<std::string> settingsTold(ClientConnection& connection) {
  struct Setting {
    const char* name;
    const char* wanted;
  };
  constexpr Setting settings[] = {
      {"version", "10.11 or later"},
      {"lower_case_table_names", "1 or 2"},
      {"max_allowed_packet", "16M or more"},
      {"enforce_storage_engine", "InnoDB or empty"},
      {"secure_timestamp", "NO"},
      {"read_only", "0"},
      {"innodb_read_only", "0"},
      {"binlog_format", "MIXED or ROW where log_bin is on"},
      {"have_ssl", "YES where stations are on other machines"},
  };
  std::vector<std::string> lines;
  for (const auto& [name, wanted] : settings) {
    const std::string is = connection.query(std::string("select @@") + name)->text(0);
    lines.push_back(std::string(name) + " is " + is + " (must be " + wanted + ")");
  }
  return lines;
}

void makeDatabase(ClientConnection& administrator, const std::string& database) {
  const std::string tables =
      administrator
          .query("select count(*) from information_schema.tables where table_schema=" +
                 administrator.quoted(database))
          ->text(0);
  if (tables != "0") {
    throw std::runtime_error("The database " + database + " holds " + tables +
                             " tables already. Nothing was changed. Name another one, or give"
                             " accounts with: quillet server-account");
  }
  administrator.execute("create database if not exists " + database +
                        " character set utf8mb4 collate utf8mb4_uca1400_as_ci");
}

bool accountExists(ClientConnection& administrator, const std::string& name) {
  return !administrator
              .query("select 1 from mysql.global_priv where user=" + administrator.quoted(name) +
                     " and host='%'")
              ->EOF_();
}

void makeAccount(ClientConnection& administrator, const std::string& database,
                 const std::string& name, const std::string& password) {
  const std::string who = account(administrator, name);
  if (!accountExists(administrator, name)) {
    administrator.execute("create user " + who + " identified by " +
                          administrator.quoted(password));
  }
  std::string pattern;
  for (const char c : database) pattern += c == '_' ? std::string("\\_") : std::string(1, c);
  administrator.execute("grant " + listed(neededRights()) + " on `" + pattern + "`.* to " + who);
}

}  // namespace quillet::suite
