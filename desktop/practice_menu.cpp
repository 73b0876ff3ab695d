#include "desktop/practice_menu.h"

#include <QApplication>

namespace quillet::desktop {
namespace {

using std::chrono::milliseconds;

// The window and its first keys come first.
constexpr milliseconds untilFirst{3'000}, whileBusy{1'000};

}  // namespace

PracticeMenu::PracticeMenu(suite::Practice& practice, Application& application)
    : practice_(practice),
      application_(application),
      menu_(QObject::tr("Pract&ice")),
      backups_(practice),
      daily_(practice.database(), practice.folder(), practice.environment().clock(),
             [this](const std::string& text) {
               practice_.frontEnd().notices().add(
                   practice_.environment().clock().now().substr(11, 5), text);
             }),
      check_(practice) {
  add(QObject::tr("&Back Up..."), [this] { backups_.backUp(); });
  add(QObject::tr("&Restore..."), [this] { backups_.restore(); });
  add(QObject::tr("&Check the Books..."), [this] { checkBooks(); });
  application.addMenu("third", menu_);
  timer_.setSingleShot(true);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { makeDaily(); });
  timer_.start(untilFirst);
  listen();
}

void PracticeMenu::add(const QString& text, const std::function<void()>& command) {
  QObject::connect(menu_.addAction(text), &QAction::triggered, &menu_, [this, command] {
    command();
    application_.windows().refresh();
  });
}

void PracticeMenu::checkBooks() {
  if (busy() || !check_.examine()) return;
  application_.whenReportIsRead([this] {
    if (!busy()) check_.offerMending();
    application_.windows().refresh();
  });
}

bool PracticeMenu::busy() const { return backups_.busy() || application_.windows().performing(); }

void PracticeMenu::makeDaily() { timer_.start(busy() ? whileBusy : daily_.step()); }

// Where there can be no socket, a backup is made from the menu.
void PracticeMenu::listen() {
  try {
    socket_ = std::make_unique<suite::backup::RequestSocket>(practice_.folder().root());
  } catch (const std::runtime_error&) {
    return;
  }
  asked_ = std::make_unique<QSocketNotifier>(socket_->descriptor(), QSocketNotifier::Read);
  QObject::connect(asked_.get(), &QSocketNotifier::activated, &timer_, [this] { serve(); });
}

void PracticeMenu::serve() {
  socket_->answer([this](const std::filesystem::path& file) {
    if (application_.windows().performing()) {
      throw std::runtime_error("The running Quillet is busy. Try again.");
    }
    backups_.write(file);
  });
}

}  // namespace quillet::desktop
