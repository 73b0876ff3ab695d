#include "suite/plain_dialog.h"

#include <utility>

namespace quillet::suite {

PlainDialog::PlainDialog(OpenForms& openForms, std::string name, const std::string& caption,
                         Dialogs& dialogs)
    : Form(openForms, std::move(name)), dialogs_(dialogs) {
  setCaption(caption);
  KeyPress = [this](Key& key) {
    if (key == keys::Escape) {
      key = keys::none;
      close();
    } else if (key == keys::Enter && dynamic_cast<const Button*>(active()) == nullptr) {
      key = keys::none;
      entered();
    }
  };
}

void PlainDialog::attach(Button& ok, Button& leave) {
  ok.Click = [this] { keep(); };
  leave.Click = [this] { close(); };
}

void PlainDialog::tell(const std::string& text, Icon icon) {
  dialogs_.MsgBox({text, caption(), Buttons::OK, icon, Answer::OK});
}

}  // namespace quillet::suite
