// Ends the unit of work with each act on the open forms, and tells a person what was not done: what
// an error ended, what was taken back, which files could not be removed.
#pragma once

#include <exception>
#include <optional>
#include <string>

#include "host/context.h"
#include "suite/disk_watch.h"
#include "suite/file_removal.h"
#include "suite/notices.h"
#include "suite/unit_of_work.h"

namespace quillet::suite {

class ActKeeper {
 public:
  ActKeeper(UnitOfWork& unit, ActLog& log, FileRemoval& removal, DiskWatch& disk, Notices& notices,
            Clock& clock);
  ~ActKeeper();
  ActKeeper(const ActKeeper&) = delete;
  ActKeeper& operator=(const ActKeeper&) = delete;

  // Keeps the acts on the context's forms; it outlives this object's use of it.
  void follow(Context& context);
  void leave();
  // Between acts, on a server: looks for what other stations have stored, and shows it. A
  // connection that is lost is opened again. Nobody asked for it, so nobody is kept waiting. False
  // when the server cannot be reached, or has not answered yet.
  bool look();
  // An error ended a procedure of the form that is called `where`.
  void trapped(const std::string& where, const std::exception& error);
  // By a notice.
  void tell(const std::string& text);

 private:
  ActCause cause() const;
  bool lookAgain(const std::string& reason);
  void begins(const std::string& form, const std::string& procedure);
  void showMovement();
  void readAnew();
  void ended() noexcept;
  void endAct();
  void endUnit();
  void tellTakenBack(const std::string& reason, std::optional<bool> stored, bool keptPart);
  void removeFiles();
  void watchDisk();

  UnitOfWork& unit_;
  ActLog& log_;
  FileRemoval& removal_;
  DiskWatch& disk_;
  Notices& notices_;
  Clock& clock_;
  Context* context_ = nullptr;
  bool unread_ = false;    // the forms show what they held when the connection was lost
  bool lost_ = false;      // the connection, and a person was told
  bool stored_ = true;     // something was since the disk was looked at
  bool keptPart_ = false;  // a part of the running act stands, told or asked about
  std::string trapped_;    // what the first error of the running act was, "" when there was none
};

}  // namespace quillet::suite
