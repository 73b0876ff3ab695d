#include "desktop/system_scheme.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QVariant>

#include "desktop/scheme_listener.h"

namespace quillet::desktop {
namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");

// A portal that is there answers at once; one that is not must not hold up the start.
constexpr int answerWithinMs = 250;

}  // namespace

bool systemPrefersDark() {
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return false;
  QDBusMessage ask = QDBusMessage::createMethodCall(service, path, interface, "Read");
  ask << SchemeListener::space() << SchemeListener::key();
  const QDBusMessage answer = bus.call(ask, QDBus::Block, answerWithinMs);
  if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty()) return false;
  return SchemeListener::meansDark(answer.arguments().constFirst());
}

void onSystemSchemeChange(std::function<void(bool)> changed) {
  static SchemeListener* listener = nullptr;
  if (!listener) {
    listener = new SchemeListener(QCoreApplication::instance());
    QObject::connect(listener, &QObject::destroyed, [] { listener = nullptr; });
    QDBusConnection::sessionBus().connect(service, path, interface, "SettingChanged", listener,
                                          SLOT(settingChanged(QString, QString, QDBusVariant)));
  }
  listener->changed = std::move(changed);
}

}  // namespace quillet::desktop
