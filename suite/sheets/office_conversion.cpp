#include "suite/sheets/office_conversion.h"

#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "suite/helper_process.h"
#include "suite/sheets/compound_file.h"
#include "suite/sheets/stored_values.h"

namespace quillet::suite {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

class PrivateFolder {
 public:
  PrivateFolder() {
    std::error_code ignored;
    std::string pattern = (fs::temp_directory_path(ignored) / "quillet-import-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
      throw SourceError("cannot be converted: there is no room for a temporary folder.");
    }
    path_ = pattern;
  }
  ~PrivateFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  PrivateFolder(const PrivateFolder&) = delete;
  PrivateFolder& operator=(const PrivateFolder&) = delete;
  const fs::path& path() const { return path_; }

 private:
  fs::path path_;
};

struct OfficeKind {
  const char* ending;   // LibreOffice looks at it, too
  const char* filter;   // "" where it finds out by itself
  bool stores = false;  // whether it can keep the values of formulas
};

OfficeKind officeKind(ContentKind kind) {
  switch (kind) {
    case ContentKind::openDocument:
      return {".ods", "calc8"};
    case ContentKind::binaryZip:
      return {".xlsb", "Calc MS Excel 2007 Binary", true};
    case ContentKind::xmlWorkbook:
      return {".xml", "MS Excel 2003 XML"};
    case ContentKind::flatDocument:
      return {".fods", "OpenDocument Spreadsheet Flat XML"};
    default:
      return {".xls", "", true};
  }
}

void writeFile(const fs::path& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) throw SourceError("cannot be converted: the disk for temporary files is full.");
}

std::string readFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

[[noreturn]] void refuseConversion(const std::string& why) {
  throw SourceError("cannot be converted to a workbook of today: " + why +
                    ". Open it in a spreadsheet program, save it as .xlsx and import that.");
}

[[noreturn]] void helperIsMissing(const std::string& why) {
  throw SourceError(
      "is a workbook of a kind that only LibreOffice reads, and LibreOffice does not start: " +
      why +
      ". Install libreoffice-calc-nogui and ure, or save the workbook as .xlsx and import that.");
}

// False when `goesOn` ended it.
bool awaitAnswer(HelperProcess& helper, const CalcOptions& options, const GoesOn& goesOn) {
  // Nobody knows how long it takes; the indicator nears its end ever more slowly.
  constexpr auto usual = 4'000ms;
  const auto begin = std::chrono::steady_clock::now();
  while (!helper.answersWithin(100ms)) {
    const auto passed = std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now() - begin);
    if (!goesOn(static_cast<int>(100 * passed / (passed + usual)))) return false;
    if (passed > options.limit) refuseConversion("LibreOffice takes too long");
  }
  return true;
}

}  // namespace

std::optional<ConvertedWorkbook> convertedWorkbook(std::string_view bytes, ContentKind kind,
                                                   const CalcOptions& options,
                                                   const GoesOn& goesOn) {
  const PrivateFolder folder;
  const OfficeKind how = officeKind(kind);
  const fs::path from = folder.path() / (std::string("book") + how.ending);
  const fs::path to = folder.path() / "converted.xlsx";
  const fs::path stored = how.stores ? folder.path() / "stored.xlsx" : fs::path();
  writeFile(from, how.stores ? std::string(bytes) : withStoredValues(bytes, kind));
  if (access(options.program.c_str(), X_OK) != 0) {
    helperIsMissing(options.program.string() + " is missing");
  }
  CalcLine answer;
  try {
    HelperProcess helper(options.program,
                         {"--convert", from.string(), to.string(), stored.string(), how.filter},
                         options.limit);
    if (!awaitAnswer(helper, options, goesOn)) return {};
    answer = calcLine(helper.receiveLine());
  } catch (const SourceError&) {
    throw;
  } catch (const std::runtime_error& error) {
    helperIsMissing(error.what());
  }
  if (answer.front() == "ok") return ConvertedWorkbook{readFile(to), readFile(stored)};
  if (CompoundFile(bytes).saysEncrypted()) {
    throw SourceError(
        "is locked by a password. Open it in a spreadsheet program, save it without a password and "
        "import that.");
  }
  refuseConversion(answer.size() > 1 ? answer[1] : "LibreOffice failed");
}

}  // namespace quillet::suite
