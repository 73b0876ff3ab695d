#include "suite/server_form.h"

#include <stdexcept>

#include "suite/database.h"
#include "suite/server_password.h"
#include "suite/server_settings.h"

namespace quillet::suite {

frmServer::frmServer(OpenForms& openForms, Settings& settings, Dialogs& dialogs)
    : PlainDialog(openForms, "frmServer", "Database Server", dialogs), settings_(settings) {
  attach(cmdok, cmdcancel);
}

void frmServer::load() {
  size = {0.4, 0.2, size.font};
  const ServerAddress server = serverIn(settings_).value_or(ServerAddress{});
  txthosts.setText(hostsText(server.hosts));
  txtsocket.setText(server.socket);
  txtuser.setText(server.user);
  txtdatabase.setText(server.database);
  txtauthority.setText(server.authority);
  txtpasswordfile.setText(server.passwordFile);
  txthosts.setToolTip("Without a server the books are in the data folder.");
  txtsocket.setToolTip("On the server's own machine, in place of servers: its socket.");
  txtpasswordfile.setToolTip("Without a file the password is in the keyring, or asked for.");
  focus(txthosts);
}

ServerAddress frmServer::typed(ServerAddress kept) const {
  kept.hosts = parseHosts(txthosts.text());
  kept.socket = txtsocket.text();
  kept.user = txtuser.text();
  kept.database = txtdatabase.text();
  kept.authority = txtauthority.text();
  kept.passwordFile = txtpasswordfile.text();
  validate(kept);
  if (!kept.hosts.empty() && !kept.socket.empty()) {
    throw std::runtime_error("Name either servers or a socket of this machine.");
  }
  if (!kept.passwordFile.empty()) passwordIn(kept.passwordFile);
  return kept;
}

// Whoever keeps what does not work now can start the program no more until it does.
bool frmServer::mayKeep(const ServerAddress& server) {
  try {
    withPassword(
        server, [this](const std::string& prompt) { return dialogs_.password(prompt); },
        [&](const std::string& password) {
          Database::connect({server, password, false});
        });
    return true;
  } catch (const std::exception& error) {
    return dialogs_.MsgBox({error.what() + std::string("\n\nKeep these settings all the same?"),
                            caption(), Buttons::YesNo, Icon::question, Answer::No}) == Answer::Yes;
  }
}

// The books do not move with the settings: a practice that is in its folder stays there.
void frmServer::keep() {
  const auto kept = serverIn(settings_);
  ServerAddress server;
  try {
    if (!kept) {
      throw std::runtime_error(
          "The books of this practice are in its data folder. Move them to a server with: quillet"
          " copy. Or open books that are on a server with: quillet --server");
    }
    server = typed(*kept);
  } catch (const std::exception& error) {
    tell(error.what(), Icon::exclamation);
    focus(txthosts);
    return;
  }
  const bool changed = server != *kept;
  if (changed && !mayKeep(server)) {
    focus(txthosts);
    return;
  }
  if (changed) keepServer(settings_, server);
  close();
  if (changed) tell("Quillet goes there at its next start.");
}

LayoutItem frmServer::layout() {
  return column({field("&Servers, the first first", txthosts, 40, 1),
                 field("or the soc&ket of one on this machine", txtsocket, 40, 1),
                 field("&Account", txtuser, 30), field("&Database", txtdatabase, 30),
                 field("&Certificate of the authority", txtauthority, 40, 1),
                 field("File with the &password", txtpasswordfile, 40, 1), gap(),
                 row({gap(), item(cmdok), item(cmdcancel)})});
}

}  // namespace quillet::suite
