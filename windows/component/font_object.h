// A font as hosts know it: an object with a name and a size, which they read and set.
#pragma once

#include <ocidl.h>
#include <olectl.h>

#include <functional>
#include <string>

#include "windows/com/pointer.h"

namespace quillet::windows {

class FontObject {
 public:
  // Starts as the system's font for dialogs. `changed` runs whenever a host changes it.
  explicit FontObject(std::function<void()> changed = {});
  ~FontObject();
  FontObject(const FontObject&) = delete;
  FontObject& operator=(const FontObject&) = delete;

  Pointer<IDispatch> object() const;
  // Takes name and size of another font; throws when the object is no font.
  void assign(IDispatch* other);

  std::string name() const;
  void setName(const std::string& name);
  double points() const;
  void setPoints(double points);

 private:
  class Sink;

  Pointer<IFont> font_;
  Pointer<Sink> sink_;
  Pointer<IConnectionPoint> source_;
  DWORD cookie_ = 0;
};

}  // namespace quillet::windows
