#include "desktop/announce.h"

#include <QAccessible>
#include <QWidget>

namespace quillet::desktop {

void announce(QWidget& widget) {
  QAccessibleEvent news(&widget, QAccessible::Alert);
  QAccessible::updateAccessibility(&news);
}

}  // namespace quillet::desktop
