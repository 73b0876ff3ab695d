#include "app/run_script.h"

#include <csignal>
#include <iostream>

#include "app/display.h"
#include "app/new_folder.h"
#include "app/start_questions.h"
#include "desktop/pdf.h"
#include "desktop/text.h"
#include "script/engine.h"
#include "suite/headless_front_end.h"

namespace quillet::app {
namespace {

namespace fs = std::filesystem;

// A pause after each step on a real display, where a person watches.
constexpr int pauseMs = 200;

QString toQt(const fs::path& path) { return desktop::toQt(path.string()); }

// Asked to end, the program closes the books and leaves the years that it has open; asked again, it
// ends at once.
void endOnRequest() {
  for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
    struct sigaction action {};
    if (sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) continue;
    action.sa_handler = script::Engine::endSoon;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    sigaction(signal, &action, nullptr);
  }
}

int play(script::Session& session, const Options& options) {
  endOnRequest();
  const auto outcome = script::Engine(session).run(options.file, options.arguments);
  if (!outcome.message.empty()) std::cerr << outcome.message << '\n';
  return outcome.status;
}

void savePdf(const script::Session& session, const suite::Document& document,
             const fs::path& path) {
  const Date today = session.clock.today();
  const auto style = desktop::ReportStyle::of(session.practice.settings());
  if (!desktop::savePdf(document, toQt(path), QDate(today.year, today.month, today.day), style)) {
    throw std::runtime_error("cannot write " + path.string());
  }
}

void savePicture(const QImage& picture, const fs::path& path) {
  if (picture.isNull()) throw std::runtime_error("there is no window to take a picture of");
  if (!picture.save(toQt(path), "PNG")) {
    throw std::runtime_error("cannot write " + path.string());
  }
}

int playHeadless(const fs::path& data, const Options& options) {
  suite::QueuedDialogs dialogs;
  suite::HeadlessFrontEnd frontEnd(dialogs);
  suite::FixedClock clock;
  suite::Practice practice(suite::DataFolder::open(data), frontEnd, clock, scriptPolicy());
  script::Session session(practice, dialogs, clock);
  std::unique_ptr<QGuiApplication> qt;
  session.savePdf = [&](const suite::Document& document, const fs::path& path) {
    if (!qt) qt = openOffScreen();
    savePdf(session, document, path);
  };
  return play(session, options);
}

int playOnScreen(const fs::path& data, const Options& options) {
  const auto application = openDisplay();
  suite::QueuedDialogs dialogs;
  application->useDialogs(&dialogs);
  suite::FixedClock clock;
  suite::Practice practice(suite::DataFolder::open(data), *application, clock, scriptPolicy());
  application->follow(practice.context().openForms);

  script::Session session(practice, dialogs, clock);
  const int pause = QGuiApplication::platformName() == QLatin1String("offscreen") ? 0 : pauseMs;
  session.pump = [&, pause] { application->pump(pause); };
  session.savePdf = [&](const suite::Document& document, const fs::path& path) {
    savePdf(session, document, path);
  };
  session.screenshot = [&](const fs::path& path) {
    application->pump();
    savePicture(application->screenshot(), path);
  };
  const int status = play(session, options);
  application->leave();
  return status;
}

}  // namespace

int runScript(const Options& options) {
  if (!fs::is_regular_file(options.file)) {
    throw std::runtime_error("There is no script " + options.file.string() + ".");
  }
  const fs::path data = folderToOpen(options.data);
  return options.show ? playOnScreen(data, options) : playHeadless(data, options);
}

}  // namespace quillet::app
