// Checks a database folder by opening a copy of it in a child process and reading every table
// there: whatever the server library does when it meets damage, it does to the copy and to the
// child. A check that lacks time, memory or room says nothing about the folder.
#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>

#include "suite/child_process.h"

namespace quillet::suite {

struct Verdict {
  // Undecided: it may open all the same. Hindered: the server does not start at present, whatever
  // the folder holds.
  enum class Kind { sound, damaged, undecided, hindered };
  Kind kind = Kind::sound;
  std::string reason;  // why it is not sound
};

class DatabaseCheck {
 public:
  // Begins. The copy lies beside the folder until this object goes.
  explicit DatabaseCheck(const std::filesystem::path& folder);
  ~DatabaseCheck();
  DatabaseCheck(const DatabaseCheck&) = delete;
  DatabaseCheck& operator=(const DatabaseCheck&) = delete;

  // Nothing when it has not ended within that time.
  std::optional<Verdict> waitFor(std::chrono::milliseconds most);
  Verdict waitForEnd();
  bool ended() const { return verdict_.has_value(); }

  // The copy that a start which was killed has left behind.
  static void removeStaleCopy(const std::filesystem::path& folder);

 private:
  Verdict concluded();

  std::filesystem::path copy_;
  std::optional<ChildProcess> child_;
  std::string told_;
  std::optional<Verdict> verdict_;
};

}  // namespace quillet::suite
