#include "suite/trial_opening.h"

#include <fcntl.h>
#include <mysql.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>

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

enum Outcome : int { sound = 0, doesNotStart = 10, tablesMissing = 11, tablesDamaged = 12 };

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

Outcome tryOut(const fs::path& copy) {
  if (!startServerLibrary(copy)) return doesNotStart;
  MYSQL* connection = mysql_init(nullptr);
  if (mysql_real_connect(connection, nullptr, nullptr, nullptr, nullptr, 0, nullptr, 0) ==
      nullptr) {
    return doesNotStart;
  }
  if (!nothingMissing(connection)) return tablesMissing;
  return tablesSound(connection) ? sound : tablesDamaged;
}

// The library writes to the standard streams when it gives up; nobody is to see that.
void silence() {
  const int null = open("/dev/null", O_RDWR);
  dup2(null, STDOUT_FILENO);
  dup2(null, STDERR_FILENO);
}

}  // namespace

std::string faultOnTrial(const fs::path& folder) {
  const Copy copy(folder);
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("No process could be started to examine the database.");
  if (child == 0) {
    silence();
    alarm(120);  // a child that hangs is as good as one that crashes
    _exit(tryOut(copy.path()));
  }
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  if (!WIFEXITED(status)) return "the server cannot read its files";
  switch (WEXITSTATUS(status)) {
    case sound:
      return {};
    case tablesMissing:
      return "tables are missing";
    case tablesDamaged:
      return "tables cannot be read";
    default:
      return "the server cannot read its files";
  }
}

}  // namespace quillet::suite
