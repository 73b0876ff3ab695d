// One call from a script into C++: its arguments and results. Lua's errors are long jumps, which
// run no destructors. So a binding throws, and the entry point raises the Lua error after all
// objects of the binding were destroyed.
#pragma once

#include <lua.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quillet::script {

class Session;

// A mistake of the script, or a call that could not be carried out. The script gets the text with
// its line.
class Error : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class Call {
 public:
  explicit Call(lua_State* state) : state_(state) {}

  lua_State* state() const { return state_; }
  Session& session() const;

  // Arguments, from 1; their texts are copied. A number counts as the text that it prints as.
  int count() const { return lua_gettop(state_); }
  bool absent(int n) const { return lua_isnoneornil(state_, n); }
  bool isNumber(int n) const { return lua_type(state_, n) == LUA_TNUMBER; }
  std::string text(int n) const;
  std::optional<std::string> textOrNil(int n) const;
  int integer(int n) const;
  bool boolean(int n, bool fallback) const;
  std::vector<std::string> texts(int from) const;
  // A field of the table in argument n, nothing when it is nil.
  std::optional<std::string> field(int n, const char* name) const;
  // The keys of the table in argument n, as texts.
  std::vector<std::string> keys(int n) const;

  // Each pushes a result and returns how many results there are.
  int none() const { return 0; }
  int nil() const;
  int give(bool value) const;
  int give(int value) const;
  int give(std::string_view value) const;
  // A literal would be converted to bool otherwise.
  int give(const char* value) const { return give(std::string_view(value)); }
  int give(const std::vector<std::string>& values) const;

 private:
  [[noreturn]] void wrong(int n, const char* expected) const;
  lua_State* state_;
};

using Function = int (*)(Call&);

// Runs the function; what it throws becomes a text on Lua's stack and the result is -1.
int attempt(lua_State* state, Function function) noexcept;

// The function as Lua calls it. Nothing here has a destructor, so that lua_error may jump.
template <Function function>
int entry(lua_State* state) {
  const int results = attempt(state, function);
  return results >= 0 ? results : lua_error(state);
}

// Makes the session known to the Lua state and all of its coroutines.
void attachSession(lua_State* state, Session& session);

void pushText(lua_State* state, std::string_view text);
// Sets a field of the table on top of the stack.
void setText(lua_State* state, const char* field, std::string_view text);
// Pushes a list of texts as a table from 1.
void pushTexts(lua_State* state, const std::vector<std::string>& texts);

}  // namespace quillet::script
