#include "app/run_script.h"

#include <iostream>

#include "app/new_folder.h"
#include "script/engine.h"
#include "suite/headless_front_end.h"

namespace quillet::app {
namespace {

void mustBeReadable(const std::filesystem::path& file) {
  if (!std::filesystem::is_regular_file(file)) {
    throw std::runtime_error("there is no script " + file.string());
  }
}

int play(script::Session& session, const Options& options) {
  const auto outcome = script::Engine(session).run(options.file, options.arguments);
  if (!outcome.message.empty()) std::cerr << outcome.message << '\n';
  return outcome.status;
}

int playUnseen(const Options& options) {
  suite::QueuedDialogs dialogs;
  suite::HeadlessFrontEnd frontEnd(dialogs);
  suite::FixedClock clock;
  suite::Practice practice(suite::DataFolder::open(folderToOpen(options.data)), frontEnd, clock);
  script::Session session(practice, dialogs, clock);
  return play(session, options);
}

}  // namespace

int runScript(const Options& options) {
  mustBeReadable(options.file);
  return playUnseen(options);
}

}  // namespace quillet::app
