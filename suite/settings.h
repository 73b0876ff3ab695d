// Settings kept between runs in an INI file. Every change is written at once and completely: after
// a crash the file holds either the old settings or the new ones. Names and values may hold any
// characters. Section and key compare without regard to case.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace quillet::suite {

class Settings {
 public:
  // The first line of every settings file, by which a data folder is recognised.
  static constexpr const char* firstLine = "; Quillet data folder";
  // The last one, without which the file is cut off.
  static constexpr const char* lastLine = "; end of the settings";

  enum class State { missing, unreadable, empty, foreign, cut, whole };
  static State stateOf(const std::filesystem::path& file);

  // Reads the file; a missing one gives no settings.
  explicit Settings(std::filesystem::path file);

  std::string get(const std::string& section, const std::string& key,
                  const std::string& fallback = {}) const;
  void set(const std::string& section, const std::string& key, const std::string& value);

  // As they are written.
  std::string text() const;

  // Whether nothing but the making of the folder has written them. A practice of an earlier
  // version, whose settings had no last line, was in use.
  bool areUnused() const;

  // The settings that the suite itself reads.
  std::optional<long> tableCount() const;  // how many trial-balance tables there should be
  // The firm's name, "" while nobody has told it.
  std::string companyName() const;
  void setCompanyName(const std::string& name);

 private:
  struct Entry {
    std::string section;  // as first written
    std::string key;
    std::string value;
  };
  void read();

  std::filesystem::path file_;
  std::map<std::string, Entry> entries_;  // by folded section and key
};

}  // namespace quillet::suite
