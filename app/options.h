// The command line.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillet::app {

struct Options {
  enum class Command {
    open,
    init,
    check,
    backup,
    restore,
    prune,
    script,
    serverInit,
    serverAccount,
    copy
  };
  Command command = Command::open;

  std::filesystem::path data;  // empty: the folder in the user's data home
  std::string server;          // mariadb://user@host/database; "": the data folder names it, if any
  bool empty = false;          // init: the starter groups only
  bool force = false;          // init, restore: replaces a data folder that exists

  bool open = false;  // restore: opens the window afterwards

  bool mend = false;      // check: mends what can be mended
  bool backedUp = false;  // check: books on a server were backed up there
  bool yes = false;       // check: without asking first

  std::string account;                 // server-init, server-account: the station's
  std::filesystem::path passwordFile;  // and the file with its password
  std::string from, to;                // copy: a data folder and a server

  std::string before;  // prune: "2018-03-31"

  bool show = false;  // script: plays on the real windows
  std::filesystem::path file;
  std::vector<std::string> arguments;
};

// Ends the program early: the help or the version was asked for, or the usage was wrong.
class ExitRequest : public std::runtime_error {
 public:
  ExitRequest(int status, const std::string& text) : std::runtime_error(text), status_(status) {}
  // 0: the text goes to standard output; 2: to standard error.
  int status() const { return status_; }

 private:
  int status_;
};

// Throws ExitRequest.
Options parseOptions(int argc, const char* const* argv);

}  // namespace quillet::app
