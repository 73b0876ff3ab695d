// What a person hears who does not see the screen.
#pragma once

class QWidget;

namespace quillet::desktop {

// The widget says something new: what was done, what is wrong, what a key would do.
void announce(QWidget& widget);

}  // namespace quillet::desktop
