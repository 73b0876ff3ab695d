#include "script/handle.h"

#include <algorithm>
#include <cstring>

#include "script/session.h"

namespace quillet::script {
namespace {

template <std::size_t size>
void copyName(char (&to)[size], const std::string& from) {
  if (from.size() >= size) throw Error("the name '" + from + "' is too long");
  std::memcpy(to, from.c_str(), from.size() + 1);
}

void pushHandle(lua_State* state, const Handle& handle, const char* type) {
  auto* place = static_cast<Handle*>(lua_newuserdatauv(state, sizeof(Handle), 0));
  *place = handle;
  luaL_setmetatable(state, type);
}

Control* firstShown(const Form& form, const Handle& handle) {
  Control* first = form.find(handle.name, 0);
  for (int index = 0; Control* member = form.find(handle.name, index); ++index) {
    if (member->shown()) return member;
  }
  return first;
}

}  // namespace

void pushForm(lua_State* state, const Form& form) {
  Handle handle{&form, {}, {}, -1};
  copyName(handle.formName, form.name());
  pushHandle(state, handle, formType);
}

void pushControl(lua_State* state, const Handle& form, const std::string& name, int index) {
  Handle handle = form;
  copyName(handle.name, name);
  handle.index = index;
  pushHandle(state, handle, controlType);
}

Handle handleAt(const Call& call, int n, const char* type) {
  const void* place = luaL_testudata(call.state(), n, type);
  if (place == nullptr) {
    throw Error("called without its " + std::string(type == formType ? "form" : "control") +
                "; write it with a colon, as in x:press(\"Enter\")");
  }
  return *static_cast<const Handle*>(place);
}

Form* openForm(const Session& session, const Handle& handle) {
  const auto& open = session.openForms().open();
  const auto at = std::find(open.begin(), open.end(), handle.form);
  return at != open.end() && (*at)->name() == handle.formName ? *at : nullptr;
}

Form& formOf(const Session& session, const Handle& handle) {
  if (Form* form = openForm(session, handle)) return *form;
  throw Error("the form " + std::string(handle.formName) + " is not open");
}

Control& controlOf(const Session& session, const Handle& handle) {
  const Form& form = formOf(session, handle);
  Control* control = form.find(handle.name, handle.index);
  if (control == nullptr && handle.index < 0) control = firstShown(form, handle);
  if (control == nullptr) {
    throw Error("the form " + form.name() + " has no control " + handle.name + " any more");
  }
  return *control;
}

void bringToFront(const Session& session, Form& form) {
  OpenForms& openForms = session.openForms();
  if (openForms.active() == &form || openForms.bringToFront(form)) return;
  throw Error("the form " + form.name() + " is covered by the form " + openForms.active()->name());
}

std::string describe(const Control& control) {
  std::string text = control.name();
  if (control.index() >= 0) text += '[' + std::to_string(control.index()) + ']';
  return text + " of " + control.form().name();
}

}  // namespace quillet::script
