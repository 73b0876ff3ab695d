// quillet.answer, messages, file, refuse, stop: answers to dialogs, and what the dialogs asked.
#include "script/call.h"
#include "script/quillet_library.h"
#include "script/session.h"

namespace quillet::script {
namespace {

int answer(Call& call) {
  std::vector<Answer> answers;
  for (const std::string& name : call.texts(1)) {
    const auto known = suite::answerNamed(name);
    if (!known) throw Error("'" + name + "' is no answer; there are Yes, No, Cancel and OK");
    answers.push_back(*known);
  }
  for (const Answer known : answers) call.session().dialogs.queueAnswer(known);
  return call.none();
}

int messages(Call& call) {
  lua_State* state = call.state();
  lua_newtable(state);
  lua_Integer position = 0;
  for (const auto& asked : call.session().dialogs.takeMessages()) {
    lua_createtable(state, 0, 6);
    setText(state, "text", asked.message.text);
    setText(state, "title", asked.message.title);
    setText(state, "buttons", suite::nameOf(asked.message.buttons));
    setText(state, "icon", suite::nameOf(asked.message.icon));
    setText(state, "default", suite::nameOf(asked.message.defaultAnswer));
    setText(state, "answer", suite::nameOf(asked.answer));
    lua_rawseti(state, -2, ++position);
  }
  return 1;
}

int file(Call& call) {
  call.session().dialogs.queueFile(call.textOrNil(1));
  return call.none();
}

int unanswered(Call& call) {
  lua_pushinteger(call.state(), static_cast<lua_Integer>(call.session().dialogs.dropAnswers()));
  return 1;
}

int refuse(Call& call) {
  call.session().practice.service().refuse(call.text(1));
  return call.none();
}

int stop(Call& call) {
  call.session().practice.service().stopWork(call.integer(1));
  return call.none();
}

}  // namespace

void addDialogFunctions(lua_State* state) {
  const luaL_Reg functions[] = {{"answer", entry<answer>}, {"messages", entry<messages>},
                                {"file", entry<file>},     {"refuse", entry<refuse>},
                                {"stop", entry<stop>},     {"unanswered", entry<unanswered>},
                                {nullptr, nullptr}};
  luaL_setfuncs(state, functions, 0);
}

}  // namespace quillet::script
