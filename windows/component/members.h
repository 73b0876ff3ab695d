// The members of an object that is called by name, as a table.
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <string>

#include "data/text.h"
#include "windows/com/errors.h"
#include "windows/component/call.h"

namespace quillet::windows {

template <class Object>
struct Member {
  const char* name;
  std::size_t least;  // arguments it takes, besides the value that is put
  std::size_t most;
  Variant (*get)(Object&, const Call&);         // null: can only be set
  void (*put)(Object&, const Call&) = nullptr;  // null: can only be read or called
  bool (*knownTo)(const Object&) = nullptr;     // null: to every object
};

// Ids are positions from 1.
template <class Object>
std::optional<DISPID> memberId(std::span<const Member<Object>> members, const Object& object,
                               const std::string& name) {
  const auto found = std::find_if(members.begin(), members.end(), [&](const Member<Object>& m) {
    return equalIgnoringCase(name, m.name) && (!m.knownTo || m.knownTo(object));
  });
  if (found == members.end()) return std::nullopt;
  return static_cast<DISPID>(found - members.begin()) + 1;
}

template <class Object>
Variant callMember(std::span<const Member<Object>> members, Object& object, DISPID id,
                   const Call& call) {
  const auto source = [&] { return std::string("PrjQuillet"); };
  if (id < 1 || id > static_cast<DISPID>(members.size())) {
    throw errorOf(DISP_E_MEMBERNOTFOUND, source());
  }
  const Member<Object>& member = members[static_cast<std::size_t>(id) - 1];
  const bool possible = call.sets() ? member.put != nullptr : member.get != nullptr;
  if (!possible) throw errorOf(DISP_E_MEMBERNOTFOUND, source());
  if (call.count() < member.least || call.count() > member.most) {
    throw errorOf(DISP_E_BADPARAMCOUNT, source());
  }
  if (!call.sets()) return member.get(object, call);
  member.put(object, call);
  return {};
}

}  // namespace quillet::windows
