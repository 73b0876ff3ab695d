// A script's reference to a form or a control. It is looked up at each use, so that a form that was
// closed or a control that is gone is an error and not a dangling pointer.
#pragma once

#include <optional>
#include <string>

#include "controls/form.h"
#include "script/call.h"

namespace quillet::script {

inline constexpr char formType[] = "quillet.form";
inline constexpr char controlType[] = "quillet.control";

// Plain data, because Lua owns it and frees it without a destructor.
struct Handle {
  const Form* form;
  char formName[32];
  char name[64];  // the control's, empty in a form's handle
  int index;      // of a member of a control array; -1 for the whole array or a single control
};

void pushForm(lua_State* state, const Form& form);
void pushControl(lua_State* state, const Handle& form, const std::string& name, int index);

// The handle in argument n; throws when there is something else.
Handle handleAt(const Call& call, int n, const char* type);

// Null when the form is not open.
Form* openForm(const Session& session, const Handle& handle);
// Throws when the form is not open.
Form& formOf(const Session& session, const Handle& handle);
// Throws when the control is gone. A whole array answers by its first member that is shown, else by
// its first.
Control& controlOf(const Session& session, const Handle& handle);

// Brings the form to the front as a person does before working in it; throws when a modal form
// covers it.
void bringToFront(const Session& session, Form& form);

// "third", "mnuyrs[1] of frmcrtb".
std::string describe(const Control& control);

}  // namespace quillet::script
