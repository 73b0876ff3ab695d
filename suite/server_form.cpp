#include "suite/server_form.h"

#include <stdexcept>

#include "suite/server_password.h"
#include "suite/server_settings.h"

namespace quillet::suite {

frmServer::frmServer(OpenForms& openForms, Settings& settings, Dialogs& dialogs)
    : Form(openForms, "frmServer"), settings_(settings), dialogs_(dialogs) {
  setCaption("Database Server");
  cmdok.Click = [this] { keep(); };
  cmdcancel.Click = [this] { close(); };
  KeyPress = [this](Key& key) {
    if (key == keys::Escape) {
      key = keys::none;
      close();
    } else if (key == keys::Enter && active() != &cmdok && active() != &cmdcancel) {
      key = keys::none;
      focusNext();
    }
  };
}

void frmServer::load() {
  size = {0.4, 0.2, size.font};
  const ServerAddress server = serverIn(settings_).value_or(ServerAddress{});
  txthosts.setText(hostsText(server.hosts));
  txtuser.setText(server.user);
  txtdatabase.setText(server.database);
  txtauthority.setText(server.authority);
  txtpasswordfile.setText(server.passwordFile);
  txthosts.setToolTip("Without a server the books are in the data folder.");
  txtpasswordfile.setToolTip("Without a file the password is in the keyring, or asked for.");
  focus(txthosts);
}

// The books do not move with the settings: a practice that is in its folder stays there.
void frmServer::keep() {
  const auto kept = serverIn(settings_);
  ServerAddress server = kept.value_or(ServerAddress{});
  const auto tell = [&](const std::string& text, Icon icon) {
    dialogs_.MsgBox({text, caption(), Buttons::OK, icon, Answer::OK});
  };
  try {
    if (!kept) {
      throw std::runtime_error(
          "The books of this practice are in its data folder. Move them to a server with: quillet"
          " copy. Or open books that are on a server with: quillet --server");
    }
    server.hosts = parseHosts(txthosts.text());
    server.user = txtuser.text();
    server.database = txtdatabase.text();
    server.authority = txtauthority.text();
    server.passwordFile = txtpasswordfile.text();
    validate(server);
    if (!server.passwordFile.empty()) passwordIn(server.passwordFile);
  } catch (const std::exception& error) {
    tell(error.what(), Icon::exclamation);
    focus(txthosts);
    return;
  }
  const bool changed = server != *kept;
  if (changed) keepServer(settings_, server);
  close();
  if (changed) tell("Quillet goes there at its next start.", Icon::information);
}

LayoutItem frmServer::layout() {
  return column({field("&Servers, the first first", txthosts, 40, 1),
                 field("&Account", txtuser, 30), field("&Database", txtdatabase, 30),
                 field("&Certificate of the authority", txtauthority, 40, 1),
                 field("File with the &password", txtpasswordfile, 40, 1), gap(),
                 row({gap(), item(cmdok), item(cmdcancel)})});
}

}  // namespace quillet::suite
