#include "windows/vtxt/appearance.h"

#include "windows/vtxt/invalid_value.h"

namespace quillet::windows {
namespace {

COLORREF pixelsOf(OLE_COLOR colour) {
  COLORREF translated = 0;
  if (FAILED(OleTranslateColor(colour, nullptr, &translated))) throw invalidValue();
  return translated;
}

}  // namespace

Appearance::~Appearance() { forgetBrush(); }

void Appearance::setBackColor(OLE_COLOR colour) {
  pixelsOf(colour);
  backColor_ = colour;
  forgetBrush();
}

void Appearance::setForeColor(OLE_COLOR colour) {
  pixelsOf(colour);
  foreColor_ = colour;
}

void Appearance::forgetBrush() {
  if (brush_) DeleteObject(brush_);
  brush_ = nullptr;
}

HBRUSH Appearance::prepare(HDC surface) {
  SetTextColor(surface, pixelsOf(foreColor_));
  SetBkColor(surface, pixelsOf(backColor_));
  if (!brush_) brush_ = CreateSolidBrush(pixelsOf(backColor_));
  return brush_;
}

std::wstring Appearance::shown(const std::wstring& text) const {
  return passwordChar == 0 ? text : std::wstring(text.size(), passwordChar);
}

}  // namespace quillet::windows
