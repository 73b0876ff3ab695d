// How the suite shows something: in the desktop's windows, or not at all when a script or a test
// runs without a display.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ports/ports.h"
#include "suite/notices.h"
#include "suite/settings.h"

namespace quillet::suite {

class Document;  // a finished report, suite/document.h

struct Screen {
  int width = 1366;
  int height = 768;
};

class FrontEnd {
 public:
  virtual ~FrontEnd() = default;
  virtual Dialogs& dialogs() = 0;
  virtual Screen screen() const = 0;
  // The busy indicator with its text and bar (done of total; no bar when the total is 0).
  virtual void showProgress(bool show) = 0;
  virtual void progressText(const std::string& text) = 0;
  virtual void progressBar(long done, long total) = 0;
  // The work waits for another program: the indicator shows at once, and it moves. Called again and
  // again.
  virtual void progressWaits() {}
  // The database server is waited for in the midst of a statement: true again and again, false in
  // the end. Nothing else can run meanwhile, so no event may be handled.
  virtual void serverWaits(bool /*waits*/) {}
  // Whether a person wants the work to stop; asked while work runs that can.
  virtual bool progressStopped() { return false; }
  virtual void showClient(const std::string& code, const std::string& name) = 0;
  virtual int popup(const std::vector<std::string>& entries) = 0;
  virtual void help(const std::string& topic) = 0;
  // The path that a person chose to read; nothing when the dialog was cancelled.
  virtual std::optional<std::string> openFile(const std::string& filter,
                                              const std::string& folder) = 0;
  virtual void showReport(const Document& document) = 0;
  // The preferences are those of these settings from now on, in every window that is open.
  virtual void usePreferences(const Settings& /*settings*/) {}
  // Where windows stand and how wide columns are is kept in these settings until it is told
  // otherwise; null keeps nothing.
  virtual void keepPlacesIn(Settings* /*settings*/) {}
  // Shown by a line in the windows.
  Notices& notices() { return notices_; }

 private:
  Notices notices_;
};

}  // namespace quillet::suite
