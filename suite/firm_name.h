// The name of the firm whose practice it is, as it stands at the head of every report.
#pragma once

#include <string>

#include "controls/text_box.h"
#include "ports/ports.h"
#include "suite/settings.h"

namespace quillet::suite {

// Keeps the name that was typed. One that is too long is refused with a message; the box has the
// focus then, and false is returned.
bool keepFirmName(Settings& settings, Dialogs& dialogs, TextBox& box);

}  // namespace quillet::suite
