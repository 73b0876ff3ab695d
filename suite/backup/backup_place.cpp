#include "suite/backup/backup_place.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <set>
#include <stdexcept>
#include <system_error>

#include "suite/backup/backup.h"
#include "suite/backup/part_file.h"
#include "suite/settings.h"

namespace quillet::suite::backup {
namespace {

namespace fs = std::filesystem;

constexpr const char* section = "Backup";

long countOf(const Settings& settings, const char* key, long usual) {
  const std::string text = settings.get(section, key);
  if (text.empty() || text.find_first_not_of("0123456789") != std::string::npos) return usual;
  return std::min(std::strtol(text.c_str(), nullptr, 10), 10'000L);
}

// By which computers are told apart; "" where there is none.
std::string machineId() {
  std::string id;
  std::getline(std::ifstream("/etc/machine-id"), id);
  return id;
}

// Several practices may keep their backups in one folder, also such as have the same name, and the
// same path on several computers.
std::string ownName(const fs::path& root) {
  std::uint32_t hash = 2166136261U;  // FNV-1a
  for (const char c : machineId() + root.string())
    hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
  std::string digits;
  for (int shift = 28; shift >= 0; shift -= 4) digits += "0123456789abcdef"[hash >> shift & 15U];
  return root.filename().string() + '-' + digits;
}

bool isDay(const std::string& text) {
  const std::string shape = "0000-00-00";
  return text.size() == shape.size() &&
         std::equal(text.begin(), text.end(), shape.begin(), [](char c, char like) {
           return like == '0' ? std::isdigit(static_cast<unsigned char>(c)) != 0 : c == like;
         });
}

void make(const fs::path& folder) {
  std::error_code error;
  if (fs::is_directory(folder, error)) return;
  fs::create_directory(folder, error);
  if (error) {
    throw std::runtime_error("The folder " + folder.string() +
                             " cannot be made: " + error.message() + ".");
  }
  // Not every disk for backups knows rights.
  fs::permissions(folder, fs::perms::owner_all, error);
}

}  // namespace

BackupPlace::BackupPlace(const DataFolder& folder) : name_(folder.root().filename().string()) {
  const Settings settings(folder.settings());
  named_ = settings.get(section, "Folder");
  place_ = named_.empty() ? fs::path(folder.root().string() + "-backups")
                          : folder.root() / named_ / ownName(folder.root());
  days_ = countOf(settings, "Days", 14);
  months_ = countOf(settings, "Months", 12);
}

fs::path BackupPlace::dailyFile(const std::string& day) const {
  return place_ / (name_ + '-' + day + ending);
}

fs::path BackupPlace::fileBefore(const std::string& occasion, const std::string& time) const {
  return place_ / (name_ + "-before-" + occasion + '-' + stampOf(time) + ending);
}

void BackupPlace::prepare() const {
  if (!named_.empty() && !fs::is_directory(place_.parent_path())) {
    throw std::runtime_error("The folder " + place_.parent_path().string() +
                             " for backups is not there. Is its disk connected?");
  }
  make(place_);
}

// The day in the name of a file that we made; "" for any other.
std::string BackupPlace::dayOf(const fs::path& file) const {
  std::string name = file.filename().string();
  if (name.ends_with(PartFile::ending))
    name.resize(name.size() - std::string(PartFile::ending).size());
  const std::string before = name_ + '-';
  if (!name.starts_with(before) || !name.ends_with(ending)) return "";
  name = name.substr(before.size(), name.size() - before.size() - std::string(ending).size());
  return isDay(name) ? name : "";
}

void BackupPlace::prune() const {
  std::vector<std::string> days;
  for (const fs::directory_entry& entry : fs::directory_iterator(place_)) {
    const std::string day = dayOf(entry.path());
    if (day.empty() || !fs::is_regular_file(entry.symlink_status())) continue;
    if (entry.path().string().ends_with(PartFile::ending)) {
      fs::remove(entry.path());
    } else {
      days.push_back(day);
    }
  }
  for (const std::string& day : superfluous(days, days_, months_)) fs::remove(dailyFile(day));
}

std::string stampOf(std::string time) {
  std::erase(time, ':');
  std::replace(time.begin(), time.end(), ' ', '-');
  return time;
}

std::vector<std::string> superfluous(std::vector<std::string> dates, long days, long months) {
  std::sort(dates.rbegin(), dates.rend());
  std::set<std::string> monthsSeen;
  std::vector<std::string> gone;
  long seen = 0;
  for (const std::string& date : dates) {
    const bool isLastOfMonth = monthsSeen.insert(date.substr(0, 7)).second;
    const bool kept =
        seen++ < days || (isLastOfMonth && static_cast<long>(monthsSeen.size()) <= months);
    if (!kept) gone.push_back(date);
  }
  return gone;
}

}  // namespace quillet::suite::backup
