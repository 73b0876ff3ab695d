// Starts Qt, with windows or without.
#pragma once

#include <QGuiApplication>
#include <memory>

#include "desktop/application.h"

namespace quillet::app {

bool hasDisplay();
// With windows. Throws std::runtime_error when there is no display.
std::unique_ptr<desktop::Application> openDisplay();

// Without windows: enough to write a PDF.
std::unique_ptr<QGuiApplication> openOffScreen();

}  // namespace quillet::app
