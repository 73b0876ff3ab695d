// An object whose members are known by name only.
#pragma once

#include <array>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <utility>

#include "windows/com/variant.h"

namespace quillet::windows {

class Late {
 public:
  // No object: whatever is asked of it throws "Object variable not set" (91).
  Late() = default;
  // `name` is what errors call it: "TalBase.ClsMain".
  Late(Pointer<IDispatch> object, std::string name)
      : object_(std::move(object)), name_(std::move(name)) {}
  // Throws 429 when there is no such class.
  static Late create(const std::string& progId);

  explicit operator bool() const { return static_cast<bool>(object_); }
  const Pointer<IDispatch>& get() const { return object_; }
  const std::string& name() const { return name_; }

  // Whether the object knows the member.
  bool has(const std::string& member) const;

  // Calls a method or reads a property.
  template <class... Arguments>
  Variant call(const std::string& member, Arguments&&... arguments) const {
    std::array<Variant, sizeof...(Arguments)> list{Variant(std::forward<Arguments>(arguments))...};
    return invoke(member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, list);
  }
  // The same, of an answer that is an object; nothing, Null and Empty are no object.
  template <class... Arguments>
  Late object(const std::string& member, Arguments&&... arguments) const {
    return {asObject(call(member, std::forward<Arguments>(arguments)...)), name_ + "." + member};
  }
  // Sets a property; the value is the last argument.
  template <class... Arguments>
  void put(const std::string& member, Arguments&&... arguments) const {
    std::array<Variant, sizeof...(Arguments)> list{Variant(std::forward<Arguments>(arguments))...};
    invoke(member, DISPATCH_PROPERTYPUT, list);
  }

 private:
  Variant invoke(const std::string& member, WORD kind, std::span<Variant> arguments) const;
  DISPID idOf(const std::string& member) const;

  Pointer<IDispatch> object_;
  std::string name_;
  mutable std::map<std::string, DISPID> ids_;  // asked once for each member
};

}  // namespace quillet::windows
