#include "suite/screen_fit.h"

#include <algorithm>

namespace quillet::suite {
namespace {

// Up to this size the system's font is right; on a larger screen it would look small.
constexpr double usualWidth = 1920;
constexpr double usualHeight = 1080;
// The room that a form needs with that font.
constexpr double neededWidth = 1300;
constexpr double neededHeight = 700;

double share(double needed, double available, double least, double most) {
  return std::clamp(needed / available, least, most);
}

}  // namespace

double fontRatio(Screen screen) {
  return std::clamp(std::min(screen.width / usualWidth, screen.height / usualHeight), 1.0, 2.0);
}

Form::Size comfortableSize(Screen screen) {
  const double font = fontRatio(screen);
  return {share(neededWidth * font, std::max(screen.width, 1), 0.7, 0.96),
          share(neededHeight * font, std::max(screen.height, 1), 0.75, 0.92), font};
}

}  // namespace quillet::suite
