#include "suite/folder_examination.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <stdexcept>
#include <string>

#include "suite/atomic_file.h"
#include "suite/database_check.h"
#include "suite/definition_log.h"
#include "suite/folder_fingerprint.h"
#include "suite/folder_lock.h"
#include "suite/private_files.h"

namespace quillet::suite {
namespace {

namespace fs = std::filesystem;

constexpr const char* making = "making";
constexpr std::array required{"ibdata1", "ib_logfile0", "aria_log_control", "aria_log.00000001"};

bool isIgnored(const fs::path& file) {
  const fs::path name = file.filename();
  return name == FolderLock::fileName || name == "error.log";
}

bool isEmpty(const fs::path& folder) {
  const fs::directory_iterator entries(folder);
  return std::all_of(begin(entries), end(entries),
                     [](const fs::directory_entry& entry) { return isIgnored(entry.path()); });
}

bool isIncomplete(const fs::path& folder) { return fs::exists(folder / making); }

std::runtime_error damaged(const fs::path& folder, const std::string& what) {
  return std::runtime_error("The database in " + folder.string() + " is damaged (" + what +
                            "). Nothing was changed. Restore the folder from a backup.");
}

constexpr std::chrono::milliseconds tick{100};

Verdict waitFor(DatabaseCheck& check, const ExaminationPolicy& policy) {
  const auto begun = std::chrono::steady_clock::now();
  do {
    if (const auto verdict = check.waitFor(std::min(tick, policy.patience))) return *verdict;
    policy.working();
  } while (std::chrono::steady_clock::now() < begun + policy.patience);
  return {Verdict::Kind::undecided, "it has not come to its end yet"};
}

// Returns when the folder may be opened.
void checkCopy(const fs::path& folder, const ExaminationPolicy& policy) {
  std::optional<DatabaseCheck> check;
  for (;;) {
    if (!check) check.emplace(folder);
    const Verdict verdict = waitFor(*check, policy);
    if (verdict.kind == Verdict::Kind::sound) return;
    if (verdict.kind == Verdict::Kind::damaged) throw damaged(folder, verdict.reason);
    // What has stopped gives its room back before somebody is asked.
    if (check->ended()) check.reset();
    using Choice = ExaminationPolicy::Choice;
    const bool mayOpen = verdict.kind == Verdict::Kind::undecided;
    const Choice choice = policy.undecided({verdict.reason, mayOpen});
    if (choice == Choice::openUnexamined && mayOpen) return;
    if (choice == Choice::leave) {
      throw std::runtime_error("The database in " + folder.string() +
                               " was not examined to the end (" + verdict.reason +
                               ") and not opened. Nothing was changed.");
    }
  }
}

void removeIncompleteDatabase(const fs::path& folder) {
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    if (!isIgnored(entry.path()) && entry.path().filename() != making) {
      fs::remove_all(entry.path());
    }
  }
  fs::remove(folder / making);
}

}  // namespace

void prepareFolder(const fs::path& folder) {
  makePrivateFolder(folder);
  if (!isPrivate(folder)) makeAllPrivate(folder);
  std::error_code error;
  fs::directory_iterator readable(folder, error);
  if (error) {
    throw std::runtime_error("The folder " + folder.string() +
                             " cannot be read: " + error.message() + ".");
  }
  if (isEmpty(folder) || isIncomplete(folder)) return;
  if (std::none_of(required.begin(), required.end(),
                   [&](const char* name) { return fs::exists(folder / name); })) {
    throw std::runtime_error("The folder " + folder.string() +
                             " holds other files and no database. Nothing was changed.");
  }
}

FolderState examine(const fs::path& folder, const ExaminationPolicy& policy) {
  DatabaseCheck::removeStaleCopy(folder);
  // A practice that was opened before was complete then: a mark has come back, as after a power
  // failure or with a copy, and nothing is removed for it.
  const bool wasIncomplete = policy.mayBeNew && isIncomplete(folder);
  if (wasIncomplete) removeIncompleteDatabase(folder);
  if (isEmpty(folder)) {
    if (policy.mayBeNew) return FolderState::isNew;
    throw std::runtime_error("The books of the practice are gone: the folder " + folder.string() +
                             " is empty. Restore the practice from a backup.");
  }
  for (const char* name : required) {
    if (!fs::is_regular_file(folder / name)) {
      throw damaged(folder, std::string(name) + " is missing");
    }
  }
  if (!folder_fingerprint::matches(folder)) checkCopy(folder, policy);
  markComplete(folder);
  definition_log::removeForeign(folder);
  return FolderState::isIntact;
}

void markIncomplete(const fs::path& folder) {
  std::ofstream{folder / making};
  makePrivate(folder / making);
}
void markComplete(const fs::path& folder) {
  if (!fs::remove(folder / making)) return;
  // Come back after a power failure, the mark would stand for books.
  synchroniseFolder(folder);
}

}  // namespace quillet::suite
