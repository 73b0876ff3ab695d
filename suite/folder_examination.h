// Examines a database folder before the server library uses it. The library may end the process
// or write into the folder when it meets damaged files, so a folder that does not match its
// fingerprint is checked on a copy, in a process of its own.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>

namespace quillet::suite {

// What is done when an examination cannot tell whether the folder is sound: it lacks time, memory
// or room on the disk. That says nothing against the folder.
struct ExaminationPolicy {
  enum class Choice { openUnexamined, wait, leave };

  std::chrono::milliseconds patience = std::chrono::minutes(1);  // until it asks, each time
  struct Obstacle {
    std::string reason;  // the end of a sentence
    bool mayOpen =
        true;  // false: the server does not start at present, so waiting or leaving is left
  };
  // Decides. Waiting examines the folder anew where the examination has stopped.
  std::function<Choice(const Obstacle&)> undecided = [](const Obstacle& obstacle) {
    return obstacle.mayOpen ? Choice::openUnexamined : Choice::leave;
  };
  std::function<void()> working = [] {};  // called several times a second meanwhile
  bool mayBeNew = true;                   // false: a folder without books has lost them
};

enum class FolderState {
  isNew,     // holds nothing yet
  isIntact,  // holds a database that opens
};

// Makes the folder when it is missing. Throws std::runtime_error when it cannot be made or when it
// holds something that is not a database of ours; nothing is written then.
void prepareFolder(const std::filesystem::path& folder);

// The folder's state; the caller holds its lock. Throws std::runtime_error that names the folder
// when it is damaged or when it was decided to leave it. What an interrupted start left behind is
// removed.
FolderState examine(const std::filesystem::path& folder, const ExaminationPolicy& policy);

// Between these two the folder holds a database that never was complete.
void markIncomplete(const std::filesystem::path& folder);
void markComplete(const std::filesystem::path& folder);

}  // namespace quillet::suite
