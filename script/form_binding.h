// Forms as a script sees them: a few members of their own, every other name is a control.
#pragma once

#include <lua.hpp>

namespace quillet::script {

void registerForms(lua_State* state);

}  // namespace quillet::script
