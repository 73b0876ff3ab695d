// A font as hosts know it: an object with a name and a size, which they read and set.
#pragma once

#include <oaidl.h>

#include <functional>
#include <string>

#include "windows/component/ole_font.h"

namespace quillet::windows {

class FontObject {
 public:
  // Starts as the system's font for dialogs. `changed` runs whenever a host changes it.
  explicit FontObject(std::function<void()> changed = {});
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
  Pointer<IFont> font_;
  FontChanges changes_;
};

}  // namespace quillet::windows
