#include "script/form_binding.h"

#include "script/handle.h"
#include "script/keys.h"
#include "script/metatable.h"
#include "script/session.h"

namespace quillet::script {
namespace {

int press(Call& call) {
  Form& form = formOf(call.session(), handleAt(call, 1, formType));
  const Key key = keyNamed(call.text(2));
  call.session().act([&] {
    bringToFront(call.session(), form);
    form.press(key);
  });
  return call.none();
}

int close(Call& call) {
  Form& form = formOf(call.session(), handleAt(call, 1, formType));
  bool closed = false;
  call.session().act([&] {
    bringToFront(call.session(), form);
    closed = form.close();
  });
  return call.give(closed);
}

int pushActive(const Call& call, const Form& form) {
  return form.active() ? call.give(form.active()->name()) : call.nil();
}

int indexForm(Call& call) {
  const Handle handle = handleAt(call, 1, formType);
  const std::string name = call.text(2);
  // What can be asked of a closed form, too.
  if (name == "visible") return call.give(openForm(call.session(), handle) != nullptr);
  if (name == "name") return call.give(handle.formName);
  if (name == "press" || name == "close") {
    lua_pushcfunction(call.state(), name == "press" ? entry<press> : entry<close>);
    return 1;
  }
  const Form& form = formOf(call.session(), handle);
  if (name == "caption") return call.give(form.caption());
  if (name == "active") return pushActive(call, form);
  if (!form.isArray(name) && form.find(name) == nullptr) return call.nil();
  pushControl(call.state(), handle, name, -1);
  return 1;
}

int setInForm(Call& call) {
  throw Error("'" + call.text(2) + "' of a form cannot be set; a script acts as a person does");
}

int equalForms(Call& call) {
  const Handle a = handleAt(call, 1, formType);
  const Handle b = handleAt(call, 2, formType);
  return call.give(a.form == b.form && std::string_view(a.formName) == b.formName);
}

int formText(Call& call) {
  return call.give("form " + std::string(handleAt(call, 1, formType).formName));
}

}  // namespace

void registerForms(lua_State* state) {
  registerType(state, formType,
               {{"__index", entry<indexForm>},
                {"__newindex", entry<setInForm>},
                {"__eq", entry<equalForms>},
                {"__tostring", entry<formText>}});
}

}  // namespace quillet::script
