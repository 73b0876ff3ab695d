#include "suite/backup/daily_backup.h"

#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>
#include <utility>

#include "suite/backup/backup.h"
#include "suite/backup/packer.h"
#include "suite/backup/quiet_state.h"
#include "suite/server_settings.h"

namespace quillet::suite::backup {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

constexpr milliseconds untilPacked{200}, untilQuieter{5'000}, untilNextDay{600'000};
// Somebody who never rests gets a backup all the same, in one go.
constexpr int mostDisturbed = 5;

}  // namespace

DailyBackup::DailyBackup(Database& database, const DataFolder& folder, Clock& clock,
                         std::function<void(const std::string&)> tell)
    : database_(database), folder_(folder), clock_(clock), tell_(std::move(tell)) {}

DailyBackup::~DailyBackup() { forget(); }

milliseconds DailyBackup::step() {
  try {
    if (part_) {
      if (!packed_) return untilPacked;
      end();
    } else {
      begin();
    }
  } catch (const std::exception& error) {
    forget();
    tellOnce(std::string("Today's backup was not made. ") + error.what());
  }
  if (part_) return untilPacked;
  return disturbed_ > 0 ? untilQuieter : untilNextDay;
}

// It is tried again all day; a person who has read the reason is left in peace.
void DailyBackup::tellOnce(const std::string& text) {
  const std::string today = clock_.now().substr(0, 10) + text;
  if (std::exchange(told_, today) != today) tell_(text);
}

void DailyBackup::prune() {
  try {
    BackupPlace(folder_).prune();
  } catch (const std::exception& error) {
    tellOnce(std::string("Today's backup was made, but older ones could not be put away. ") +
             error.what());
  }
}

void DailyBackup::begin() {
  const BackupPlace place(folder_);
  const fs::path file = place.dailyFile(clock_.now().substr(0, 10));
  if (!place.isWanted() || fs::exists(file) || serverIn(Settings(folder_.settings()))) return;
  place.prepare();
  checkPlace(folder_, file);
  if (disturbed_ >= mostDisturbed) {
    disturbed_ = 0;
    write(database_, folder_, file);
    return prune();
  }
  bringToRest(database_);
  before_ = restState(database_);
  if (before_.empty()) {
    ++disturbed_;
    return;
  }
  part_ = std::make_unique<PartFile>(file);
  packed_ = unwanted_ = false;
  failure_.clear();
  packing_ = std::thread([this] {
    setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), 19);
    try {
      pack(folder_, *part_, [this](std::uintmax_t, std::uintmax_t) {
        if (unwanted_) throw std::runtime_error("given up");
      });
    } catch (const std::exception& error) {
      failure_ = error.what();
    }
    packed_ = true;
  });
}

void DailyBackup::end() {
  packing_.join();
  const std::string failure = std::exchange(failure_, {});
  if (restState(database_) != before_) {
    ++disturbed_;
  } else if (failure.empty()) {
    disturbed_ = 0;
    part_->finish();
  }
  forget();
  if (disturbed_ > 0) return;
  if (!failure.empty()) throw std::runtime_error(failure);
  prune();
}

void DailyBackup::forget() {
  unwanted_ = true;
  if (packing_.joinable()) packing_.join();
  part_.reset();
}

}  // namespace quillet::suite::backup
