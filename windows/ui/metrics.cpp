#include "windows/ui/metrics.h"

#include <algorithm>
#include <cmath>
#include <cwchar>

#include "windows/com/text.h"
#include "windows/ui/dpi.h"

namespace quillet::windows {
namespace {

// A drawing surface to measure on.
class Paper {
 public:
  explicit Paper(HFONT font) : dc_(GetDC(nullptr)), before_(SelectObject(dc_, font)) {}
  ~Paper() {
    SelectObject(dc_, before_);
    ReleaseDC(nullptr, dc_);
  }
  Paper(const Paper&) = delete;
  Paper& operator=(const Paper&) = delete;
  HDC dc() const { return dc_; }

 private:
  HDC dc_;
  HGDIOBJ before_;
};

LOGFONTW fontWanted(UINT dpi, const Metrics::Wish& wish) {
  LOGFONTW font = systemMetrics(dpi).lfMessageFont;
  if (wish.points) {
    font.lfHeight = -static_cast<LONG>(std::lround(*wish.points * dpi / 72));
  } else {
    font.lfHeight = static_cast<LONG>(std::lround(font.lfHeight * wish.factor));
  }
  if (font.lfHeight == 0) font.lfHeight = -1;
  const std::wstring name = wide(wish.name);
  if (!name.empty() && name.size() < LF_FACESIZE) std::wcscpy(font.lfFaceName, name.c_str());
  return font;
}

}  // namespace

Metrics::Metrics(UINT dpi, const Wish& wish) : dpi_(dpi) {
  LOGFONTW font = fontWanted(dpi, wish);
  font_ = CreateFontIndirectW(&font);
  LOGFONTW other = font;
  other.lfWeight = std::max<LONG>(FW_BOLD, font.lfWeight);
  bold_ = CreateFontIndirectW(&other);
  other = font;
  other.lfHeight = static_cast<LONG>(std::lround(font.lfHeight * 0.92));
  quiet_ = CreateFontIndirectW(&other);

  const Paper paper(font_);
  TEXTMETRICW text{};
  GetTextMetricsW(paper.dc(), &text);
  SIZE digit{};
  GetTextExtentPoint32W(paper.dc(), L"0", 1, &digit);
  constexpr double usualLine = 15;  // of the system's font at the usual resolution
  line_ = std::max<int>(1, text.tmHeight);
  digit_ = std::max<int>(1, digit.cx);
  step_ = std::max(4, static_cast<int>(std::lround(8 * line_ / usualLine)));
  box_ = line_ + step_;
  row_ = line_ + std::max(2, step_ * 3 / 4);
}

Metrics::~Metrics() {
  for (const HFONT font : {font_, bold_, quiet_}) DeleteObject(font);
}

int Metrics::widthOf(std::wstring_view text, bool plain) const {
  if (text.empty()) return 0;
  const Paper paper(font_);
  RECT room{};
  const UINT marks = plain ? DT_NOPREFIX : 0;
  DrawTextW(paper.dc(), text.data(), static_cast<int>(text.size()), &room,
            DT_CALCRECT | DT_SINGLELINE | marks);
  return room.right;
}

}  // namespace quillet::windows
