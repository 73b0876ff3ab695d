#include "suite/data_folder.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>

#include "suite/database_check.h"
#include "suite/folder_lock.h"
#include "suite/private_files.h"
#include "suite/settings.h"

namespace quillet::suite {
namespace {

namespace fs = std::filesystem;

bool isEmptyOrMissing(const fs::path& path) {
  return !fs::exists(path) || (fs::is_directory(path) && fs::is_empty(path));
}

bool isOurs(const fs::path& settings) {
  using State = Settings::State;
  const State state = Settings::stateOf(settings);
  return state == State::whole || state == State::cut;
}

// Removes what a data folder consists of and nothing else that somebody may have put there. A link
// is removed, not what it points to.
void clear(const DataFolder& folder) {
  for (const fs::path& part : {folder.database(), folder.program(), folder.documents()}) {
    fs::remove_all(part);
  }
  DatabaseCheck::removeStaleCopy(folder.database());
  fs::remove(folder.keptSettings());
  fs::remove(folder.settings());
}

// What was made with the person's own mask, by an earlier version or by the module. The database
// sees to its own files.
void makePrivate(const DataFolder& folder) {
  suite::makePrivate(folder.root());
  suite::makePrivate(folder.settings());
  suite::makePrivate(folder.keptSettings());
  makeAllPrivate(folder.program());
  makeAllPrivate(folder.documents());
}

}  // namespace

fs::path DataFolder::standard() {
  const char* data = std::getenv("XDG_DATA_HOME");
  if (data != nullptr && fs::path(data).is_absolute()) return fs::path(data) / "quillet";
  const char* home = std::getenv("HOME");
  if (home == nullptr || *home == '\0') {
    throw std::runtime_error(
        "There is no home folder to keep the data in; name a folder with --data.");
  }
  return fs::path(home) / ".local" / "share" / "quillet";
}

fs::path DataFolder::pathOf(const fs::path& named) {
  const fs::path path = fs::absolute(named).lexically_normal();
  return path.has_filename() ? path : path.parent_path();
}

bool DataFolder::isOne(const fs::path& path) {
  const DataFolder folder(path);
  return isOurs(folder.settings()) || isOurs(folder.keptSettings());
}

bool DataFolder::isThere(const fs::path& path) {
  return isOne(path) || fs::exists(DataFolder(path).database() / "ibdata1");
}

DataFolder DataFolder::create(const fs::path& path, Existing existing) {
  DataFolder folder(pathOf(path));
  if (isOne(folder.root())) {
    if (existing == Existing::refuse) {
      throw std::runtime_error("There is a data folder in " + folder.root().string() + " already.");
    }
    if (fs::is_directory(folder.database())) {
      const FolderLock nobodyWorksThere(folder.database());
      clear(folder);
    } else {
      clear(folder);
    }
  } else if (!isEmptyOrMissing(folder.root())) {
    throw std::runtime_error("The folder " + folder.root().string() +
                             " holds other files. Nothing was changed.");
  }
  makePrivateFolder(folder.root());
  // Marks the folder as ours before anything else is in it, so that a start that is cut short
  // leaves a folder that opens.
  Settings(folder.settings()).set("Suite", "TableCount", "40");
  return open(folder.root());
}

DataFolder DataFolder::open(const fs::path& path) {
  DataFolder folder(pathOf(path));
  if (!isThere(folder.root())) {
    throw std::runtime_error("There is no data folder in " + folder.root().string() + ".");
  }
  makePrivate(folder);
  for (const fs::path& part :
       {folder.program(), folder.program() / "Databases", folder.documents()}) {
    makePrivateFolder(part);
  }
  return folder;
}

}  // namespace quillet::suite
