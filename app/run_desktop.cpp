#include "app/run_desktop.h"

#include "app/display.h"
#include "app/new_folder.h"
#include "suite/clocks.h"
#include "suite/standalone.h"

namespace quillet::app {
namespace {

int work(desktop::Application& application, const std::filesystem::path& path) {
  suite::SystemClock clock;
  suite::Practice practice(suite::DataFolder::open(path), application, clock);
  application.follow(practice.context().desk);
  practice.forms().ObjThird()->show();
  const int status = application.run();
  application.leave();
  return status;
}

}  // namespace

int runDesktop(const Options& options) {
  std::unique_ptr<desktop::Application> application;
  try {
    // A child process makes a new folder, and that has to begin before Qt starts its threads.
    const std::filesystem::path path = folderToOpen(options.data);
    application = openDisplay();
    return work(*application, path);
  } catch (const std::exception& error) {
    if (!application) application = openDisplay();
    application->dialogs().MsgBox({error.what(), "Quillet", Buttons::OK, Icon::critical});
    throw;
  }
}

}  // namespace quillet::app
