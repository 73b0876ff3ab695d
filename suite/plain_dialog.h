// A dialog of a few boxes with OK and a button that leaves everything as it is. Escape is the
// latter; Enter goes from box to box.
#pragma once

#include <string>

#include "controls/basic_controls.h"
#include "controls/form.h"
#include "ports/ports.h"

namespace quillet::suite {

class PlainDialog : public Form {
 protected:
  PlainDialog(OpenForms& openForms, std::string name, const std::string& caption, Dialogs& dialogs);

  void attach(Button& ok, Button& leave);
  virtual void keep() = 0;
  // Enter in a box.
  virtual void entered() { focusNext(); }
  void tell(const std::string& text, Icon icon = Icon::information);

  Dialogs& dialogs_;
};

}  // namespace quillet::suite
