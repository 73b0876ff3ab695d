#include "app/run_desktop.h"

#include "app/display.h"
#include "app/new_folder.h"
#include "app/run_backup.h"
#include "app/start_questions.h"
#include "desktop/ending_signals.h"
#include "desktop/practice_menu.h"
#include "desktop/station_watch.h"
#include "suite/calc_spreadsheet.h"
#include "suite/clocks.h"
#include "suite/practice_commands.h"
#include "suite/standalone_environment.h"

namespace quillet::app {
namespace {

// Returns the exit status. `toRestore` becomes the backup that a person chose to bring back.
int runApplication(desktop::Application& application, const suite::DataFolder& folder,
                   const std::string& firstMessage, std::filesystem::path& toRestore) {
  suite::SystemClock clock;
  // A folder without the templates, made without LibreOffice for instance, gets them while a person
  // works.
  suite::TemplateMaker templates(suite::CalcOptions::standard(), folder.program());
  suite::Practice practice(folder, application, clock, askingPolicy(application.dialogs()));
  desktop::PracticeMenu menu(practice, application);
  const desktop::StationWatch watch(practice, application);
  const desktop::EndingSignals ending;
  application.follow(practice.context().openForms);
  practice.forms().ObjThird()->show();
  if (!firstMessage.empty()) {
    application.dialogs().MsgBox({firstMessage, "Quillet", Buttons::OK, Icon::information});
  }
  practice.commands().askForFirm();
  const int status = application.run();
  application.leave();
  toRestore = menu.toRestore();
  templates.finish();
  return status;
}

// For somebody who started the program from a menu and sees no terminal.
void showError(desktop::Application& application, const std::string& text) {
  application.dialogs().MsgBox({text, "Quillet", Buttons::OK, Icon::critical});
}

}  // namespace

int runDesktop(const Options& options, const std::string& firstMessage) {
  std::unique_ptr<desktop::Application> application;
  try {
    // A new folder is made in a child process, which must be forked before Qt starts threads.
    const suite::DataFolder folder = suite::DataFolder::open(folderToOpen(options.data));
    application = openDisplay();
    std::filesystem::path toRestore;
    const int status = runApplication(*application, folder, firstMessage, toRestore);
    if (!toRestore.empty()) {
      application.reset();
      restartToRestore(toRestore, folder.root());
    }
    return status;
  } catch (const std::exception& error) {
    if (!application && hasDisplay()) application = openDisplay();
    if (application) showError(*application, error.what());
    throw;
  }
}

}  // namespace quillet::app
