#include "windows/component/form_link.h"

#include <algorithm>
#include <cmath>

#include "windows/com/errors.h"
#include "windows/ui/dpi.h"

namespace quillet::windows {
namespace {

constexpr int twipsInInch = 1440;

}  // namespace

Form& FormLink::form() const {
  const std::shared_ptr<Form> form = known.lock();
  if (!form || !windows) throw errorOf(CO_E_OBJNOTCONNECTED, "PrjQuillet");
  return *form;
}

void FormLink::perform(const std::function<void(Form&)>& action) const {
  Form& asked = form();
  windows->perform([&] { action(asked); });
}

HWND FormLink::window() const {
  const std::shared_ptr<Form> form = known.lock();
  return form && windows ? windows->windowOf(*form) : nullptr;
}

int twips(int pixels, HWND window) {
  return MulDiv(pixels, twipsInInch, static_cast<int>(dpiOf(window)));
}

int pixels(double twips, HWND window) {
  // What no screen can show is cut to what a window can be told.
  const double wanted = twips * dpiOf(window) / twipsInInch;
  return static_cast<int>(std::lround(std::clamp(wanted, -32000.0, 32000.0)));
}

}  // namespace quillet::windows
