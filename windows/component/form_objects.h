// The objects by which hosts and scripts use forms and their controls: one for each, so that two
// gets are the same object.
#pragma once

#include <map>

#include "windows/com/pointer.h"
#include "windows/component/form_object.h"

namespace quillet::windows {

class FormObjects {
 public:
  explicit FormObjects(FormWindows& windows) : windows_(windows) {}

  Pointer<IDispatch> of(Form& form);
  Pointer<IDispatch> of(Control& control);
  // The form was closed: a host finds it as it was designed when it opens again.
  void closed(const Form& form);
  // The module ends: what a host still holds answers with an error from now on.
  void letGo();

 private:
  FormObject& objectOf(Form& form);

  FormWindows& windows_;
  std::map<const Form*, Pointer<FormObject>> objects_;
};

}  // namespace quillet::windows
