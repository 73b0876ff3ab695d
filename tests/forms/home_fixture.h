// The home form on a practice with two clients.
#pragma once

#include <string>

#include "forms/editor_fixture.h"

namespace quillet::support {

class HomeTest : public EditorTest {
 protected:
  third& home() {
    auto& form = static_cast<third&>(*practice.forms().ObjThird());
    form.show();
    return form;
  }
  // The command, with it the list of clients anew, and the client of that row.
  third& choose(Button third::*command, int row = 1) {
    third& form = home();
    form.click(form.*command);
    form.ClGrd1.setCurrent(row);
    form.doubleClick(form.ClGrd1);
    return form;
  }
};

}  // namespace quillet::support
