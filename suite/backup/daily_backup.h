// The backup of the day, made while a person works. The database is brought to rest in between two
// acts, which takes milliseconds; a thread packs the files and touches nothing else. If a statement
// wrote meanwhile, what was packed is thrown away and it is tried again later.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <thread>

#include "ports/ports.h"
#include "suite/backup/backup_place.h"
#include "suite/backup/part_file.h"
#include "suite/database.h"

namespace quillet::suite::backup {

class DailyBackup {
 public:
  // All of them outlive this object. `tell` is told what went wrong.
  DailyBackup(Database& database, const DataFolder& folder, Clock& clock,
              std::function<void(const std::string&)> tell);
  // Gives up what is being packed.
  ~DailyBackup();
  DailyBackup(const DailyBackup&) = delete;
  DailyBackup& operator=(const DailyBackup&) = delete;

  // To be called in between two acts; returns when to call it next.
  std::chrono::milliseconds step();

 private:
  void begin();
  void end();
  void forget();
  void prune();
  void tellOnce(const std::string& text);

  Database& database_;
  const DataFolder& folder_;
  Clock& clock_;
  std::function<void(const std::string&)> tell_;
  std::unique_ptr<PartFile> part_;  // while it is packed
  std::thread packing_;
  std::atomic<bool> packed_ = false, unwanted_ = false;
  std::string failure_;  // the thread's, once packed_ is set
  std::string before_;   // the state of rest
  std::string told_;     // the day and the text last told
  int disturbed_ = 0;    // how often in a row
};

}  // namespace quillet::suite::backup
