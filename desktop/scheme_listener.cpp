#include "desktop/scheme_listener.h"

namespace quillet::desktop {

bool SchemeListener::meansDark(QVariant value) {
  while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
  return value.toUInt() == 1;
}

void SchemeListener::settingChanged(const QString& ofSpace, const QString& ofKey,
                                    const QDBusVariant& value) {
  if (ofSpace == space() && ofKey == key() && changed) changed(meansDark(value.variant()));
}

}  // namespace quillet::desktop
