#include "suite/database_check.h"

#include <fcntl.h>
#include <mysql.h>
#include <unistd.h>

#include <cstring>

#include "suite/child_process.h"
#include "suite/embedded_server.h"

namespace quillet::suite {
namespace {

namespace fs = std::filesystem;

// A copy beside the folder: on the same disk, and never in a place that others can read.
class Copy {
 public:
  explicit Copy(const fs::path& folder) : path_(folder.string() + ".trial") {
    fs::remove_all(path_);
    try {
      fs::copy(folder, path_, fs::copy_options::recursive);
    } catch (...) {
      remove();
      throw;
    }
  }
  ~Copy() { remove(); }
  Copy(const Copy&) = delete;
  Copy& operator=(const Copy&) = delete;
  const fs::path& path() const { return path_; }

 private:
  void remove() noexcept {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  fs::path path_;
};

constexpr const char* unreadable = "the server cannot read its files";

MYSQL_RES* ask(MYSQL* connection, const std::string& sql) {
  if (mysql_real_query(connection, sql.data(), sql.size()) != 0) return nullptr;
  return mysql_store_result(connection);
}

// The storage engine knows as many tables as there are definitions.
bool nothingMissing(MYSQL* connection) {
  MYSQL_RES* counts = ask(connection,
                          "select (select count(*) from information_schema.innodb_sys_tables"
                          " where name like 'quillet/%' and name not like '%#sql%')"
                          " <= (select count(*) from information_schema.tables"
                          " where table_schema='quillet')");
  if (counts == nullptr) return false;
  const MYSQL_ROW row = mysql_fetch_row(counts);
  const bool same = row != nullptr && row[0] != nullptr && std::strcmp(row[0], "1") == 0;
  mysql_free_result(counts);
  return same;
}

bool tablesSound(MYSQL* connection) {
  MYSQL_RES* names = ask(connection, "show tables from quillet");
  if (names == nullptr) return true;  // not even the schema was made yet
  std::string list;
  while (const MYSQL_ROW row = mysql_fetch_row(names)) {
    list += (list.empty() ? "quillet.`" : ",quillet.`") + std::string(row[0]) + '`';
  }
  mysql_free_result(names);
  if (list.empty()) return true;
  MYSQL_RES* verdicts = ask(connection, "check table " + list);
  if (verdicts == nullptr) return false;
  bool good = true;
  while (const MYSQL_ROW row = mysql_fetch_row(verdicts)) {
    if (std::strcmp(row[2], "status") != 0 || std::strcmp(row[3], "OK") != 0) good = false;
  }
  mysql_free_result(verdicts);
  return good;
}

std::string damageIn(const fs::path& copy) {
  if (!startServerLibrary(copy)) return unreadable;
  MYSQL* connection = mysql_init(nullptr);
  if (mysql_real_connect(connection, nullptr, nullptr, nullptr, nullptr, 0, nullptr, 0) ==
      nullptr) {
    return unreadable;
  }
  if (!nothingMissing(connection)) return "tables are missing";
  return tablesSound(connection) ? "" : "tables cannot be read";
}

// The library writes to the standard streams when it gives up; nobody is to see that.
void silence() {
  const int null = open("/dev/null", O_RDWR);
  dup2(null, STDOUT_FILENO);
  dup2(null, STDERR_FILENO);
}

}  // namespace

std::string findDamage(const fs::path& folder) {
  const Copy copy(folder);
  const auto damage = runInChild([&] {
    silence();
    alarm(120);  // a child that hangs is as good as one that crashes
    return damageIn(copy.path());
  });
  return damage.value_or(unreadable);
}

}  // namespace quillet::suite
