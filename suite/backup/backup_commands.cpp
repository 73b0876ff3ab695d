#include "suite/backup/backup_commands.h"

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <stdexcept>

#include "suite/backup/backup.h"
#include "suite/backup/backup_place.h"
#include "suite/backup/unpacker.h"

namespace quillet::suite::backup {
namespace {

namespace fs = std::filesystem;

constexpr const char* filter = "Backups|*.tar.zst";

class Working {
 public:
  explicit Working(bool& flag) : flag_(flag) { flag_ = true; }
  ~Working() { flag_ = false; }
  Working(const Working&) = delete;
  Working& operator=(const Working&) = delete;

 private:
  bool& flag_;
};

class ShownProgress {
 public:
  ShownProgress(FrontEnd& frontEnd, const std::string& text) : frontEnd_(frontEnd) {
    frontEnd_.showProgress(true);
    frontEnd_.progressText(text);
  }
  ~ShownProgress() { frontEnd_.showProgress(false); }
  ShownProgress(const ShownProgress&) = delete;
  ShownProgress& operator=(const ShownProgress&) = delete;

  void operator()(std::uintmax_t done, std::uintmax_t total) const {
    frontEnd_.progressBar(static_cast<long>(done >> 10U), static_cast<long>(total >> 10U));
  }

 private:
  FrontEnd& frontEnd_;
};

// Whatever of the ending a person left out or the dialog added.
fs::path withEnding(std::string name) {
  for (const std::string part : {".zst", ".tar"}) {
    if (name.ends_with(part)) name.resize(name.size() - part.size());
  }
  return name + ending;
}

std::string sizeOf(const fs::path& file) {
  const std::uintmax_t tenths = fs::file_size(file) * 10 / 1'000'000 + 1;
  return std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10) + " MB";
}

std::string timeOf(const fs::path& file) {
  const auto changed = std::chrono::file_clock::to_sys(fs::last_write_time(file));
  const std::time_t seconds =
      std::chrono::system_clock::to_time_t(std::chrono::floor<std::chrono::seconds>(changed));
  std::tm parts{};
  localtime_r(&seconds, &parts);
  char text[40];
  std::strftime(text, sizeof text, "%d/%m/%Y %H:%M", &parts);
  return text;
}

// Outside of the data folder, where a person finds it. The time in it keeps it apart from the daily
// ones, which are pruned.
fs::path proposal(const DataFolder& folder, const std::string& time) {
  const char* home = std::getenv("HOME");
  const fs::path where =
      home != nullptr && *home != '\0' ? fs::path(home) : folder.root().parent_path();
  return where / (folder.root().filename().string() + '-' + stampOf(time) + ending);
}

}  // namespace

void BackupCommands::tell(const std::string& text, Icon icon) {
  practice_.frontEnd().dialogs().MsgBox({text, "Quillet", Buttons::OK, icon});
}

bool BackupCommands::onServer(const std::string& instead) {
  try {
    refuseServer(practice_.folder().settings(), instead);
    return false;
  } catch (const std::exception& error) {
    tell(error.what(), Icon::critical);
    return true;
  }
}

bool BackupCommands::replaces(const fs::path& file) {
  Message question{"There is a file " + file.string() + " already.\nDo you want to replace it?",
                   "Back Up", Buttons::YesNo, Icon::question};
  question.defaultAnswer = Answer::No;
  return practice_.frontEnd().dialogs().MsgBox(question) == Answer::Yes;
}

void BackupCommands::backUp() {
  if (busy()) return;
  const Working working(atWork_);
  if (onServer("Back them up there.")) return;
  FrontEnd& frontEnd = practice_.frontEnd();
  const std::string time = practice_.environment().clock().now();
  const auto named =
      frontEnd.dialogs().saveFile(filter, proposal(practice_.folder(), time).string());
  if (!named) return;
  const fs::path file = withEnding(*named);
  try {
    checkPlace(practice_.folder(), file);
    if (fs::exists(file) && !replaces(file)) return;
    {
      const ShownProgress progress(frontEnd, "Writing the backup...");
      backup::write(practice_.database(), practice_.folder(), file, std::cref(progress));
    }
    tell("The backup was made: " + file.string() + " (" + sizeOf(file) + ").", Icon::information);
  } catch (const std::exception& error) {
    tell(std::string("The backup was not made.\n") + error.what(), Icon::critical);
  }
}

void BackupCommands::write(const fs::path& file) {
  if (busy()) {
    throw std::runtime_error(
        "The running Quillet is busy: something is under way in it, or a"
        " question is open. Finish it and try again.");
  }
  const Working working(atWork_);
  backup::write(practice_.database(), practice_.folder(), file);
}

void BackupCommands::restore() {
  if (busy()) return;
  fs::path file;
  {
    const Working working(atWork_);
    if (onServer("Restore them there.")) return;
    FrontEnd& frontEnd = practice_.frontEnd();
    const auto named = frontEnd.openFile(filter, BackupPlace(practice_.folder()).folder().string());
    if (!named) return;
    file = *named;
    try {
      const ShownProgress progress(frontEnd, "Reading the backup...");
      verify(file);
    } catch (const std::exception& error) {
      return tell(error.what(), Icon::critical);
    }
    Message question{"The books are replaced by those of the backup\n" + file.string() + "\nof " +
                         timeOf(file) +
                         ". What was entered since is not in them. The folder as it is now is kept"
                         " beside.\n\nDo you want to restore this backup?",
                     "Restore", Buttons::YesNo, Icon::exclamation};
    question.defaultAnswer = Answer::No;
    if (frontEnd.dialogs().MsgBox(question) != Answer::Yes) return;
  }
  chosen_ = file;
  if (!closeForms()) chosen_.clear();
}

// A form may ask its own question, and stay.
bool BackupCommands::closeForms() {
  OpenForms& openForms = practice_.context().openForms;
  while (Form* form = openForms.active()) {
    const Act act(openForms.acts);
    if (!form->close()) return false;
  }
  return true;
}

}  // namespace quillet::suite::backup
