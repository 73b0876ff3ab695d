// The entry point of the program.
#include <sys/stat.h>

#include <clocale>
#include <csignal>
#include <exception>
#include <iostream>
#include <new>
#include <string_view>

#include "app/display.h"
#include "app/last_words.h"
#include "app/new_folder.h"
#include "app/options.h"
#include "app/run_backup.h"
#include "app/run_check.h"
#include "app/run_desktop.h"
#include "app/run_script.h"
#include "app/run_server.h"
#include "suite/data_folder.h"

namespace {

using quillet::app::Options;

// What a server was named for is done in the data folder of this station.
Options atStation(Options options) {
  using Command = Options::Command;
  const bool keepers =
      options.command == Command::serverInit || options.command == Command::serverAccount;
  if (options.server.empty() || keepers) return options;
  for (const Command command : {Command::open, Command::script, Command::check, Command::prune}) {
    if (command != options.command) continue;
    options.data = quillet::app::folderForServer(options.data, options.server);
    return options;
  }
  throw quillet::app::ExitRequest(2, "--server: this command is for data folders");
}

int run(const Options& options) {
  quillet::app::prepareLastWords(options.command == Options::Command::open &&
                                 quillet::app::hasDisplay());
  switch (options.command) {
    case Options::Command::init:
      quillet::app::makeFolder(
          options.data.empty() ? quillet::suite::DataFolder::standard() : options.data,
          options.empty ? quillet::app::Contents::starterGroups : quillet::app::Contents::sample,
          options.force);
      return 0;
    case Options::Command::check:
      return quillet::app::runCheck(options);
    case Options::Command::prune:
      return quillet::app::runPrune(options);
    case Options::Command::backup:
      return quillet::app::runBackup(options);
    case Options::Command::restore:
      return quillet::app::runRestore(options);
    case Options::Command::script:
      return quillet::app::runScript(options);
    case Options::Command::serverInit:
      return quillet::app::runServerInit(options);
    case Options::Command::serverAccount:
      return quillet::app::runServerAccount(options);
    case Options::Command::copy:
      return quillet::app::runCopy(options);
    case Options::Command::open:
      break;
  }
  return quillet::app::runDesktop(options, quillet::app::takeFirstMessage());
}

}  // namespace

int main(int argc, char** argv) {
  // Text is UTF-8 and numbers have a decimal point, whatever the user's locale.
  std::setlocale(LC_CTYPE, "C.UTF-8");
  // A file that grows beyond a limit is an error that is told, and not the end.
  std::signal(SIGXFSZ, SIG_IGN);
  // What we write we can read again.
  umask(umask(077) & 077);
  try {
    if (argc == 2 && argv[1] == std::string_view(quillet::app::lastWordsOption)) {
      return quillet::app::showLastWords();
    }
    return run(atStation(quillet::app::parseOptions(argc, argv)));
  } catch (const quillet::app::ExitRequest& request) {
    (request.status() == 0 ? std::cout : std::cerr)
        << (request.status() == 0 ? "" : "quillet: ") << request.what() << '\n';
    return request.status();
  } catch (const std::bad_alloc&) {
    std::cerr << "quillet: There is not enough memory.\n";
    return 1;
  } catch (const std::exception& error) {
    std::cerr << "quillet: " << error.what() << '\n';
    return 1;
  } catch (...) {
    std::cerr << "quillet: Something else than an error was thrown.\n";
    return 1;
  }
}
