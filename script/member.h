// Members of a control as scripts see them. Each kind of control has one table of them.
#pragma once

#include <span>
#include <string_view>

#include "script/call.h"
#include "script/handle.h"

namespace quillet::script {

struct Member {
  using Getter = int (*)(const Call& call, const Control& control);
  using Method = int (*)(Call& call, Control& control);

  std::string_view name;
  Getter get = nullptr;   // a value that is read, or
  Method call = nullptr;  // a method, called with a colon
};

// Moves the focus to the control as a click does; throws when another control keeps it.
void focusOn(Session& session, Control& control);

std::span<const Member> gridMembers();

}  // namespace quillet::script
