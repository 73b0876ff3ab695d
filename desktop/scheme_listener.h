// Receives the desktop portal's signal that a setting changed.
#pragma once

#include <QDBusVariant>
#include <QObject>
#include <QString>
#include <functional>

namespace quillet::desktop {

class SchemeListener : public QObject {
  Q_OBJECT
 public:
  using QObject::QObject;
  std::function<void(bool dark)> changed;

  static QString space() { return QStringLiteral("org.freedesktop.appearance"); }
  static QString key() { return QStringLiteral("color-scheme"); }
  // 1 asks for dark, 2 for light, 0 has no preference; it comes wrapped once or twice.
  static bool meansDark(QVariant value);

 public slots:
  void settingChanged(const QString& ofSpace, const QString& ofKey, const QDBusVariant& value);
};

}  // namespace quillet::desktop
