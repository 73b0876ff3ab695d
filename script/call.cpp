#include "script/call.h"

#include <limits>

namespace quillet::script {

void attachSession(lua_State* state, Session& session) {
  *static_cast<Session**>(lua_getextraspace(state)) = &session;
}

Session& Call::session() const { return **static_cast<Session**>(lua_getextraspace(state_)); }

int attempt(lua_State* state, Function function) noexcept {
  try {
    Call call(state);
    return function(call);
  } catch (const std::exception& error) {
    luaL_where(state, 1);
    lua_pushstring(state, error.what());
    lua_concat(state, 2);
  } catch (...) {
    luaL_where(state, 1);
    lua_pushstring(state, "something else than an error was thrown");
    lua_concat(state, 2);
  }
  return -1;
}

void Call::wrong(int n, const char* expected) const {
  throw Error("bad argument #" + std::to_string(n) + " (" + expected + " expected, got " +
              luaL_typename(state_, n) + ")");
}

std::string Call::text(int n) const {
  // Lua converts a number in place, which is safe for an argument.
  std::size_t length = 0;
  const char* text = lua_tolstring(state_, n, &length);
  if (text == nullptr) wrong(n, "text");
  return {text, length};
}

std::optional<std::string> Call::textOrNil(int n) const {
  return absent(n) ? std::nullopt : std::optional(text(n));
}

int Call::integer(int n) const {
  int whole = 0;
  const lua_Integer value = lua_tointegerx(state_, n, &whole);
  if (whole == 0) wrong(n, "whole number");
  if (value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max()) {
    throw Error("the number " + std::to_string(value) + " is out of range");
  }
  return static_cast<int>(value);
}

bool Call::boolean(int n, bool fallback) const {
  return absent(n) ? fallback : lua_toboolean(state_, n) != 0;
}

std::vector<std::string> Call::texts(int from) const {
  std::vector<std::string> texts;
  for (int n = from; n <= count(); ++n) texts.push_back(text(n));
  return texts;
}

std::optional<std::string> Call::field(int n, const char* name) const {
  if (!lua_istable(state_, n)) wrong(n, "table");
  lua_pushstring(state_, name);
  lua_rawget(state_, n);
  const Call value(state_);
  auto text = value.textOrNil(count());
  lua_pop(state_, 1);
  return text;
}

std::vector<std::string> Call::keys(int n) const {
  if (!lua_istable(state_, n)) wrong(n, "table");
  std::vector<std::string> keys;
  lua_pushnil(state_);
  while (lua_next(state_, n) != 0) {
    lua_pop(state_, 1);
    // The key is copied, because converting it in place would confuse lua_next.
    lua_pushvalue(state_, -1);
    keys.push_back(Call(state_).text(count()));
    lua_pop(state_, 1);
  }
  return keys;
}

int Call::nil() const {
  lua_pushnil(state_);
  return 1;
}

int Call::give(bool value) const {
  lua_pushboolean(state_, value ? 1 : 0);
  return 1;
}

int Call::give(int value) const {
  lua_pushinteger(state_, value);
  return 1;
}

int Call::give(std::string_view value) const {
  pushText(state_, value);
  return 1;
}

int Call::give(const std::vector<std::string>& values) const {
  pushTexts(state_, values);
  return 1;
}

void pushText(lua_State* state, std::string_view text) {
  lua_pushlstring(state, text.data(), text.size());
}

void setText(lua_State* state, const char* field, std::string_view text) {
  pushText(state, text);
  lua_setfield(state, -2, field);
}

void pushTexts(lua_State* state, const std::vector<std::string>& texts) {
  lua_createtable(state, static_cast<int>(texts.size()), 0);
  lua_Integer position = 0;
  for (const std::string& text : texts) {
    pushText(state, text);
    lua_rawseti(state, -2, ++position);
  }
}

}  // namespace quillet::script
