#include "app/display.h"

#include <clocale>
#include <cstdlib>
#include <stdexcept>

namespace quillet::app {
namespace {

// Qt keeps references to its arguments and removes those that it knows, so it does not get ours.
int argumentCount = 1;
char programName[] = "quillet";
char* argumentValues[] = {programName, nullptr};

bool isSet(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

// Qt has set the user's locale; numbers keep their decimal point.
void restoreNumbers() { std::setlocale(LC_NUMERIC, "C"); }

}  // namespace

bool hasDisplay() {
  return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("QT_QPA_PLATFORM");
}

std::unique_ptr<desktop::Application> openDisplay() {
  // Qt ends the process when there is none.
  if (!hasDisplay()) throw std::runtime_error("There is no display to open a window on.");
  auto application = std::make_unique<desktop::Application>(argumentCount, argumentValues);
  restoreNumbers();
  return application;
}

std::unique_ptr<QGuiApplication> openOffScreen() {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  auto application = std::make_unique<QGuiApplication>(argumentCount, argumentValues);
  restoreNumbers();
  return application;
}

}  // namespace quillet::app
