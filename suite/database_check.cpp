#include "suite/database_check.h"

#include <fcntl.h>
#include <mysql.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstring>
#include <fstream>
#include <iterator>
#include <new>
#include <set>

#include "suite/definition_log.h"
#include "suite/embedded_server.h"
#include "suite/folder_fingerprint.h"
#include "suite/folder_lock.h"

namespace quillet::suite {
namespace {

namespace fs = std::filesystem;
using Kind = Verdict::Kind;

constexpr const char* unreadable = "the server cannot read its files";
constexpr const char* lack = "the database server lacks memory or room on the disk";
constexpr const char* logName = "error.log";
// What the server needs beside the files for its logs and scratch space.
constexpr std::uintmax_t reserve = 32U << 20;

// On the same disk, and never in a place that others can read.
fs::path copyOf(const fs::path& folder) { return folder.string() + ".trial"; }

bool isCopied(const std::string& name) {
  return name != FolderLock::fileName && name != folder_fingerprint::fileName &&
         name != definition_log::fileName && name != logName;
}

std::uintmax_t sizeOf(const fs::path& folder) {
  std::uintmax_t all = 0;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) all += entry.file_size();
  }
  return all;
}

std::string megabytes(std::uintmax_t bytes) {
  return std::to_string((bytes + (1U << 20) - 1) >> 20) + " MB";
}

// "" when the disk has room for the copy.
std::string lackOfRoom(const fs::path& folder) {
  const std::uintmax_t needed = sizeOf(folder) + reserve;
  const std::uintmax_t free = fs::space(folder.parent_path()).available;
  if (free >= needed) return {};
  return "it needs " + megabytes(needed) + " on the disk and " + megabytes(free) + " are free";
}

void copyFolder(const fs::path& from, const fs::path& to) {
  fs::create_directory(to);
  for (const fs::directory_entry& entry : fs::directory_iterator(from)) {
    const fs::path name = entry.path().filename();
    if (entry.is_directory()) copyFolder(entry.path(), to / name);
    if (entry.is_regular_file() && isCopied(name)) fs::copy_file(entry.path(), to / name);
  }
}

MYSQL_RES* ask(MYSQL* connection, const std::string& sql) {
  if (mysql_real_query(connection, sql.data(), sql.size()) != 0) return nullptr;
  return mysql_store_result(connection);
}

// The storage engine knows as many tables as there are definitions, but for those being changed.
bool nothingMissing(MYSQL* connection, std::size_t changing) {
  MYSQL_RES* counts = ask(connection,
                          "select (select count(*) from information_schema.innodb_sys_tables"
                          " where name like 'quillet/%' and name not like '%#sql%')"
                          " <= (select count(*) from information_schema.tables"
                          " where table_schema='quillet')+" +
                              std::to_string(changing));
  if (counts == nullptr) return false;
  const MYSQL_ROW row = mysql_fetch_row(counts);
  const bool same = row != nullptr && row[0] != nullptr && std::strcmp(row[0], "1") == 0;
  mysql_free_result(counts);
  return same;
}

// What the server says of tables that are not sound; "" when all are. The next start sees to those
// that were being changed.
std::string unsoundTables(MYSQL* connection, const std::set<std::string>& changing) {
  MYSQL_RES* names = ask(connection, "show tables from quillet");
  if (names == nullptr) return {};  // not even the schema was made yet
  std::string list;
  while (const MYSQL_ROW row = mysql_fetch_row(names)) {
    if (changing.contains(row[0])) continue;
    list += (list.empty() ? "quillet.`" : ",quillet.`") + std::string(row[0]) + '`';
  }
  mysql_free_result(names);
  if (list.empty()) return {};
  MYSQL_RES* verdicts = ask(connection, "check table " + list);
  if (verdicts == nullptr) return mysql_error(connection);
  std::string said;
  while (const MYSQL_ROW row = mysql_fetch_row(verdicts)) {
    if (std::strcmp(row[2], "status") != 0 || std::strcmp(row[3], "OK") != 0) {
      said += std::string(row[3]) + '\n';
    }
  }
  mysql_free_result(verdicts);
  return said;
}

// The server's own words for what has nothing to do with the files that it reads.
bool namesLack(const std::string& text) {
  static constexpr std::array phrases{
      "annot allocate",  "an't allocate",         "ut of memory",
      "ut of resources", "more memory",           "bad_alloc",
      "No space left",   "isk is full",           "isk full",
      "File too large",  "Too many open files",   "temporarily unavailable",
      "create thread",   "Read-only file system", "Permission denied",
  };
  return std::any_of(phrases.begin(), phrases.end(),
                     [&](const char* phrase) { return text.find(phrase) != std::string::npos; });
}

std::string verdictText(char kind, const std::string& reason) { return kind + reason; }

// The child's work; its text is the verdict's kind and reason.
std::string examined(const fs::path& copy, const std::set<std::string>& changing) {
  if (!startServerLibrary(copy)) return verdictText('d', unreadable);
  MYSQL* connection = mysql_init(nullptr);
  if (connection == nullptr) return verdictText('h', lack);
  if (mysql_real_connect(connection, nullptr, nullptr, nullptr, nullptr, 0, nullptr, 0) ==
      nullptr) {
    return verdictText('d', unreadable);
  }
  if (!nothingMissing(connection, changing.size())) {
    const std::string error = mysql_error(connection);
    return namesLack(error) ? verdictText('h', error) : verdictText('d', "tables are missing");
  }
  const std::string said = unsoundTables(connection, changing);
  if (namesLack(said)) return verdictText('h', lack);
  return said.empty() ? verdictText('s', "") : verdictText('d', "tables cannot be read");
}

// The library writes to the standard streams when it gives up; nobody is to see that.
void silence() {
  const int null = open("/dev/null", O_RDWR);
  dup2(null, STDOUT_FILENO);
  dup2(null, STDERR_FILENO);
}

// What opens with this opens in the program too, which needs more.
constexpr rlim_t margin = 128U << 20;
void leaveMemoryFree(rlim_t most) {
  rlimit memory{};
  if (getrlimit(RLIMIT_AS, &memory) != 0 || memory.rlim_cur == RLIM_INFINITY) return;
  memory.rlim_cur -= std::min(memory.rlim_cur, most);
  setrlimit(RLIMIT_AS, &memory);
}

// Whether the server starts at all here: when it does not even on an empty folder, the files are
// not to blame. That takes less memory than files do, so it gets less.
bool startsElsewhere(const fs::path& empty) {
  std::error_code ignored;
  fs::remove_all(empty, ignored);
  const auto started = runInChild([&] {
    silence();
    leaveMemoryFree(margin + (48U << 20));
    umask(077);
    fs::create_directory(empty);
    return std::string(startServerLibrary(empty) ? "yes" : "");
  });
  return started == "yes";
}

bool endedFromOutside(int signal) {
  static constexpr std::array from{SIGKILL, SIGTERM, SIGINT, SIGHUP, SIGXCPU, SIGXFSZ, SIGALRM};
  return std::find(from.begin(), from.end(), signal) != from.end();
}

std::string contentOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace

DatabaseCheck::DatabaseCheck(const fs::path& folder) : copy_(copyOf(folder)) {
  removeStaleCopy(folder);
  try {
    if (const std::string lack = lackOfRoom(folder); !lack.empty()) {
      verdict_ = {Kind::undecided, lack};
      return;
    }
    child_.emplace([&](const ChildProcess::Tell& tell) {
      silence();
      leaveMemoryFree(margin);
      umask(077);
      try {
        copyFolder(folder, copy_);
        tell(examined(copy_, definition_log::tables(folder)));
      } catch (const std::bad_alloc&) {
        tell("hthere is not enough memory");
      } catch (const fs::filesystem_error& error) {
        tell(verdictText('u', "no copy can be made: " + error.code().message()));
      }
    });
  } catch (const std::exception& error) {
    verdict_ = {Kind::undecided, error.what()};
  }
}

DatabaseCheck::~DatabaseCheck() {
  child_.reset();
  std::error_code ignored;
  fs::remove_all(copy_, ignored);
}

void DatabaseCheck::removeStaleCopy(const fs::path& folder) {
  std::error_code ignored;
  fs::remove_all(copyOf(folder), ignored);
}

std::optional<Verdict> DatabaseCheck::waitFor(std::chrono::milliseconds most) {
  const auto end = std::chrono::steady_clock::now() + most;
  while (!verdict_) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
        end - std::chrono::steady_clock::now());
    const auto text = child_->readWithin(std::max(left, std::chrono::milliseconds(0)));
    if (!text) return std::nullopt;
    told_ += *text;
    if (text->empty()) verdict_ = concluded();
  }
  return verdict_;
}

Verdict DatabaseCheck::waitForEnd() {
  for (;;) {
    if (const auto verdict = waitFor(std::chrono::hours(1))) return *verdict;
  }
}

Verdict DatabaseCheck::concluded() {
  const bool finished = child_->finish();
  const char kind = told_.empty() ? ' ' : told_.front();
  if (finished && kind == 's') return {Kind::sound, ""};
  if (finished && kind == 'u') return {Kind::undecided, told_.substr(1)};
  if (finished && kind == 'h') return {Kind::hindered, told_.substr(1)};
  if (endedFromOutside(child_->signal())) return {Kind::undecided, "it was ended from outside"};
  if (namesLack(contentOf(copy_ / logName))) return {Kind::hindered, lack};
  const std::string damage = finished && kind == 'd' ? told_.substr(1) : unreadable;
  if (damage == unreadable && !startsElsewhere(copy_)) {
    return {Kind::hindered, "the database server does not start at present"};
  }
  return {Kind::damaged, damage};
}

}  // namespace quillet::suite
