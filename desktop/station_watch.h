// Where several stations work on the same books: shows from time to time what the others have
// stored, and at once when a person comes back to the program.
#pragma once

#include <QObject>
#include <QTimer>

#include "desktop/application.h"
#include "suite/standalone_environment.h"

namespace quillet::desktop {

class StationWatch {
 public:
  StationWatch(suite::Practice& practice, Application& application);

 private:
  void look();

  suite::Practice& practice_;
  Application& application_;
  QTimer timer_;
};

}  // namespace quillet::desktop
