#include "host/workbook_file.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <optional>

#include "data/paths.h"
#include "data/text.h"
#include "ports/busy.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;

constexpr const char* ending = ".xls";

// A name that has another ending, or a point, keeps it in front of ours.
fs::path withEnding(fs::path target) {
  if (!equalIgnoringCase(textOf(target.extension()), ending)) target += ending;
  return target;
}

// Why nothing can be exported to the target, "" when nothing is known against it.
std::string refusalOf(const fs::path& target, const fs::path& source) {
  std::error_code error;
  const fs::file_status there = fs::status(target, error);
  if (error == std::errc::filename_too_long) {
    return "The name of the file is too long. Please choose a shorter one.";
  }
  if (there.type() == fs::file_type::none) {
    return textOf(target) + ": " + error.message() + ". Please choose another file.";
  }
  if (fs::equivalent(source, target, error)) {
    return "This file is the template of the export. Please choose another file.";
  }
  const bool named = !equalIgnoringCase(textOf(target.filename()), ending);
  if (!named || (fs::exists(there) && !fs::is_regular_file(there))) {
    return textOf(target) + " is no file that can be written. Please choose another name.";
  }
  const fs::path folder = fs::absolute(target).parent_path();
  if (!fs::is_directory(folder, error)) {
    return "There is no folder " + textOf(folder) + ". Please choose another one.";
  }
  return {};
}

void tell(Context& context, const WorkbookFile& file, const std::string& text) {
  context.MsgBox(text, Buttons::OK, Icon::information, Answer::OK, file.boxTitle);
}

// The file that a person chose; nothing when it is to stay as it is, or the dialog was cancelled.
std::optional<fs::path> chosenTarget(Context& context, const WorkbookFile& file,
                                     const fs::path& source) {
  const auto document = [&](const std::string& name) {
    return below(context.host->DocPath(), "\\" + name);
  };
  fs::path proposed = file.proposed.empty() ? source : document(file.proposed);
  while (const auto chosen = context.dialogs.saveFile("Excel Files|*.xls", textOf(proposed))) {
    const fs::path target = withEnding(pathOf(*chosen));
    const std::string refusal = refusalOf(target, source);
    if (refusal.empty()) {
      const bool free =
          !fs::exists(target) ||
          context.MsgBox("File already exists. Do you want to overwrite it", Buttons::YesNo,
                         Icon::none, Answer::No, file.boxTitle) == Answer::Yes;
      return free ? std::optional(target) : std::nullopt;
    }
    tell(context, file, refusal);
    proposed = document(file.ownName);
  }
  return std::nullopt;
}

// What went wrong, and where.
std::string described(const std::exception& error, const fs::path& target) {
  const auto* file = dynamic_cast<const fs::filesystem_error*>(&error);
  return file ? file->code().message() + ": " + textOf(target) : error.what();
}

// A copy of the template beside the target, so that what stands at the target changes at once or
// not at all. Removes what is left of it.
class WorkingCopy {
 public:
  explicit WorkingCopy(const fs::path& target) : target_(target) {
    const auto now = std::chrono::system_clock::now().time_since_epoch().count();
    path_ = target.parent_path() / (".quillet-export-" + std::to_string(now) + ".xls");
  }
  ~WorkingCopy() {
    std::error_code ignored;
    if (!path_.empty()) fs::remove(path_, ignored);
  }
  WorkingCopy(const WorkingCopy&) = delete;
  WorkingCopy& operator=(const WorkingCopy&) = delete;

  const fs::path& path() const { return path_; }
  // Its rights are those of a new file, not the template's. A disk that is full leaves half a copy,
  // which goes with this object.
  void fill(const fs::path& source) {
    std::ofstream{path_};
    const fs::perms usual = fs::status(path_).permissions();
    // Not copied over it: some systems cannot tell two files apart and refuse that.
    fs::remove(path_);
    fs::copy_file(source, path_);
    fs::permissions(path_, usual);
  }
  void replaceTarget() {
    fs::rename(path_, target_);
    path_.clear();
  }

 private:
  fs::path target_;
  fs::path path_;
};

// The positions of the sheets that are to be filled; none when one of them is missing.
std::vector<int> positionsOf(const std::vector<std::string>& wanted, const Workbook& workbook) {
  const auto& names = workbook.Worksheets();
  std::vector<int> positions;
  for (const std::string& name : wanted) {
    const auto found = std::find_if(names.begin(), names.end(), [&](const std::string& sheet) {
      return equalIgnoringCase(sheet, name);
    });
    if (found == names.end()) return {};
    positions.push_back(static_cast<int>(found - names.begin()));
  }
  return positions;
}

// Returns what is to be told about how it went.
std::string written(Context& context, const WorkbookFile& file, const fs::path& source,
                    const fs::path& target) {
  const std::string name = textOf(target);
  try {
    const Busy busy(*context.host, "Exporting to " + name + "....");
    // The spreadsheet program need not run in our folder.
    WorkingCopy copy(fs::absolute(target));
    copy.fill(source);
    const auto excel = context.environment.createSpreadsheet();
    Workbook& workbook = excel->Open(textOf(copy.path()));
    const std::vector<int> sheets = positionsOf(file.sheets, workbook);
    if (!sheets.empty()) {
      file.fill(workbook, sheets);
      workbook.Save();
    }
    workbook.Close();
    excel->Quit();
    if (sheets.empty()) return file.sheetMissing;
    copy.replaceTarget();
  } catch (const std::exception& error) {
    return "Error Occured : " + described(error, target) + "\r\n";
  }
  return "Data Successfully Exported to File : " + name;
}

}  // namespace

void exportWorkbook(Context& context, const WorkbookFile& file) {
  const fs::path source = below(context.host->ExePath(), file.source);
  if (!fs::exists(source)) return tell(context, file, "Missing Source File.");
  const auto target = chosenTarget(context, file, source);
  if (target) tell(context, file, written(context, file, source, *target));
}

}  // namespace quillet
