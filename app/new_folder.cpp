#include "app/new_folder.h"

#include <fstream>
#include <stdexcept>

#include "suite/backup/restore.h"
#include "suite/calc_spreadsheet.h"
#include "suite/child_process.h"
#include "suite/clocks.h"
#include "suite/headless_front_end.h"
#include "suite/queued_dialogs.h"
#include "suite/sample_practice.h"
#include "suite/standalone_environment.h"
#include "suite/starter_data.h"

namespace quillet::app {
namespace {

namespace fs = std::filesystem;
using suite::DataFolder;

// This file is in a data folder until the folder is complete.
fs::path marker(const fs::path& path) { return path / "being-made"; }

void fill(const DataFolder& folder, Contents contents) {
  suite::QueuedDialogs dialogs;
  suite::HeadlessFrontEnd frontEnd(dialogs);
  suite::SystemClock clock;
  suite::Practice practice(folder, frontEnd, clock);
  suite::ActLog& log = practice.environment().actLog();
  log.alone("Starter groups", [&] { suite::installStarterData(practice.database()); });
  if (contents != Contents::sample) return;
  log.alone("Sample practice", [&] { suite::installSamplePractice(practice.database()); });
  practice.settings().setCompanyName("Sample & Associates");
}

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
  std::ofstream(marker(folder.root())) << "This data folder is not complete yet.\n";
  // LibreOffice makes the templates meanwhile. Without LibreOffice there are none, and the exports
  // say so.
  suite::TemplateMaker templates(suite::CalcOptions::standard(), folder.program());
  fillInChild(folder, contents);
  templates.finish();
  fs::remove(marker(folder.root()));
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
