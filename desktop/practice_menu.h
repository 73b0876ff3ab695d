// The menu of the home window for the practice as a whole, and the backups that are made by
// themselves or for another program while a person works.
#pragma once

#include <QMenu>
#include <QSocketNotifier>
#include <QTimer>
#include <functional>
#include <memory>

#include "desktop/application.h"
#include "suite/backup/backup_commands.h"
#include "suite/backup/daily_backup.h"
#include "suite/backup/request.h"
#include "suite/check/check_commands.h"

namespace quillet::desktop {

class PracticeMenu {
 public:
  // Both outlive this object, which outlives the windows.
  PracticeMenu(suite::Practice& practice, Application& application);

  // A further command, at the end.
  void add(const QString& text, const std::function<void()>& command);
  // The backup that a person chose to bring back, empty for none.
  const std::filesystem::path& toRestore() const { return backups_.chosen(); }

 private:
  void checkBooks();
  void listen();
  void serve();
  void makeDaily();
  bool busy() const;

  suite::Practice& practice_;
  Application& application_;
  QMenu menu_;
  suite::backup::BackupCommands backups_;
  suite::backup::DailyBackup daily_;
  suite::check::CheckCommands check_;
  QTimer timer_;
  std::unique_ptr<suite::backup::RequestSocket> socket_;
  std::unique_ptr<QSocketNotifier> asked_;
};

}  // namespace quillet::desktop
