// The container, as the control sees it.
#pragma once

#include <ole2.h>

#include <optional>

#include "windows/com/pointer.h"
#include "windows/com/variant.h"

namespace quillet::windows {

class ControlSite {
 public:
  void set(IOleClientSite* site) { site_ = site; }
  IOleClientSite* get() const { return site_.get(); }
  explicit operator bool() const { return static_cast<bool>(site_); }

  // Null when the container does not have it.
  template <class Interface>
  Pointer<Interface> query() const {
    return site_.query<Interface>();
  }

  // What the container wishes of all its controls; nothing when it does not say.
  std::optional<Variant> ambient(DISPID property) const;
  // A person works with the form, as opposed to designing it.
  bool inUse() const;

 private:
  Pointer<IOleClientSite> site_;
};

}  // namespace quillet::windows
