// What a container may ask of the class before it uses it: its type, its events, that its errors
// say more than a number.
#pragma once

#include <ocidl.h>

#include "windows/vtxt/control_part.h"

namespace quillet::windows {

class ClassInfo final : public ControlPart<IProvideClassInfo2, ISupportErrorInfo> {
 public:
  using ControlPart::ControlPart;

  STDMETHODIMP GetClassInfo(ITypeInfo** info) noexcept override;
  STDMETHODIMP GetGUID(DWORD kind, GUID* guid) noexcept override;
  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept override;
};

}  // namespace quillet::windows
