// The editor's export: the lines that the grid shows, written into a copy of a template workbook.
#include <chrono>
#include <filesystem>

#include "data/text.h"
#include "editor/frmcrtb.h"
#include "host/amount.h"
#include "host/busy.h"
#include "host/error_log.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;

constexpr const char* boxTitle = "Trial Balance";
constexpr const char* sheetName = "TB";
constexpr int firstRow = 2;  // below the template's headings

fs::path pathOf(const std::string& utf8) { return std::u8string(utf8.begin(), utf8.end()); }

std::string textOf(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

std::string described(const std::exception& error) {
  const auto* file = dynamic_cast<const fs::filesystem_error*>(&error);
  return file ? file->code().message() : error.what();
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
  // A disk that is full leaves half a copy, which goes with this object.
  void fill(const fs::path& source) {
    fs::copy_file(source, path_);
    fs::permissions(path_, fs::perms::owner_read | fs::perms::owner_write, fs::perm_options::add);
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

void frmcrtb::attachExport() {
  mnuexport.Click = [this] { CMDEXPORT_CLICK(); };
  cmdexport.Click = [this] { CMDEXPORT_CLICK(); };
}

void frmcrtb::CMDEXPORT_CLICK() {
  trap("CMDEXPORT_CLICK", [&] {
    const auto tell = [&](const std::string& text) {
      context_.MsgBox(text, Buttons::OK, Icon::information, Answer::OK, boxTitle);
    };
    const std::string source = below(context_.host->ExePath(), "\\Databases\\ORVO_TB.xls");
    if (!fs::exists(pathOf(source))) {
      tell("Missing Source File.");
      return;
    }
    const auto chosen = context_.dialogs.saveFile("Excel Files|*.xls", source);
    if (!chosen) return;
    fs::path target = pathOf(*chosen);
    if (!target.has_extension()) target += ".xls";
    if (std::error_code none; fs::equivalent(pathOf(source), target, none)) {
      tell("This file is the template of the export. Please choose another file.");
      return;
    }
    if (fs::exists(target) &&
        context_.MsgBox("File already exists. Do you want to overwrite it", Buttons::YesNo,
                        Icon::none, Answer::No, boxTitle) != Answer::Yes) {
      return;
    }
    tell(exportTo(source, textOf(target)));
  });
}

// Returns what is to be told about how it went.
std::string frmcrtb::exportTo(const std::string& source, const std::string& target) {
  try {
    const Busy busy(context_, "Exporting to " + target + "....");
    // The spreadsheet program need not run in our folder.
    WorkingCopy copy(fs::absolute(pathOf(target)));
    copy.fill(pathOf(source));
    const auto excel = context_.surroundings.createSpreadsheet();
    Workbook& workbook = excel->Open(textOf(copy.path()));
    const auto& sheets = workbook.Worksheets();
    int sheet = 0;
    while (sheet < static_cast<int>(sheets.size()) &&
           upperCase(sheets[static_cast<std::size_t>(sheet)]) != sheetName) {
      ++sheet;
    }
    const bool found = sheet < static_cast<int>(sheets.size());
    if (found) {
      exportRows(workbook, sheet);
      workbook.Save();
    }
    workbook.Close();
    excel->Quit();
    if (!found) return "Trial Balance cannot be saved. Worksheet not found!";
    copy.replaceTarget();
  } catch (const std::exception& error) {
    return "Error Occured : " + described(error) + "\r\n";
  }
  return "Data Successfully Exported to File : " + target;
}

void frmcrtb::exportRows(Workbook& workbook, int sheet) {
  Progress& progress = context_.host->objProgress();
  progress.Max(vsfm.rows());
  for (int row = 1; row <= vsfm.rows(); ++row) {
    const ShownLine line = shownLine(row);
    const int at = firstRow + row - 1;
    workbook.Cells(sheet, at, 1, static_cast<double>(row));
    workbook.Cells(sheet, at, 2, line.particular);
    workbook.Cells(sheet, at, 3, line.group);
    if (line.side == "DR") workbook.Cells(sheet, at, 4, shownAmount(line.amount));
    if (line.side == "CR") workbook.Cells(sheet, at, 5, shownAmount(line.amount));
    progress.update_pg();
  }
}

}  // namespace quillet
