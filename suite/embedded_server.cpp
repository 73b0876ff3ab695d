#include "suite/embedded_server.h"

#include <fcntl.h>
#include <mysql.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <stdexcept>
#include <string>
#include <vector>

#include "suite/folder_fingerprint.h"
#include "suite/stack_bounds.h"

// The library's own switches, which it sets from no option.
extern "C" {
char my_init();
extern char my_disable_sync;  // its files are not synchronised one by one
extern int my_umask;          // the rights on its files
extern int my_umask_dir;
}

// Replaces a function of the library, which compares the processor's clocks for some 20 ms at each
// start. Its performance schema would go by them, which an embedded server does not have.
extern "C" void my_timer_init(void* /*clocks*/) {}

namespace quillet::suite {
namespace {

namespace fs = std::filesystem;

bool started = false;

// The server's own defaults are for a machine that serves many; these are for one practitioner. No
// option file is read, so that nothing outside the folder changes how data is kept.
std::vector<std::string> options(const fs::path& folder) {
  return {
      "quillet",
      "--no-defaults",
      "--datadir=" + folder.string(),
      "--tmpdir=" + folder.string(),
      "--log-error=" + (folder / "error.log").string(),
      "--skip-grant-tables",
      "--lower-case-table-names=1",
      "--character-set-server=utf8mb4",
      "--sql-mode=STRICT_ALL_TABLES,ERROR_FOR_DIVISION_BY_ZERO,NO_ENGINE_SUBSTITUTION",
      // Statements never reach files.
      "--local-infile=0",
      "--secure-file-priv=" + folder.string(),
      // What was acknowledged survives a crash.
      "--default-storage-engine=InnoDB",
      "--innodb-flush-log-at-trx-commit=1",
      // Without the server's own schema there is nowhere to keep statistics; they would stay those
      // of the tables when they were empty, and large lists would be read in the worst order.
      "--innodb-stats-persistent=0",
      // Hundreds of small tables: one file for all is made faster than one for each.
      "--innodb-file-per-table=0",
      "--innodb-autoextend-increment=8",
      "--innodb-buffer-pool-size=64M",
      "--innodb-log-file-size=16M",
      "--innodb-buffer-pool-dump-at-shutdown=0",
      "--innodb-buffer-pool-load-at-startup=0",
      // A start reads what the last one left in the system's cache, and as much of the log as its
      // buffer holds; what is committed is synchronised all the same.
      "--innodb-flush-method=fsync",
      "--innodb-log-buffer-size=2M",
      "--innodb-use-native-aio=0",
      // No table is kept by the engines that these are for, except for large intermediate results.
      "--key-buffer-size=8192",
      "--aria-pagecache-buffer-size=8M",
      // The tables of statistics are not there either; each statement would look for them.
      "--use-stat-tables=never",
      // Every change is followed by a flush, whose cost grows with the number of open tables.
      "--table-open-cache=64",
      "--table-definition-cache=2000",
      "--max-allowed-packet=64M",
  };
}

FolderLock lockFolder(const fs::path& folder) {
  if (started) throw std::logic_error("The embedded database starts once in a process.");
  prepareFolder(folder);
  return FolderLock(folder);
}

}  // namespace

bool startServerLibrary(const fs::path& folder) {
  std::vector<std::string> texts = options(folder);
  std::vector<char*> arguments;
  arguments.reserve(texts.size());
  for (std::string& text : texts) arguments.push_back(text.data());
  std::array<char, 9> embedded{"embedded"};
  std::array<char, 7> server{"server"};
  std::array<char*, 3> groups{embedded.data(), server.data(), nullptr};
  my_init();  // sets the rights that others have by default
  my_umask = 0600;
  my_umask_dir = 0700;
  // The library changes the mask for new files; exports and reports are to keep the user's.
  const mode_t mask = umask(077);
  const bool begun =
      mysql_server_init(static_cast<int>(arguments.size()), arguments.data(), groups.data()) == 0;
  umask(mask);
  return begun;
}

EmbeddedServer::EmbeddedServer(const fs::path& folder, const ExaminationPolicy& policy)
    : folder_(fs::absolute(folder)), lock_(lockFolder(folder_)) {
  isNew_ = examine(folder_, policy) == FolderState::isNew;
  if (isNew_) markIncomplete(folder_);
  folder_fingerprint::remove(folder_);
  started = true;
  keepStackBounds();
  if (!startServerLibrary(folder_)) {
    throw std::runtime_error("The database in " + folder_.string() +
                             " did not start; its file error.log tells why.");
  }
  errors_.restore();
  if (isNew_) markComplete(folder_);
}

void EmbeddedServer::beginBulkLoad() {
  markIncomplete(folder_);
  my_disable_sync = 1;
}

void EmbeddedServer::endBulkLoad() {
  my_disable_sync = 0;
  const int folder = open(folder_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  const bool synchronised = folder >= 0 && syncfs(folder) == 0;
  if (folder >= 0) close(folder);
  if (!synchronised) {
    throw std::runtime_error("The folder " + folder_.string() + " cannot be written.");
  }
  markComplete(folder_);
  isNew_ = false;
}

EmbeddedServer::~EmbeddedServer() {
  errors_.redirectToLog();
  mysql_server_end();
  try {
    folder_fingerprint::write(folder_);
  } catch (const std::exception&) {
    // Without a fingerprint the next start examines the folder, which takes longer and does no
    // harm.
    folder_fingerprint::remove(folder_);
  }
}

}  // namespace quillet::suite
