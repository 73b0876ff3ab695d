// The global table `quillet` of a script. Its functions stand in groups, one file each.
#pragma once

#include <lua.hpp>

namespace quillet::script {

class Session;

// Makes the table; the session must be attached to the state.
void openQuilletLibrary(lua_State* state, Session& session);

// Each adds its functions to the table on top of the stack.
void addFormFunctions(lua_State* state);
void addDialogFunctions(lua_State* state);
void addDataFunctions(lua_State* state);
void addReportFunctions(lua_State* state);

}  // namespace quillet::script
