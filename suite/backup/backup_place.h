// Where the program keeps backups of its own accord, and which of them. The section "Backup" of the
// settings names a folder and how many days and months are kept; without it they lie beside the
// data folder. Nothing else that is there is ever touched.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "suite/data_folder.h"

namespace quillet::suite::backup {

class BackupPlace {
 public:
  // Reads the settings.
  explicit BackupPlace(const DataFolder& folder);

  const std::filesystem::path& folder() const { return place_; }
  // Whether backups are kept at all.
  bool isWanted() const { return days_ + months_ > 0; }
  // The day reads 2026-11-22.
  std::filesystem::path dailyFile(const std::string& day) const;
  // A backup that is made before something is changed on purpose; it is kept until a person removes
  // it. `time` as Clock::now tells it.
  std::filesystem::path fileBefore(const std::string& occasion, const std::string& time) const;

  // Makes the folder. One that the settings name must be there: it may be a disk that is not
  // connected. Throws std::runtime_error that names it.
  void prepare() const;
  // Removes the daily backups that are no longer kept, and those that were not finished.
  void prune() const;

 private:
  std::string dayOf(const std::filesystem::path& file) const;

  std::filesystem::path named_;  // by the settings; empty when they name none
  std::filesystem::path place_;
  std::string name_;
  long days_, months_;
};

// A time, as Clock::now tells it, for a file name.
std::string stampOf(std::string time);

// Of days written 2026-11-22 those that go: all but the last `days` of them and the last one of
// each of the last `months` months.
std::vector<std::string> superfluous(std::vector<std::string> dates, long days, long months);

}  // namespace quillet::suite::backup
