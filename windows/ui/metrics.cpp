#include "windows/ui/metrics.h"

#include <algorithm>
#include <cmath>
#include <cwchar>

#include "view/access_keys.h"
#include "windows/com/text.h"
#include "windows/ui/dpi.h"

namespace quillet::windows {
namespace {

LOGFONTW fontWanted(UINT dpi, const Metrics::Wish& wish) {
  LOGFONTW font = systemMetrics(dpi).lfMessageFont;
  if (wish.points) {
    font.lfHeight = -static_cast<LONG>(std::lround(*wish.points * dpi / 72));
  } else {
    font.lfHeight = static_cast<LONG>(std::lround(font.lfHeight * wish.factor));
  }
  font.lfHeight = static_cast<LONG>(std::lround(font.lfHeight * wish.shrunk));
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

  paper_ = CreateCompatibleDC(nullptr);
  SelectObject(paper_, font_);
  TEXTMETRICW text{};
  GetTextMetricsW(paper_, &text);
  digit_ = std::max(1, widthOf(L"0"));
  constexpr double usualLine = 15;  // of the system's font at the usual resolution
  line_ = std::max<int>(1, text.tmHeight);
  step_ = std::max(4, static_cast<int>(std::lround(8 * line_ / usualLine)));
  box_ = line_ + step_;
  row_ = line_ + std::max(2, step_ * 3 / 4);
}

Metrics::~Metrics() {
  DeleteDC(paper_);
  for (const HFONT font : {font_, bold_, quiet_}) DeleteObject(font);
}

int Metrics::widthOf(std::wstring_view text, bool plain) const {
  const std::wstring shown = plain ? std::wstring(text) : wide(view::withoutMarks(utf8(text)));
  SIZE size{};
  GetTextExtentPoint32W(paper_, shown.data(), static_cast<int>(shown.size()), &size);
  return static_cast<int>(size.cx);
}

}  // namespace quillet::windows
