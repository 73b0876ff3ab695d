#include "script/engine.h"

#include <csignal>
#include <new>

#include "script/call.h"
#include "script/control_binding.h"
#include "script/form_binding.h"
#include "script/quillet_library.h"

namespace quillet::script {
namespace {

// The registry's key for the status given to os.exit.
constexpr char exitKey[] = "quillet.exit";

// --- messages with their line -------------------------------------------------------------------
// Called by Lua, so these hold no object with a destructor while an error may be raised.

bool beginsWith(const char* text, const char* start) {
  for (; *start != '\0'; ++text, ++start) {
    if (*text != *start) return false;
  }
  return true;
}

// Pushes "file:line: " of the innermost line of the script; pushes nothing when the message already
// begins with the name of a file on the way there.
bool pushWhere(lua_State* state, const char* message) {
  lua_Debug place;
  bool found = false;
  for (int level = 1; lua_getstack(state, level, &place) != 0; ++level) {
    lua_getinfo(state, "Sl", &place);
    if (place.currentline <= 0) continue;
    if (beginsWith(message, place.short_src)) {
      if (found) lua_pop(state, 1);
      return false;
    }
    if (!found) lua_pushfstring(state, "%s:%d: ", place.short_src, place.currentline);
    found = true;
  }
  return found;
}

// `assert` gives a bare message; a person who reads it needs the line.
int addLine(lua_State* state) {
  const char* message = luaL_tolstring(state, 1, nullptr);
  if (!pushWhere(state, message)) return 1;
  lua_insert(state, -2);
  lua_concat(state, 2);
  return 1;
}

// --- os.exit ------------------------------------------------------------------------------------

// A pcall or a coroutine may catch the error by which a script ends, so every further instruction
// raises it again.
void endAgain(lua_State* state, lua_Debug*) {
  lua_pushnil(state);
  lua_error(state);
}

// Ends the script and not the process, so that the database is closed properly.
int end(lua_State* state, lua_Integer status) {
  lua_pushinteger(state, status);
  lua_setfield(state, LUA_REGISTRYINDEX, exitKey);
  lua_rawgeti(state, LUA_REGISTRYINDEX, LUA_RIDX_MAINTHREAD);
  lua_sethook(lua_tothread(state, -1), endAgain, LUA_MASKCOUNT, 1);
  lua_sethook(state, endAgain, LUA_MASKCOUNT, 1);
  lua_pushnil(state);
  return lua_error(state);
}

int exitScript(lua_State* state) {
  const bool failed = lua_isboolean(state, 1) && lua_toboolean(state, 1) == 0;
  return end(state, failed ? 1 : luaL_optinteger(state, 1, 0));
}

volatile std::sig_atomic_t endingSignal = 0;

void endWhenAsked(lua_State* state, lua_Debug*) {
  constexpr int ofSignals = 128;
  if (endingSignal != 0) end(state, ofSignals + endingSignal);
}

void replaceExit(lua_State* state) {
  lua_getglobal(state, "os");
  lua_pushcfunction(state, exitScript);
  lua_setfield(state, -2, "exit");
  lua_pop(state, 1);
}

// --- running ------------------------------------------------------------------------------------

// A script may require files in its own folder.
void searchBeside(lua_State* state, const std::filesystem::path& file) {
  lua_getglobal(state, "package");
  lua_getfield(state, -1, "path");
  const std::string others = lua_tostring(state, -1);
  lua_pop(state, 1);
  const auto folder = std::filesystem::absolute(file).parent_path();
  setText(state, "path", (folder / "?.lua").string() + ";" + others);
  lua_pop(state, 1);
}

void setArguments(lua_State* state, const std::filesystem::path& file,
                  const std::vector<std::string>& arguments) {
  pushTexts(state, arguments);
  pushText(state, file.string());
  lua_rawseti(state, -2, 0);
  lua_setglobal(state, "arg");
}

// Outside of a protected call, where only memory can be lacking. Lua would end the process.
int panic(lua_State* /*state*/) { throw std::bad_alloc(); }

std::string textOnTop(lua_State* state) {
  std::size_t length = 0;
  const char* text = lua_tolstring(state, -1, &length);
  return text == nullptr ? "(no message)" : std::string(text, length);
}

}  // namespace

void Engine::endSoon(int signal) noexcept { endingSignal = signal; }

void Engine::Closer::operator()(lua_State* state) const { lua_close(state); }

Engine::Engine(Session& session) : state_(luaL_newstate()) {
  if (!state_) throw std::bad_alloc();
  lua_atpanic(state_.get(), panic);
  attachSession(state_.get(), session);
  luaL_openlibs(state_.get());
  replaceExit(state_.get());
  registerForms(state_.get());
  registerControls(state_.get());
  openQuilletLibrary(state_.get(), session);
  session.practice.service().statements().record(true);
}

Engine::Outcome Engine::run(const std::filesystem::path& file,
                            const std::vector<std::string>& arguments) {
  lua_State* state = state_.get();
  searchBeside(state, file);
  setArguments(state, file, arguments);
  lua_pushcfunction(state, addLine);
  if (luaL_loadfile(state, file.string().c_str()) != LUA_OK) return {1, textOnTop(state)};
  for (const std::string& argument : arguments) pushText(state, argument);
  constexpr int often = 1'000;  // instructions
  lua_sethook(state, endWhenAsked, LUA_MASKCOUNT, often);
  const int status = lua_pcall(state, static_cast<int>(arguments.size()), 0, 1);
  lua_sethook(state, nullptr, 0, 0);
  if (lua_getfield(state, LUA_REGISTRYINDEX, exitKey) == LUA_TNUMBER) {
    return {static_cast<int>(lua_tointeger(state, -1)), {}};
  }
  lua_pop(state, 1);
  if (status != LUA_OK) return {1, textOnTop(state)};
  return {};
}

}  // namespace quillet::script
