#include "desktop/station_watch.h"

#include <QGuiApplication>
#include <chrono>

namespace quillet::desktop {

StationWatch::StationWatch(suite::Practice& practice, Application& application)
    : practice_(practice), application_(application) {
  if (!practice.environment().unit().shared()) return;
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { look(); });
  QObject::connect(qGuiApp, &QGuiApplication::applicationStateChanged, &timer_,
                   [this](Qt::ApplicationState state) {
                     if (state == Qt::ApplicationActive) look();
                   });
  timer_.start(std::chrono::seconds(10));
}

void StationWatch::look() {
  if (application_.windows().performing()) return practice_.environment().waitForPerson();
  practice_.environment().lookAround();
  application_.windows().refresh();
}

}  // namespace quillet::desktop
