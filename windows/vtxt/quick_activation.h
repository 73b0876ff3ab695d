// What a container would otherwise ask and tell one by one before the control is placed.
#pragma once

#include <ocidl.h>

#include "windows/vtxt/control_part.h"

namespace quillet::windows {

class QuickActivation final : public ControlPart<IQuickActivate> {
 public:
  using ControlPart::ControlPart;

  STDMETHODIMP QuickActivate(QACONTAINER* container, QACONTROL* answer) noexcept override;
  STDMETHODIMP SetContentExtent(LPSIZEL size) noexcept override;
  STDMETHODIMP GetContentExtent(LPSIZEL size) noexcept override;
};

}  // namespace quillet::windows
