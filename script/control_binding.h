// Controls as a script sees them.
#pragma once

#include <lua.hpp>

namespace quillet::script {

void registerControls(lua_State* state);

}  // namespace quillet::script
