// Metatables of the values that a script holds.
#pragma once

#include <lua.hpp>

namespace quillet::script {

struct Metamethod {
  const char* name;
  lua_CFunction function;
};

// Registers the metatable of a type; scripts cannot read or replace it.
template <std::size_t size>
void registerType(lua_State* state, const char* type, const Metamethod (&methods)[size]) {
  luaL_newmetatable(state, type);
  for (const Metamethod& method : methods) {
    lua_pushcfunction(state, method.function);
    lua_setfield(state, -2, method.name);
  }
  lua_pushstring(state, type);
  lua_setfield(state, -2, "__metatable");
  lua_pop(state, 1);
}

}  // namespace quillet::script
