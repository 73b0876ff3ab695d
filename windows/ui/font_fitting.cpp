#include "windows/ui/font_fitting.h"

namespace quillet::windows {

bool fits(SIZE wanted, SIZE room) { return wanted.cx <= room.cx && wanted.cy <= room.cy; }

double fittingPart(const FormViews& views, SIZE room, UINT dpi, Metrics::Wish wish) {
  constexpr int least = 50;
  constexpr int step = 5;
  for (int percent = 100; percent > least; percent -= step) {
    wish.shrunk = percent / 100.0;
    if (fits(views.bare(Metrics(dpi, wish)), room)) return wish.shrunk;
  }
  return least / 100.0;
}

}  // namespace quillet::windows
