#include "windows/ui/dpi.h"

#include "windows/ui/this_module.h"

namespace quillet::windows {
namespace {

UINT systemDpi() {
  const HDC screen = GetDC(nullptr);
  const int dpi = screen ? GetDeviceCaps(screen, LOGPIXELSY) : 0;
  if (screen) ReleaseDC(nullptr, screen);
  return dpi > 0 ? static_cast<UINT>(dpi) : usualDpi;
}

int rescaled(int pixels, UINT dpi) {
  return MulDiv(pixels, static_cast<int>(dpi), static_cast<int>(systemDpi()));
}

}  // namespace

UINT dpiOf(HWND window) {
  using GetDpiForWindow = UINT(WINAPI*)(HWND);
  static const auto ask = systemFunction<GetDpiForWindow>(L"user32.dll", "GetDpiForWindow");
  const UINT dpi = ask && window ? ask(window) : 0;
  return dpi > 0 ? dpi : systemDpi();
}

NONCLIENTMETRICSW systemMetrics(UINT dpi) {
  using ForDpi = BOOL(WINAPI*)(UINT, UINT, void*, UINT, UINT);
  static const auto ask = systemFunction<ForDpi>(L"user32.dll", "SystemParametersInfoForDpi");
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  if (ask && ask(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, dpi)) return metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  metrics.lfMessageFont.lfHeight = rescaled(metrics.lfMessageFont.lfHeight, dpi);
  return metrics;
}

int systemMeasure(int index, UINT dpi) {
  using ForDpi = int(WINAPI*)(int, UINT);
  static const auto ask = systemFunction<ForDpi>(L"user32.dll", "GetSystemMetricsForDpi");
  return ask ? ask(index, dpi) : rescaled(GetSystemMetrics(index), dpi);
}

}  // namespace quillet::windows
