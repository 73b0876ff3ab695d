// Qt as this program wants it.
#pragma once

#include <QGuiApplication>
#include <memory>

#include "desktop/application.h"

namespace quillet::app {

bool hasDisplay();
// Opens the windows' side of the program. Throws std::runtime_error when there is no display.
std::unique_ptr<desktop::Application> openDisplay();

// Just enough of Qt to write a PDF; nothing is shown.
std::unique_ptr<QGuiApplication> openOffScreen();

}  // namespace quillet::app
