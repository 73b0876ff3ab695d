#include "books/year_files.h"

#include <algorithm>
#include <system_error>

#include "data/paths.h"
#include "data/text.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view reportSuffixes[] = {
    "_3cd.txt",  "_3cd.rtf",  "-caur.txt", "-caur.rtf", "-dirrep.txt",  "-dirrep.rtf",
    "-mauc.txt", "-mauc.rtf", "-not.txt",  "-not.rtf",  "-notice.txt",  "-notice.rtf",
    "-sap.txt",  "-sap.rtf",  "-ta.txt",   "-ta.rtf",   "-anex3cd.txt", "-anex3cd.rtf"};

constexpr std::string_view annexurePrefixes[] = {"annex_", "annexa_", "annexb_", "annexO_"};

std::string twoDigits(int year) {
  const std::string text = std::to_string(year % 100);
  return text.size() < 2 ? "0" + text : text;
}

bool digit(char c) { return c >= '0' && c <= '9'; }

// "08-09-...": the file belongs to that year.
bool beginsWithYears(std::string_view name) {
  return name.size() >= 5 && digit(name[0]) && digit(name[1]) && name[2] == '-' && digit(name[3]) &&
         digit(name[4]);
}

bool beginsLikeAnnexure(const std::string& name) {
  const std::string capitals = upperCase(name);
  return std::any_of(
      std::begin(annexurePrefixes), std::end(annexurePrefixes),
      [&](std::string_view prefix) { return capitals.starts_with(upperCase(prefix)); });
}

// The entries of a folder, read before anything in it is deleted.
std::vector<fs::directory_entry> entriesOf(const fs::path& folder) {
  std::vector<fs::directory_entry> entries;
  for (const auto& entry : fs::directory_iterator(folder)) entries.push_back(entry);
  std::sort(entries.begin(), entries.end());
  return entries;
}

bool isOneOf(const std::string& name, const std::vector<std::string>& names) {
  return std::any_of(names.begin(), names.end(),
                     [&](const std::string& other) { return equalIgnoringCase(name, other); });
}

}  // namespace

bool namesFiles(std::string_view clientCode) {
  return !clientCode.empty() && clientCode.find("..") == std::string_view::npos &&
         std::none_of(clientCode.begin(), clientCode.end(), [](char c) {
           return c == '/' || c == '\\' || c == ':' || static_cast<unsigned char>(c) < ' ';
         });
}

bool RemoveAtOnce::remove(const fs::path& file) {
  std::error_code error;
  return fs::remove(file, error) || !error;
}

YearFiles::YearFiles(FileRemover& remover, const std::string& documents, std::string clientCode,
                     int firstYear, int secondYear)
    : remover_(remover),
      documents_(pathOf(documents)),
      client_(std::move(clientCode)),
      years_{twoDigits(firstYear), twoDigits(secondYear)} {}

void YearFiles::deleteAnnexureFolder() {
  deleteIn(
      {"Annex3CD", client_ + "-" + years_[0] + "-" + years_[1]},
      [](const std::string&) { return true; }, Folders::passedOver);
}

void YearFiles::deleteAnnexures() {
  const std::string rest = client_ + "_" + years_[0] + "_" + years_[1] + ".rtf";
  std::vector<std::string> names;
  for (const std::string_view prefix : annexurePrefixes)
    names.push_back(std::string(prefix) + rest);
  // The plain one is also written without a separator, unless that is another client's name.
  if (!beginsLikeAnnexure("annex" + rest)) names.push_back("annex" + rest);
  deleteIn({"annexdata"}, [&](const std::string& name) { return isOneOf(name, names); });
}

void YearFiles::deleteReports() {
  const std::string years = years_[0] + "-" + years_[1];
  const std::vector<std::string> folder{"files", "C-" + client_};
  for (const std::string_view suffix : reportSuffixes) {
    deleteIn(folder, [&](const std::string& name) {
      return equalIgnoringCase(name, years + std::string(suffix));
    });
  }
  deleteIn(
      folder,
      [&](const std::string& name) {
        const std::string capitals = upperCase(name);
        // A copy of this year's report that was filed under another year is that year's.
        const bool ours = !beginsWithYears(name) || name.starts_with(years);
        return ours && capitals.ends_with(".RTF") && capitals.find(years) != std::string::npos &&
               capitals.find("-MISC") != std::string::npos;
      },
      Folders::passedOver);
}

void YearFiles::deleteIn(const std::vector<std::string>& folders, const Wanted& wanted,
                         Folders met) {
  deleteBelow(documents_, folders, 0, wanted, met);
}

void YearFiles::deleteBelow(const fs::path& folder, const std::vector<std::string>& folders,
                            std::size_t depth, const Wanted& wanted, Folders met) {
  try {
    if (depth == folders.size()) {
      deleteFiles(folder, wanted, met);
      return;
    }
    for (const fs::directory_entry& entry : entriesOf(folder)) {
      if (!equalIgnoringCase(textOf(entry.path().filename()), folders[depth])) continue;
      if (entry.is_symlink()) {
        fail(entry.path());
      } else if (entry.is_directory()) {
        deleteBelow(entry.path(), folders, depth + 1, wanted, met);
      }
    }
  } catch (const fs::filesystem_error& error) {
    if (error.code() != std::errc::no_such_file_or_directory) fail(folder);
  }
}

void YearFiles::deleteFiles(const fs::path& folder, const Wanted& wanted, Folders folders) {
  for (const fs::directory_entry& entry : entriesOf(folder)) {
    if (!wanted(textOf(entry.path().filename()))) continue;
    // A link is removed itself; what it leads to stays.
    if (entry.symlink_status().type() == fs::file_type::directory) {
      if (folders == Folders::inTheWay) fail(entry.path());
    } else if (!remover_.remove(entry.path())) {
      fail(entry.path());
    }
  }
}

void YearFiles::fail(const fs::path& path) {
  const std::string name = textOf(path.lexically_relative(documents_));
  if (std::find(failed_.begin(), failed_.end(), name) == failed_.end()) failed_.push_back(name);
}

}  // namespace quillet
