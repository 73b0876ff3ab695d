#include "app/new_folder.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <stdexcept>

#include "suite/backup/restore.h"
#include "suite/calc_spreadsheet.h"
#include "suite/child_process.h"
#include "suite/clocks.h"
#include "suite/headless_front_end.h"
#include "suite/queued_dialogs.h"
#include "suite/sample_practice.h"
#include "suite/server_settings.h"
#include "suite/standalone_environment.h"
#include "suite/starter_data.h"

namespace quillet::app {
namespace {

namespace fs = std::filesystem;
using suite::DataFolder;

// This file is in a data folder until the folder is complete.
fs::path marker(const fs::path& path) { return path / "being-made"; }

void fill(const DataFolder& folder, Contents contents, const suite::StartPolicy& policy = {}) {
  suite::QueuedDialogs dialogs;
  suite::HeadlessFrontEnd frontEnd(dialogs);
  suite::SystemClock clock;
  suite::Practice practice(folder, frontEnd, clock, policy);
  suite::ActLog& log = practice.environment().actLog();
  log.alone("Starter groups", [&] { suite::installStarterData(practice.database()); });
  if (contents != Contents::sample) return;
  log.alone("Sample practice", [&] { suite::installSamplePractice(practice.database()); });
  practice.settings().setCompanyName("Sample & Associates");
}

// A folder for as long as it is needed.
class ShortLived {
 public:
  ShortLived() : path_((fs::temp_directory_path() / "quillet-XXXXXX").string()) {
    if (mkdtemp(path_.data()) == nullptr) throw std::runtime_error("No folder can be made.");
  }
  ~ShortLived() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  ShortLived(const ShortLived&) = delete;
  ShortLived& operator=(const ShortLived&) = delete;
  fs::path path() const { return path_; }

 private:
  std::string path_;
};

// In a child process, because the database starts only once in each. Throws what went wrong there.
void fillInChild(const DataFolder& folder, Contents contents) {
  const auto error = suite::runInChild([&] {
    try {
      fill(folder, contents);
    } catch (const std::exception& thrown) {
      return std::string(thrown.what());
    }
    return std::string();
  });
  if (!error) throw std::runtime_error("the process that prepared the data folder ended");
  if (!error->empty()) throw std::runtime_error(*error);
}

}  // namespace

void makeFolder(const fs::path& path, Contents contents, bool replace) {
  const DataFolder folder = DataFolder::create(
      path, replace ? DataFolder::Existing::replace : DataFolder::Existing::refuse);
  markUnfinished(folder.root());
  // LibreOffice makes the templates meanwhile. Without LibreOffice there are none, and the exports
  // say so.
  suite::TemplateMaker templates(suite::CalcOptions::standard(), folder.program());
  fillInChild(folder, contents);
  templates.finish();
  markFinished(folder.root());
}

void markUnfinished(const fs::path& folder) {
  std::ofstream(marker(folder)) << "This data folder is not complete yet.\n";
}

void markFinished(const fs::path& folder) { fs::remove(marker(folder)); }

void fillServer(const suite::ServerAddress& address, const std::string& password) {
  const ShortLived temporary;
  const DataFolder folder = DataFolder::create(temporary.path() / "station");
  suite::ServerAddress known = address;
  known.passwordFile.clear();
  suite::Settings settings(folder.settings());
  suite::keepServer(settings, known);
  suite::StartPolicy policy;
  policy.mayMakeBooks = true;
  policy.askPassword = [&](const std::string&) { return std::optional(password); };
  fill(folder, Contents::starterGroups, policy);
}

fs::path stationFolder(const fs::path& named, const std::string& url) {
  if (!named.empty()) return named;
  const suite::ServerAddress address = suite::parseServerUrl(url);
  std::string name = address.database + '-' + address.place();
  std::ranges::replace_if(
      name, [](char c) { return c == '/' || c == ',' || c == ':'; }, '-');
  return DataFolder::standard().parent_path() / ("quillet-" + name);
}

fs::path folderForServer(const fs::path& named, const std::string& url) {
  const suite::ServerAddress address = suite::parseServerUrl(url);
  const DataFolder folder = [&] {
    const fs::path path = stationFolder(named, url);
    return DataFolder::isThere(path) ? DataFolder::open(path) : DataFolder::create(path);
  }();
  if (fs::exists(folder.database() / "ibdata1")) {
    throw std::runtime_error("The folder " + folder.root().string() +
                             " has books of its own. Name another one for the station with --data,"
                             " or move its books to the server with: quillet copy");
  }
  suite::Settings settings(folder.settings());
  suite::keepServer(settings, address);
  return folder.root();
}

fs::path folderToOpen(const fs::path& named) {
  fs::path path = named.empty() ? DataFolder::standard() : named;
  suite::backup::finishRestore(path);
  const bool interrupted = fs::exists(marker(path));
  if (named.empty() && (interrupted || !DataFolder::isThere(path))) {
    makeFolder(path, Contents::sample, interrupted);
  } else if (interrupted) {
    throw std::runtime_error("The folder " + path.string() +
                             " was not made completely. Make it anew with: quillet --data " +
                             path.string() + " init --force");
  }
  return path;
}

}  // namespace quillet::app
