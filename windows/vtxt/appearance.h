// What the box looks like beyond its text: font, colours, what stands for a password's characters.
#pragma once

#include <olectl.h>

#include <functional>
#include <optional>
#include <string>

#include "windows/vtxt/font_choice.h"

namespace quillet::windows {

// A system's colour, 0x80000000 and its index, is one too.
constexpr OLE_COLOR systemColour(int index) { return 0x80000000U + static_cast<unsigned>(index); }

class Appearance {
 public:
  Appearance(const ControlSite& site, std::function<void()> fontChanged)
      : font(site, std::move(fontChanged)) {}
  ~Appearance();
  Appearance(const Appearance&) = delete;
  Appearance& operator=(const Appearance&) = delete;

  FontChoice font;
  // 0 for none.
  wchar_t passwordChar = 0;

  OLE_COLOR backColor() const { return backColor_; }
  OLE_COLOR foreColor() const { return foreColor_; }
  // Throws 380 when it is no colour.
  void setBackColor(OLE_COLOR colour);
  void setForeColor(OLE_COLOR colour);

  // Readies a surface for the text and answers what the box is filled with.
  HBRUSH prepare(HDC surface);
  void forgetBrush();

  // The text as it is shown.
  std::wstring shown(const std::wstring& text) const;

 private:
  OLE_COLOR backColor_ = systemColour(COLOR_WINDOW);
  OLE_COLOR foreColor_ = systemColour(COLOR_WINDOWTEXT);
  HBRUSH brush_ = nullptr;
};

}  // namespace quillet::windows
