// A group of the control's interfaces. To whoever calls them all parts are one object: identity and
// lifetime are the control's.
#pragma once

#include <ole2.h>

#include "windows/com/counted.h"

namespace quillet::windows {

class VTxtControl;

// What the outside takes for the object: the control, or the one that aggregates it.
IUnknown& identityOf(VTxtControl& control);

template <class... Interfaces>
class ControlPart : public Interfaces... {
 public:
  explicit ControlPart(VTxtControl& control) : control_(control) {}
  ControlPart(const ControlPart&) = delete;
  ControlPart& operator=(const ControlPart&) = delete;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept final {
    return identityOf(control_).QueryInterface(iid, object);
  }
  STDMETHODIMP_(ULONG) AddRef() noexcept final { return identityOf(control_).AddRef(); }
  STDMETHODIMP_(ULONG) Release() noexcept final { return identityOf(control_).Release(); }

  // Null when the interface is not one of this part.
  void* find(REFIID iid) noexcept { return interfaceOf<Interfaces...>(*this, iid); }

 protected:
  ~ControlPart() = default;

  VTxtControl& control_;
};

}  // namespace quillet::windows
