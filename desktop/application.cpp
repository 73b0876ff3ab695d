#include "desktop/application.h"

#include <QCursor>
#include <QElapsedTimer>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScreen>
#include <QThread>
#include <QWindow>
#include <stdexcept>

#include "controls/letter_search.h"
#include "desktop/form_window.h"
#include "desktop/help_topics.h"
#include "desktop/help_window.h"
#include "desktop/report_window.h"
#include "desktop/screenshot.h"
#include "desktop/text.h"
#include "suite/preferences.h"
#include "view/figure_groups.h"

namespace quillet::desktop {
namespace {

constexpr const char* helpPlace = "Help";
constexpr const char* reportPlace = "Report";

}  // namespace

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (const std::exception& error) {
    log(error);
  } catch (...) {
    log(std::runtime_error("Something else than an error was thrown."));
  }
  return false;
}

void GuardedApplication::log(const std::exception& error) const noexcept {
  try {
    if (openForms_ && openForms_->onError) openForms_->onError("desktop\tNOTIFY", error);
  } catch (...) {
    // There is nowhere else to report a log that cannot be written.
  }
}

Application::Application(int& argc, char** argv) : qt_(argc, argv), own_(windows_, busy_) {
  // Letters in an open list search together as long as those in a closed one.
  QApplication::setKeyboardInputInterval(static_cast<int>(LetterSearch::pause.count()));
  QApplication::setApplicationName(QStringLiteral("quillet"));
  QApplication::setApplicationDisplayName(QStringLiteral("Quillet"));
  QApplication::setDesktopFileName(QStringLiteral("quillet"));
  // OpenForms says when the last form is closed; a help window left open does not keep the program.
  QApplication::setQuitOnLastWindowClosed(false);
  setTheme(theme::Scheme::system);
  // Without an event loop of the program's own, exit() would end that of the next dialog.
  windows_.onLastClosed = [this] {
    if (running_) QCoreApplication::exit(0);
  };
  notices().onChanged = [this] {
    windows_.setNotices(notices().open());
    const bool seen = windows_.front() || notices().open().empty();
    unseen_ = seen ? std::string() : notices().open().back();
  };
  windows_.onNoticesClosed = [this] { notices().close(); };
  windows_.onHelp = [this](Form& form) {
    const HelpTopic* topic = helpOfForm(form.name());
    help(topic ? fromQt(topic->id) : std::string());
  };
}

Application::~Application() {
  leave();
  delete report_;
}

void Application::follow(OpenForms& openForms) {
  qt_.logTo(&openForms);
  windows_.follow(openForms);
}

void Application::leave() {
  qt_.logTo(nullptr);
  keepOwnPlaces();
  windows_.leave();
}

void Application::setTheme(theme::Scheme scheme) {
  scheme_ = scheme;
  theme::apply(scheme);
}

void Application::usePreferences(const suite::Settings& settings) {
  const theme::Scheme scheme = theme::wanted(suite::preferences::theme.in(settings));
  if (scheme != scheme_) setTheme(scheme);
  view::setGrouping(view::groupingNamed(suite::preferences::grouping.in(settings)));
  windows_.redraw();
  reportStyle_ = ReportStyle::of(settings);
  if (report_) report_->use(reportStyle_);
  for (QWidget* widget : QApplication::allWidgets()) widget->update();
}

int Application::run() {
  if (!windows_.front()) return 0;
  const QScopedValueRollback<bool> running(running_, true);
  const int status = QApplication::exec();
  // What failed as the last window closed.
  if (!unseen_.empty()) own_.MsgBox({unseen_, "Quillet", Buttons::OK, Icon::exclamation});
  return status;
}

void Application::pump(int pauseMs) {
  windows_.refresh();
  QElapsedTimer since;
  since.start();
  do {
    QApplication::processEvents(QEventLoop::AllEvents, 20);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (pauseMs > 0) QThread::msleep(5);
  } while (since.elapsed() < pauseMs);
}

QImage Application::screenshot() const {
  QWidget* front = windows_.front();
  if (QWidget* active = QApplication::activeWindow(); active && active == report_) front = active;
  return desktop::screenshot(front);
}

// --- front end ----------------------------------------------------------------------------------

Dialogs& Application::dialogs() { return exchanged_ ? *exchanged_ : own_; }

suite::Screen Application::screen() const {
  const QSize size = QApplication::primaryScreen()->size();
  return {size.width(), size.height()};
}

void Application::showProgress(bool show) {
  if (show) {
    busy_.begin(windows_.front());
  } else {
    busy_.end();
  }
}

void Application::progressText(const std::string& text) { busy_.setText(toQt(text)); }

void Application::progressBar(long done, long total) { busy_.setBar(done, total); }

void Application::serverWaits(bool waits) {
  if (waits) {
    busy_.hold(windows_.front(), QObject::tr("Waiting for the database server ..."));
  } else {
    busy_.goOn();
  }
}

void Application::showClient(const std::string& code, const std::string& name) {
  windows_.setFootnote(code.empty() ? QString() : toQt(code + "  " + name));
}

int Application::popup(const std::vector<std::string>& entries) {
  if (exchanged_) return 0;
  windows_.refresh();
  QMenu menu;
  menu.setFont(formFont());
  int position = 0;
  for (const std::string& entry : entries) {
    ++position;
    if (entry == "-") {
      menu.addSeparator();
    } else {
      menu.addAction(toQt(entry))->setData(position);
    }
  }
  // From the menu key it opens at the control, from the mouse under the pointer.
  QWidget* focus = QApplication::focusWidget();
  const bool pointed = focus && focus->rect().contains(focus->mapFromGlobal(QCursor::pos()));
  const QPoint place =
      pointed || !focus ? QCursor::pos() : focus->mapToGlobal(focus->rect().center());
  const QAction* chosen = menu.exec(place);
  return chosen ? chosen->data().toInt() : 0;
}

// What stands beside a form is read with the same eyes.
QFont Application::formFont() const {
  const FormWindow* front = windows_.front();
  return front ? front->font() : QFont();
}

// Above the window in front, and usable while that one is modal.
void Application::showAbove(QWidget& window) {
  window.winId();
  if (FormWindow* front = windows_.front()) {
    window.windowHandle()->setTransientParent(front->windowHandle());
  }
  window.show();
  KeptPlaces::shown(window);
  window.raise();
  window.activateWindow();
}

void Application::help(const std::string& topic) {
  if (!help_) {
    help_ = std::make_unique<HelpWindow>(formFont());
    windows_.places().restore(*help_, helpPlace);
    if (const auto share = windows_.places().divider(helpPlace)) help_->divide(*share);
  }
  help_->showTopic(toQt(topic));
  showAbove(*help_);
}

std::optional<std::string> Application::openFile(const std::string& filter,
                                                 const std::string& folder) {
  return exchanged_ ? exchanged_->saveFile(filter, folder) : own_.openFile(filter, folder);
}

void Application::showReport(const suite::Document& document) {
  if (report_) windows_.places().keep(*report_, reportPlace);
  delete report_;
  report_ = new ReportWindow(document, printDate_.isValid() ? printDate_ : QDate::currentDate(),
                             reportStyle_, formFont());
  windows_.places().restore(*report_, reportPlace);
  showAbove(*report_);
}

// Of the windows that are no form's.
void Application::keepOwnPlaces() {
  if (report_) windows_.places().keep(*report_, reportPlace);
  if (!help_) return;
  windows_.places().keep(*help_, helpPlace);
  windows_.places().keepDivider(helpPlace, help_->division());
}

void Application::whenReportIsRead(std::function<void()> action) {
  if (report_) report_->onClosed = std::move(action);
}

}  // namespace quillet::desktop
