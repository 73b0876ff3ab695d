#include "app/options.h"

#include <CLI/CLI.hpp>

namespace quillet::app {
namespace {

// Everything after the script's file is passed to the script, also what looks like an option.
void takeScript(const CLI::App& command, Options& options) {
  std::vector<std::string> rest = command.remaining();
  if (rest.empty()) throw ExitRequest(2, "script: FILE.lua is missing");
  if (rest.front().starts_with('-')) {
    throw ExitRequest(2, "script: there is no option " + rest.front());
  }
  options.file = rest.front();
  options.arguments.assign(rest.begin() + 1, rest.end());
}

void addServer(CLI::App& command, Options& options) {
  command.add_option("URL", options.server, "mariadb://administrator@host/database")->required();
  command
      .add_option("--account-password-file", options.passwordFile,
                  "Holds the password of a new account, and only you can read it")
      ->type_name("FILE");
}

void addServerCommands(CLI::App& app, Options& options) {
  const auto add = [&](const char* name, Options::Command command, const char* description) {
    CLI::App* added = app.add_subcommand(name, description);
    added->callback([&options, command] { options.command = command; });
    return added;
  };
  CLI::App* init = add("server-init", Options::Command::serverInit,
                       "Makes a practice on a database server, as its keeper");
  addServer(*init, options);
  init->add_option("--account", options.account, "The first person's account");
  CLI::App* account =
      add("server-account", Options::Command::serverAccount,
          "Gives a person an account on a database server, or the rights that it lacks");
  addServer(*account, options);
  account->add_option("NAME", options.account)->required();
  CLI::App* copy = add("copy", Options::Command::copy,
                       "Copies a practice to a database server, or back to a folder");
  copy->add_option("FROM", options.from, "A data folder or mariadb://user@host/database")
      ->required();
  copy->add_option("TO", options.to, "The other one, which holds nothing yet")->required();
}

std::string firstLine(const std::string& text) { return text.substr(0, text.find('\n')); }

}  // namespace

Options parseOptions(int argc, const char* const* argv) {
  Options options;
  std::string data;
  CLI::App app("Keeps the trial balances of an accounting practice.", "quillet");
  app.set_version_flag("--version", "quillet " QUILLET_VERSION);
  app.add_option("--data", data, "The data folder; without it the one in your data home")
      ->type_name("DIR");
  app.add_option("--server", options.server,
                 "The database server: mariadb://user@host[,host2...]:port/database")
      ->type_name("URL");
  app.require_subcommand(0, 1);

  CLI::App* init = app.add_subcommand("init", "Creates a data folder with the sample practice");
  init->add_flag("--empty", options.empty, "With the starter groups only");
  init->add_flag("--force", options.force, "Replaces a data folder that exists");

  CLI::App* check = app.add_subcommand("check", "Examines the books of all clients and years");
  CLI::Option* mend = check->add_flag("--mend", options.mend, "Mends what can be mended");
  check->add_flag("--yes", options.yes, "Without asking first")->needs(mend);
  check
      ->add_flag("--backed-up", options.backedUp,
                 "The books are on a server, and were backed up there")
      ->needs(mend);

  CLI::App* backup =
      app.add_subcommand("backup", "Writes a backup of the data folder, also while it is open");
  backup->add_option("FILE", options.file, "Ends in .tar.zst")->required();
  CLI::App* restore = app.add_subcommand("restore", "Brings a backup back as the data folder");
  restore->add_option("FILE", options.file)->required();
  restore->add_flag("--force", options.force, "Also in place of a practice, which is kept beside");
  restore->add_flag("--open", options.open, "Opens the window afterwards")->group("");

  CLI::App* prune = app.add_subcommand(
      "prune", "Writes the history before a day to a file and removes it from the practice");
  prune->add_option("--before", options.before, "A day at least eight years ago: 2018-03-31")
      ->required();
  prune->add_option("FILE", options.file, "Gets what is removed")->required();

  addServerCommands(app, options);

  CLI::App* script = app.add_subcommand(
      "script", "Runs a Lua script against the forms: script [--show] FILE.lua [ARG...]");
  script->add_flag("--show", options.show, "Plays on the real windows");
  script->prefix_command();

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() != 0) throw ExitRequest(2, firstLine(error.what()));
    throw ExitRequest(0, error.get_name() == "CallForVersion" ? error.what() : app.help());
  }
  if (app.count("--data") > 0 && data.empty()) throw ExitRequest(2, "--data: DIR is empty");
  options.data = data;
  if (*init) options.command = Options::Command::init;
  if (*check) options.command = Options::Command::check;
  if (*backup) options.command = Options::Command::backup;
  if (*restore) options.command = Options::Command::restore;
  if (*prune) options.command = Options::Command::prune;
  if (*script) {
    options.command = Options::Command::script;
    takeScript(*script, options);
  }
  return options;
}

}  // namespace quillet::app
