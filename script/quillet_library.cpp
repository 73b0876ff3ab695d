#include "script/quillet_library.h"

#include "script/call.h"
#include "script/metatable.h"
#include "script/session.h"

namespace quillet::script {
namespace {

constexpr char contextType[] = "quillet.context";

// A field of the context: read from it, written through the module's public class as the host does.
struct ContextField {
  std::string_view name;
  std::string Context::*value;
  void (Forms::*set)(const std::string&);
};

const ContextField& contextField(const Call& call) {
  static constexpr ContextField fields[] = {
      {"client", &Context::clientCode, &Forms::VClCode},
      {"table", &Context::table, &Forms::VFATbl},
      {"first", &Context::firstDate, &Forms::VFDate},
      {"second", &Context::secondDate, &Forms::VSDate},
  };
  const std::string name = call.text(2);
  for (const ContextField& field : fields) {
    if (field.name == name) return field;
  }
  throw Error("the context has no field '" + name + "'");
}

int readContext(Call& call) {
  return call.give(call.session().practice.context().*contextField(call).value);
}

int writeContext(Call& call) {
  Forms& forms = call.session().practice.forms();
  (forms.*contextField(call).set)(call.text(3));
  return call.none();
}

void addContext(lua_State* state) {
  registerType(state, contextType,
               {{"__index", entry<readContext>}, {"__newindex", entry<writeContext>}});
  lua_newtable(state);
  luaL_setmetatable(state, contextType);
  lua_setfield(state, -2, "context");
}

void addPaths(lua_State* state, const ServiceObject& service) {
  lua_newtable(state);
  setText(state, "exe", service.ExePath());
  setText(state, "doc", service.DocPath());
  lua_setfield(state, -2, "paths");
}

}  // namespace

void openQuilletLibrary(lua_State* state, Session& session) {
  lua_newtable(state);
  setText(state, "version", session.practice.forms().MyDllVersion());
  addContext(state);
  addPaths(state, session.practice.service());
  addFormFunctions(state);
  addDialogFunctions(state);
  addDataFunctions(state);
  addReportFunctions(state);
  lua_setglobal(state, "quillet");
}

}  // namespace quillet::script
