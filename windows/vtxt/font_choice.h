// The font of the box: the one that was set, else the container's. It is a copy, so that changes of
// it concern this control alone.
#pragma once

#include <olectl.h>

#include <functional>

#include "windows/component/ole_font.h"
#include "windows/vtxt/control_site.h"

namespace quillet::windows {

class FontChoice {
 public:
  // `changed` runs when somebody changes a property of the font.
  FontChoice(const ControlSite& site, std::function<void()> changed);
  FontChoice(const FontChoice&) = delete;
  FontChoice& operator=(const FontChoice&) = delete;

  Pointer<IFontDisp> get();
  void set(IFontDisp* font);
  // The container's own has changed.
  void ambientChanged();

  // For a resolution; the caller deletes it. Null when there is no such font.
  HFONT create(UINT dpi);

 private:
  const Pointer<IFont>& font();
  void keep(IFont* original);

  const ControlSite& site_;
  Pointer<IFont> font_;
  FontChanges changes_;
  bool chosen_ = false;
};

}  // namespace quillet::windows
