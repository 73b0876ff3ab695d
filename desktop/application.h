// The desktop as a whole: sets Qt up, shows the open forms, and is the front end through which
// the suite shows itself. One exists for the life of the program.
#pragma once

#include <QApplication>
#include <QDate>
#include <QImage>
#include <QPointer>
#include <functional>
#include <memory>

#include "desktop/busy_panel.h"
#include "desktop/dialogs.h"
#include "desktop/report_style.h"
#include "desktop/theme.h"
#include "desktop/windows.h"
#include "suite/front_end.h"

namespace quillet::desktop {

class HelpWindow;
class ReportWindow;

// The toolkit must not see an exception. The forms trap theirs; what is thrown while a window
// draws or a view acts is logged here.
class GuardedApplication : public QApplication {
 public:
  using QApplication::QApplication;
  bool notify(QObject* receiver, QEvent* event) override;
  void logTo(const OpenForms* openForms) { openForms_ = openForms; }

 private:
  void log(const std::exception& error) const noexcept;

  const OpenForms* openForms_ = nullptr;
};

class Application : public suite::FrontEnd {
 public:
  // argc and argv outlive the application. The theme follows the system until
  // preferences are used.
  Application(int& argc, char** argv);
  ~Application() override;
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

  void setTheme(theme::Scheme scheme);

  // Shows the open forms from now on. leave() before they go.
  void follow(OpenForms& openForms);
  void leave();
  // Lets a person work until the last window is closed; the exit status.
  int run();

  // --- play: a script drives the forms while their windows are shown

  // Brings the windows up to date and lets them draw; then waits, so that a person can follow.
  void pump(int pauseMs = 0);
  // Who answers message boxes and dialogs instead of a person; null gives them back. With such
  // dialogs nothing waits for a person, popup menus choose nothing.
  void useDialogs(Dialogs* dialogs) { exchanged_ = dialogs; }
  // The active window with what lies over it, empty when none is open.
  QImage screenshot() const;

  Windows& windows() { return windows_; }
  // A menu in the bar of the form of that name, beside the form's own; it outlives its windows.
  void addMenu(const std::string& form, QMenu& menu) { windows_.addMenu(form, menu); }
  // Runs when a person has closed the report that is shown now.
  void whenReportIsRead(std::function<void()> action);
  // What a report's foot says; today unless the program's clock says otherwise.
  void setPrintDate(const QDate& date) { printDate_ = date; }

  // --- suite::FrontEnd
  Dialogs& dialogs() override;
  suite::Screen screen() const override;
  void showProgress(bool show) override;
  void progressText(const std::string& text) override;
  void progressBar(long done, long total) override;
  void progressWaits() override { busy_.wait(); }
  void serverWaits(bool waits) override;
  bool progressStopped() override { return busy_.stopped(); }
  void showClient(const std::string& code, const std::string& name) override;
  int popup(const std::vector<std::string>& entries) override;
  void help(const std::string& topic) override;
  std::optional<std::string> openFile(const std::string& filter,
                                      const std::string& folder) override;
  void showReport(const suite::Document& document) override;
  void usePreferences(const suite::Settings& settings) override;
  void keepPlacesIn(suite::Settings* settings) override { windows_.places().use(settings); }

 private:
  QFont formFont() const;
  void showAbove(QWidget& window);
  void keepOwnPlaces();

  GuardedApplication qt_;
  theme::Scheme scheme_ = theme::Scheme::system;
  Windows windows_;
  BusyPanel busy_;
  DesktopDialogs own_;
  Dialogs* exchanged_ = nullptr;
  std::unique_ptr<HelpWindow> help_;
  QPointer<ReportWindow> report_;
  QDate printDate_;
  ReportStyle reportStyle_;
  bool running_ = false;
  std::string unseen_;  // a notice that came when no window was left
};

}  // namespace quillet::desktop
