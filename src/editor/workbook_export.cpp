#include "editor/workbook_export.h"

#include <algorithm>
#include <chrono>
#include <fstream>

#include "data/paths.h"
#include "data/text.h"
#include "data/year.h"
#include "editor/frmcrtb.h"
#include "ports/busy.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;

constexpr const char* boxTitle = "Trial Balance";
constexpr const char* lineSheet = "TB";
constexpr int firstRow = 2;  // below the template's headings
constexpr int debitColumn = 4;
constexpr int creditColumn = 5;
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

void tell(Context& context, const std::string& text) {
  context.MsgBox(text, Buttons::OK, Icon::information, Answer::OK, boxTitle);
}

// The file that a person chose; nothing when it is to stay as it is, or the dialog was cancelled.
// The template is what is proposed first, the year's own name after a file that cannot be taken.
std::optional<fs::path> chosenTarget(Context& context, const fs::path& source,
                                     const fs::path& ownName) {
  fs::path proposed = source;
  while (const auto chosen = context.dialogs.saveFile("Excel Files|*.xls", textOf(proposed))) {
    const fs::path target = withEnding(pathOf(*chosen));
    const std::string refusal = refusalOf(target, source);
    if (refusal.empty()) {
      const bool free =
          !fs::exists(target) ||
          context.MsgBox("File already exists. Do you want to overwrite it", Buttons::YesNo,
                         Icon::none, Answer::No, boxTitle) == Answer::Yes;
      return free ? std::optional(target) : std::nullopt;
    }
    tell(context, refusal);
    proposed = ownName;
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

}  // namespace

WorkbookExport::WorkbookExport(frmcrtb& form, OpenBooks& books, const LinesGrid& lines)
    : form_(form), books_(books), lines_(lines) {
  frmcrtb::on(form.mnuexport.Click, "CMDEXPORT_CLICK", [this] { CMDEXPORT_CLICK(); });
  form.cmdexport.Click = [this] { CMDEXPORT_CLICK(); };
}

void WorkbookExport::CMDEXPORT_CLICK() {
  form_.focusList();
  const fs::path source = below(books_.host().ExePath(), "\\Databases\\ORVO_TB.xls");
  if (!fs::exists(source)) {
    tell(books_.context, "Missing Source File.");
    return;
  }
  const TwoYears& years = books_.years;
  const int firstYear = yearOf(years.keys(years.yearInView()).first);
  const std::string ownName = asFileName(years.client() + " " + shortYearText(firstYear) + ending);
  const auto target =
      chosenTarget(books_.context, source, below(books_.host().DocPath(), "\\" + ownName));
  if (target) tell(books_.context, exportTo(source, *target));
}

// Returns what is to be told about how it went.
std::string WorkbookExport::exportTo(const fs::path& source, const fs::path& target) {
  const std::string name = textOf(target);
  try {
    const Busy busy(books_.host(), "Exporting to " + name + "....");
    // The spreadsheet program need not run in our folder.
    WorkingCopy copy(fs::absolute(target));
    copy.fill(source);
    const auto excel = books_.context.environment.createSpreadsheet();
    Workbook& workbook = excel->Open(textOf(copy.path()));
    const auto& sheets = workbook.Worksheets();
    const auto sheet = std::find_if(sheets.begin(), sheets.end(), [](const std::string& sheetName) {
      return upperCase(sheetName) == lineSheet;
    });
    const bool found = sheet != sheets.end();
    if (found) {
      writeRows(workbook, static_cast<int>(sheet - sheets.begin()));
      workbook.Save();
    }
    workbook.Close();
    excel->Quit();
    if (!found) return "Trial Balance cannot be saved. Worksheet not found!";
    copy.replaceTarget();
  } catch (const std::exception& error) {
    return "Error Occured : " + described(error, target) + "\r\n";
  }
  return "Data Successfully Exported to File : " + name;
}

void WorkbookExport::writeRows(Workbook& workbook, int sheet) {
  Progress& progress = books_.host().objProgress();
  const int rows = form_.vsfm.rows();
  progress.Max(rows);
  for (int row = 1; row <= rows; ++row) {
    const auto [particular, group, line] = lines_.row(row);
    const int at = firstRow + row - 1;
    workbook.Cells(sheet, at, 1, static_cast<double>(row));
    workbook.Cells(sheet, at, 2, particular);
    workbook.Cells(sheet, at, 3, group);
    if (line) {
      const int column = line->isCredit() ? creditColumn : debitColumn;
      workbook.Cells(sheet, at, column, Money::rounded(line->amount).rupees());
    }
    progress.update_pg();
  }
}

}  // namespace quillet
