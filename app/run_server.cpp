#include "app/run_server.h"

#include <iostream>
#include <stdexcept>

#include "app/new_folder.h"
#include "suite/copy/copy_practice.h"
#include "suite/firm_name.h"
#include "suite/server_login.h"
#include "suite/server_password.h"
#include "suite/server_setup.h"
#include "suite/settings.h"
#include "suite/stations/sole_use.h"

namespace quillet::app {
namespace {

using suite::ClientConnection;
using suite::ServerAddress;

// Making many tables takes a server its time.
constexpr unsigned patientSeconds = 3'600;

ServerAddress patient(const std::string& url) {
  ServerAddress address = suite::parseServerUrl(url);
  address.answerSeconds = patientSeconds;
  return address;
}

// Calls the work with a connection of the administrator's and the password that opened it.
void asAdministrator(
    const ServerAddress& address,
    const std::function<void(ClientConnection& connection, const std::string& password)>& work) {
  std::optional<ClientConnection> connection;
  std::string password;
  suite::withPassword(address, suite::askAtTerminal, [&](const std::string& tried) {
    connection = suite::logIn(address, tried);
    password = tried;
  });
  work(*connection, password);
}

// From the file, or typed twice.
std::string newPassword(const std::string& name, const std::filesystem::path& file) {
  if (!file.empty()) return suite::passwordIn(file.string());
  const auto typed = suite::askAtTerminal("New password of " + name);
  if (!typed) {
    throw std::runtime_error("The account " + name +
                             " needs a password: type it at a terminal, or name a file that only"
                             " you can read with --account-password-file");
  }
  if (suite::askAtTerminal("The same again") != typed) {
    throw std::runtime_error("The two passwords differ. No account was made.");
  }
  return *typed;
}

// The password of the account that is to be made, "" when it is there.
std::string passwordOfNew(ClientConnection& connection, const Options& options) {
  return suite::accountExists(connection, options.account)
             ? std::string()
             : newPassword(options.account, options.passwordFile);
}

// As a shell takes it for one word.
std::string quoted(const std::string& text) {
  std::string result = "'";
  for (const char each : text) result += each == '\'' ? std::string("'\\''") : std::string(1, each);
  return result + '\'';
}

void giveAccount(ClientConnection& connection, const ServerAddress& address,
                 const std::string& name, const std::string& password) {
  const bool isNew = !password.empty();
  suite::makeAccount(connection, address.database, name, password);
  ServerAddress station = address;
  station.user = name;
  std::cout << "The account " << name << (isNew ? " was made" : " keeps its password")
            << " and has the rights on the database " << address.database
            << ". A station is started with:\n  quillet --server " << quoted(station.url()) << '\n';
}

}  // namespace

int runServerInit(const Options& options) {
  const ServerAddress address = patient(options.server);
  asAdministrator(address, [&](ClientConnection& connection, const std::string& password) {
    for (const std::string& line : suite::settingsTold(connection)) std::cout << line << '\n';
    // What is wrong with it is told before anything is made.
    const std::string ofAccount =
        options.account.empty() ? std::string() : passwordOfNew(connection, options);
    suite::makeDatabase(connection, address.database);
    fillServer(address, password);
    std::cout << "The database " << address.database << " was made.\n";
    if (!options.account.empty()) giveAccount(connection, address, options.account, ofAccount);
  });
  return 0;
}

int runServerAccount(const Options& options) {
  if (options.account.empty()) {
    throw std::runtime_error("An account needs a name: quillet server-account URL NAME");
  }
  const ServerAddress address = patient(options.server);
  asAdministrator(address, [&](ClientConnection& connection, const std::string& /*password*/) {
    giveAccount(connection, address, options.account, passwordOfNew(connection, options));
  });
  return 0;
}

// --- copying
// --------------------------------------------------------------------------------------

namespace {

using suite::Database;
using suite::DataFolder;

std::unique_ptr<Database> openServer(const ServerAddress& address, bool mayBeNew) {
  std::unique_ptr<Database> database;
  suite::withPassword(address, suite::askAtTerminal, [&](const std::string& password) {
    database = Database::connect({address, password, mayBeNew});
  });
  return database;
}

std::unique_ptr<Database> openFolder(const DataFolder& folder, bool mayBeNew) {
  suite::ExaminationPolicy policy;
  policy.mayBeNew = mayBeNew;
  return Database::openEmbedded(folder.database(), policy);
}

void tell(const suite::Copied& copied) {
  std::cout << copied.tables << " tables with " << copied.rows
            << " rows, those of the past included, were copied and compared.\n";
}

void keepSettings(const DataFolder& from, const DataFolder& to) {
  const suite::Settings settings(from.settings());
  suite::Settings kept(to.settings());
  kept.setCompanyName(settings.companyName());
  if (const auto count = settings.tableCount()) {
    kept.set("Suite", "TableCount", std::to_string(*count));
  }
}

// The firm's name goes to the books, where they are complete; the station's settings do for others.
void keepFirm(const DataFolder& folder, Database& server) {
  suite::Settings settings(folder.settings());
  if (server.query("show tables like 'SuiteAct'")->EOF_()) return;
  suite::ActLog log(server);
  suite::UnitOfWork unit(server);
  log.open();
  log.alone("Copy", [&] { suite::FirmName(settings, unit).set(settings.companyName()); });
}

void copyToServer(const Options& options) {
  const DataFolder folder = DataFolder::open(options.from);
  const auto from = openFolder(folder, false);
  suite::refuseHalfCopied(*from);
  const auto to = openServer(patient(options.to), true);
  tell(suite::copyBooks(*from, *to));
  keepFirm(folder, *to);
  const DataFolder station = DataFolder::open(folderForServer(options.data, options.to));
  suite::copyFiles(folder, station);
  keepSettings(folder, station);
  std::cout << "The documents went to " << station.root().string() << ". The folder "
            << folder.root().string()
            << " is as it was; nobody is to work in it any more. Give each person an account:\n  "
               "quillet server-account "
            << quoted(options.to) << " NAME\n";
}

void copyToFolder(const Options& options) {
  const auto from = openServer(patient(options.from), false);
  suite::refuseHalfCopied(*from);
  suite::refuseOtherStations(*from, "Copying");
  const DataFolder folder = DataFolder::create(options.to);
  markUnfinished(folder.root());
  {
    const auto to = openFolder(folder, true);
    tell(suite::copyBooks(*from, *to));
  }
  const auto station = stationFolder(options.data, options.from);
  if (DataFolder::isThere(station)) {
    suite::copyFiles(DataFolder::open(station), folder);
    keepSettings(DataFolder::open(station), folder);
  }
  suite::Settings settings(folder.settings());
  suite::UnitOfWork unit(*from);
  settings.setCompanyName(suite::FirmName(settings, unit).get());
  markFinished(folder.root());
  std::cout << "Start Quillet with:\n  quillet --data " << folder.root().string() << '\n';
}

}  // namespace

int runCopy(const Options& options) {
  const bool fromServer = suite::isServerUrl(options.from);
  if (fromServer == suite::isServerUrl(options.to)) {
    throw std::runtime_error(
        "A practice is copied from a data folder to a server or from a server to a data folder. A"
        " server is named as mariadb://user@host/database.");
  }
  fromServer ? copyToFolder(options) : copyToServer(options);
  return 0;
}

}  // namespace quillet::app
