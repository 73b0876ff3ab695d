// The font of the box: the one that was set, else the container's. It is a copy, so that changes of
// it concern this control alone.
#pragma once

#include <olectl.h>

#include <functional>

#include "windows/com/pointer.h"
#include "windows/vtxt/control_site.h"

namespace quillet::windows {

class FontChoice {
 public:
  // `changed` runs when somebody changes a property of the font.
  FontChoice(const ControlSite& site, std::function<void()> changed);
  ~FontChoice();
  FontChoice(const FontChoice&) = delete;
  FontChoice& operator=(const FontChoice&) = delete;

  Pointer<IFontDisp> get();
  void set(IFontDisp* font);
  // The container's own has changed.
  void ambientChanged();

  // For a resolution; the caller deletes it. Null when there is no such font.
  HFONT create(UINT dpi);

 private:
  class Listener;

  const Pointer<IFont>& font();
  void keep(IFont* original);
  void letGo();

  const ControlSite& site_;
  Pointer<Listener> listener_;
  Pointer<IFont> font_;
  DWORD connection_ = 0;
  bool chosen_ = false;
};

}  // namespace quillet::windows
