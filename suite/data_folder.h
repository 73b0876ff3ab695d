// A data folder: everything that one practice consists of, in one place that can be copied and
// backed up.
//
//   database/      the embedded database
//   program/       the suite's program folder: the error log; in Databases/ the export template and
//                  the practice's own statutory heads, when it has some
//   documents/     report files, annexures, exports; in Deleted/ the files of deleted years, for
//                  90 days
//   settings.ini   settings; its presence marks the folder as ours
//   settings.kept.ini   the settings of the last start, by which lost ones are noticed
#pragma once

#include <filesystem>

namespace quillet::suite {

class DataFolder {
 public:
  // The folder used when none is named: in the user's data home.
  static std::filesystem::path standard();
  // The absolute path of a folder as a person named it: plain, without a separator at the end.
  static std::filesystem::path pathOf(const std::filesystem::path& named);
  // Whether a data folder of ours is there, by the settings or those kept.
  static bool isOne(const std::filesystem::path& path);
  // The same, also when nothing but the database tells it.
  static bool isThere(const std::filesystem::path& path);

  enum class Existing { refuse, replace };
  // Makes a new one. Throws std::runtime_error when something other than an empty folder is there;
  // with `replace` a data folder of ours, which nobody works on, is emptied first. Never removes
  // what is not ours and never follows a link out of the folder.
  static DataFolder create(const std::filesystem::path& path, Existing existing = Existing::refuse);
  // Throws std::runtime_error that names the path when no data folder is there. A database whose
  // settings are gone is one.
  static DataFolder open(const std::filesystem::path& path);

  // Paths as by pathOf.
  const std::filesystem::path& root() const { return root_; }
  std::filesystem::path database() const { return root_ / "database"; }
  std::filesystem::path program() const { return root_ / "program"; }
  std::filesystem::path documents() const { return root_ / "documents"; }
  std::filesystem::path keptFiles() const { return documents() / "Deleted"; }
  std::filesystem::path settings() const { return root_ / "settings.ini"; }
  std::filesystem::path statutoryHeads() const {
    return program() / "Databases" / "statutory_heads.tsv";
  }
  std::filesystem::path keptSettings() const { return root_ / "settings.kept.ini"; }

 private:
  explicit DataFolder(std::filesystem::path root) : root_(std::move(root)) {}
  std::filesystem::path root_;
};

}  // namespace quillet::suite
