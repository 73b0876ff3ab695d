// A picture of what a person sees of the program: the window in front with the dialogs, menus and
// lists that lie over it. Made from the widgets themselves, so it works without a screen too.
#pragma once

#include <QImage>

class QWidget;

namespace quillet::desktop {

// Empty when no window is open.
QImage screenshot(QWidget* front);

}  // namespace quillet::desktop
