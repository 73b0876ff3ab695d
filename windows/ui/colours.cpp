#include "windows/ui/colours.h"

namespace quillet::windows {

bool highContrast() {
  HIGHCONTRASTW contrast{};
  contrast.cbSize = sizeof contrast;
  return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON);
}

COLORREF shade(int over, int under, double share) {
  const COLORREF above = GetSysColor(over);
  const COLORREF below = GetSysColor(under);
  const auto mix = [share](int a, int b) { return static_cast<BYTE>(a * share + b * (1 - share)); };
  return RGB(mix(GetRValue(above), GetRValue(below)), mix(GetGValue(above), GetGValue(below)),
             mix(GetBValue(above), GetBValue(below)));
}

}  // namespace quillet::windows
