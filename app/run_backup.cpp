#include "app/run_backup.h"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <system_error>

#include "app/run_desktop.h"
#include "suite/backup/backup.h"
#include "suite/backup/request.h"
#include "suite/backup/restore.h"
#include "suite/folder_lock.h"

namespace quillet::app {
namespace {

namespace fs = std::filesystem;
namespace backup = suite::backup;

fs::path folderOf(const Options& options) {
  return suite::DataFolder::pathOf(options.data.empty() ? suite::DataFolder::standard()
                                                        : options.data);
}

// Carries what a person is to read into the program that is started anew.
constexpr const char* messageVariable = "QUILLET_FIRST_MESSAGE";

// What a person reads afterwards.
std::string restored(const Options& options) {
  const fs::path folder = folderOf(options);
  const fs::path kept = backup::restore(
      options.file, folder, options.force ? backup::Present::setAside : backup::Present::refuse);
  std::string text =
      "The backup " + options.file.string() + " was restored to " + folder.string() + ".";
  if (!kept.empty()) {
    text += "\nThe folder as it was before is kept in " + kept.string() +
            ". Delete it when it is not needed any more.";
  }
  return text;
}

}  // namespace

int runBackup(const Options& options) {
  backup::finishRestore(folderOf(options));
  const auto folder = suite::DataFolder::open(folderOf(options));
  const fs::path file = fs::absolute(options.file).lexically_normal();
  if (!backup::requestBackup(folder.root(), file)) {
    const suite::FolderLock nobodyWorksThere(folder.database());
    backup::write(folder, file);
  }
  std::cout << "The backup was made: " << file.string() << '\n';
  return 0;
}

int runRestore(const Options& options) {
  if (!options.open) {
    std::cout << restored(options) << '\n';
    return 0;
  }
  std::string text;
  try {
    text = restored(options);
  } catch (const std::exception& error) {
    text = std::string("The backup was not restored.\n") + error.what();
  }
  // As it is started every day: whoever starts a process again by its command line would restore
  // again, over new work.
  setenv(messageVariable, text.c_str(), 1);
  execl("/proc/self/exe", "quillet", "--data", folderOf(options).c_str(),
        static_cast<char*>(nullptr));
  return runDesktop(options, takeFirstMessage());
}

std::string takeFirstMessage() {
  const char* set = std::getenv(messageVariable);
  std::string message = set == nullptr ? "" : set;
  unsetenv(messageVariable);
  return message;
}

void restartToRestore(const fs::path& file, const fs::path& folder) {
  execl("/proc/self/exe", "quillet", "--data", folder.c_str(), "restore", "--force", "--open",
        file.c_str(), static_cast<char*>(nullptr));
  throw std::runtime_error("Quillet cannot be started anew to restore the backup: " +
                           std::generic_category().message(errno) +
                           ". Nothing was changed. Start it and try again.");
}

}  // namespace quillet::app
