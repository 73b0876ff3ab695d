#include "suite/server_login.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <iterator>
#include <map>
#include <string_view>

#include "data/errors.h"
#include "data/text.h"
#include "suite/server_errors.h"

namespace quillet::suite {
namespace {

using Host = ServerAddress::Host;

constexpr long smallestVersion = 1011;  // 10.11
constexpr long smallestPacket = 16L << 20;
constexpr long notReady = 1047;

std::string lower(std::string text) {
  std::ranges::transform(text, text.begin(),
                         [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

std::map<std::string, std::string> pairs(ClientConnection& connection, const std::string& sql) {
  std::map<std::string, std::string> found;
  const RecordsetPtr rows = connection.query(sql);
  for (; !rows->EOF_(); rows->MoveNext()) found[lower(rows->text(0))] = rows->text(1);
  return found;
}

std::map<std::string, std::string> variables(ClientConnection& connection) {
  return pairs(connection,
               "show variables where variable_name in ('version','lower_case_table_names',"
               "'max_allowed_packet','read_only','secure_timestamp','enforce_storage_engine',"
               "'system_versioning_insert_history','wsrep_on','innodb_read_only','log_bin',"
               "'binlog_format')");
}

bool takesChanges(std::map<std::string, std::string>& set) {
  return set["read_only"] == "OFF" && set["innodb_read_only"] == "OFF";
}

// "10.11.6-MariaDB-1" is 1011; 0 for another make.
long versionOf(const std::string& text) {
  if (text.find("MariaDB") == std::string::npos) return 0;
  char* rest = nullptr;
  const long major = std::strtol(text.c_str(), &rest, 10);
  return *rest == '.' ? major * 100 + std::strtol(rest + 1, nullptr, 10) : 0;
}

// What keeps a node of a cluster from working, "" when nothing does.
std::string clusterFault(ClientConnection& connection) {
  auto status = pairs(connection,
                      "show global status where variable_name in ('wsrep_ready',"
                      "'wsrep_cluster_status','wsrep_local_state_comment')");
  if (status["wsrep_ready"] == "ON") return {};
  if (status["wsrep_cluster_status"] != "Primary") {
    return "too few nodes of its cluster can reach each other, so nothing can be stored. Start the"
           " other nodes, or mend the network between them";
  }
  return "this node of the cluster is not ready yet (" + status["wsrep_local_state_comment"] + ')';
}

// What a server that answers says to a connection, and what is to be done; null for anything else.
const char* refusal(long number) {
  switch (number) {
    case 1040:  // too many connections
    case 1203:  // ... of one account
    case 1226:  // ... in an hour
      return "it has as many connections as it allows. Close Quillet where it is not used, or set"
             " max_connections higher there";
    case 1129:  // after many errors
    case 1130:
      return "it lets nobody in from this computer. Whoever keeps the server allows it";
    case 1820:
    case 1862:
      return "the password of the account has expired there. Whoever keeps the server gives it a "
             "new"
             " one";
    case 4151:
      return "the account is locked there. Whoever keeps the server unlocks it";
    default:
      return nullptr;
  }
}

std::string openingFault(const ServerAddress& address, const Host& host,
                         const RunTimeError& error) {
  const std::string text = error.what();
  const auto has = [&](const char* part) { return text.find(part) != std::string::npos; };
  if (const char* refused = refusal(error.number())) return refused + (" (" + text + ')');
  if (error.number() != 2026) {
    if (has("timed out") || has("timeout") || error.number() == 2013 || has("initial comm")) {
      return noAnswerWithin(address.connectSeconds) + " (" + text + ')';
    }
    return text + ". Look whether the server runs and can be reached";
  }
  if (has("expired")) {
    return "its certificate has expired. Whoever keeps the server gives it a new one, unless this"
           " computer's clock is ahead (" +
           text + ')';
  }
  if (has("not yet valid")) {
    return "its certificate is not valid yet. Look whether this computer's clock is right (" +
           text + ')';
  }
  if (has("not support") || has("not encrypted")) {
    return "it does not encrypt connections. Without that nothing is sent to another machine; set"
           " ssl_cert and ssl_key there";
  }
  if (has("host") || has("name") || has("Hostname") || has("Validation")) {
    return "its certificate is not for the name " + host.name +
           ". Name the server as its certificate does (" + text + ')';
  }
  return "its certificate is signed by nobody who is trusted here. Name the file with the"
         " certificate of the authority" +
         (address.authority.empty() ? std::string() : ", another one than " + address.authority) +
         " (" + text + ')';
}

ServerEntrance entranceTo(const ServerAddress& address, const Host& host,
                          const std::string& password) {
  ServerEntrance entrance;
  entrance.user = address.user;
  entrance.password = password;
  entrance.connectSeconds = address.connectSeconds;
  entrance.answerSeconds = address.answerSeconds;
  if (!address.socket.empty()) {
    entrance.socket = address.socket;
    return entrance;
  }
  entrance.host = host.name;
  entrance.port = portOf(host);
  entrance.encrypted = !isThisMachine(host) || !address.authority.empty();
  entrance.authority = address.authority;
  return entrance;
}

// Ahead of the first question, so that it is answered wholly. Servers that are too old for the rest
// take this as well.
void beginSession(ClientConnection& connection) {
  connection.executeLater("set names utf8mb4");
  connection.executeLater(
      "set session sql_select_limit=18446744073709551615,sql_big_selects=1"
      "/*M!100100 ,max_statement_time=0*/");
}

// What the server proposes to its other users does not reach the books.
void prepareSession(ClientConnection& connection, unsigned answerSeconds, bool isNode) {
  // Ahead of the moment at which the station gives up: what was not done in time ends there too.
  const std::string longest =
      std::to_string(answerSeconds * 9 / 10) + '.' + std::to_string(answerSeconds * 9 % 10);
  connection.executeLater("set session autocommit=1");
  connection.execute(
      "set session sql_mode='STRICT_ALL_TABLES,ERROR_FOR_DIVISION_BY_ZERO,NO_ENGINE_SUBSTITUTION',"
      "wait_timeout=2147483,"  // a practice stays open for days
      // Stations that wait for each other see what the other one has committed.
      "tx_isolation='READ-COMMITTED',innodb_lock_wait_timeout=30,tx_read_only=0,completion_type=0,"
      // One that fell asleep in the midst of an act gives its turn up before the next one gives up.
      "idle_transaction_timeout=25,idle_write_transaction_timeout=25,"
      "idle_readonly_transaction_timeout=0,lock_wait_timeout=86400,"
      "sql_safe_updates=0,sql_auto_is_null=0,system_versioning_asof=default,"
      "group_concat_max_len=1048576,max_sort_length=1024,div_precision_increment=4,"
      "max_statement_time=" +
      longest +
      // What was committed at another node is read at this one.
      (isNode ? ",wsrep_sync_wait=1" : ""));
}

// Throws RunTimeError or std::runtime_error that tells what is wrong with the host.
ClientConnection enter(const ServerAddress& address, const Host& host,
                       const std::string& password) {
  ClientConnection connection = ClientConnection::remote();
  try {
    connection.open(entranceTo(address, host, password));
    beginSession(connection);
    const std::vector<std::string> wrong = wrongSettings(connection);
    if (!wrong.empty()) throw std::runtime_error(listed(wrong, "; "));
    prepareSession(connection, address.answerSeconds, variables(connection)["wsrep_on"] == "ON");
    return connection;
  } catch (const RunTimeError& error) {
    if (isWrongPassword(error.number())) throw WrongPassword(error.what());
    throw std::runtime_error(openingFault(address, host, error));
  }
}

}  // namespace

std::string listed(const std::vector<std::string>& texts, const char* between) {
  std::string text;
  for (const std::string& each : texts) text += (text.empty() ? "" : between) + each;
  return text;
}

ClientConnection logIn(const ServerAddress& address, const std::string& password,
                       const std::vector<SilentHost>& silent) {
  validate(address);
  std::vector<Host> hosts = address.hosts;
  if (!address.socket.empty()) hosts = {{.name = address.socket}};
  std::vector<std::string> faults;
  for (const Host& host : hosts) {
    const std::string told = "The database server " + hostsText({host});
    if (const auto known = std::ranges::find(silent, host, &SilentHost::host);
        known != silent.end()) {
      faults.push_back(told + " cannot be used: " + known->fault + '.');
      continue;
    }
    try {
      return enter(address, host, password);
    } catch (const WrongPassword& error) {
      throw WrongPassword(told + " does not take the password of " + address.user + " (" +
                          error.what() + ").");
    } catch (const std::exception& error) {
      faults.push_back(told + " cannot be used: " + error.what() + '.');
    }
  }
  throw std::runtime_error(listed(faults, " "));
}

bool isReady(ClientConnection& connection) {
  try {
    if (!connection.answers()) return false;
    auto set = variables(connection);
    return takesChanges(set) && (set["wsrep_on"] != "ON" || clusterFault(connection).empty());
  } catch (const RunTimeError&) {
    return false;
  }
}

std::vector<std::string> wrongSettings(ClientConnection& connection) {
  auto set = variables(connection);
  if (versionOf(set["version"]) < smallestVersion) {
    return {"it is " + set["version"] + ", and MariaDB 10.11 or later is needed"};
  }
  std::vector<std::string> wrong;
  if (set["lower_case_table_names"] == "0") {
    wrong.emplace_back(
        "it tells upper from lower case in table names: set lower_case_table_names=1 there before"
        " the database is made");
  }
  if (std::strtol(set["max_allowed_packet"].c_str(), nullptr, 10) < smallestPacket) {
    wrong.emplace_back("it takes short statements only: set max_allowed_packet=64M there");
  }
  const std::string engine = lower(set["enforce_storage_engine"]);
  if (!engine.empty() && engine != "innodb") {
    wrong.emplace_back("it makes tables of another kind: remove enforce_storage_engine there");
  }
  if (set["secure_timestamp"] != "NO") {
    wrong.emplace_back("it keeps stations from dating their acts: set secure_timestamp=NO there");
  }
  if (set["log_bin"] == "ON" && set["binlog_format"] == "STATEMENT") {
    wrong.emplace_back(
        "its log for replicas takes no changes of stations: set binlog_format=MIXED there");
  }
  const std::string cluster = set["wsrep_on"] == "ON" ? clusterFault(connection) : "";
  if (!cluster.empty()) {
    wrong.push_back(cluster);
  } else if (!takesChanges(set)) {
    wrong.emplace_back(
        "it is read-only: name the server that takes changes, or set read_only=0 and"
        " innodb_read_only=0 there");
  }
  return wrong;
}

// --- rights -------------------------------------------------------------------------------------

const std::vector<std::string>& neededRights() {
  static const std::vector<std::string> rights{"select",        "insert", "update",
                                               "delete",        "create", "drop",
                                               "index",         "alter",  "create temporary tables",
                                               "delete history"};
  return rights;
}

namespace {

// "%" and "_" stand for any text and character, "\_" for themselves.
bool matches(std::string_view pattern, std::string_view name) {
  if (pattern.empty()) return name.empty();
  if (pattern.front() == '%') {
    return matches(pattern.substr(1), name) || (!name.empty() && matches(pattern, name.substr(1)));
  }
  const bool any = pattern.front() == '_';
  if (pattern.front() == '\\') pattern.remove_prefix(1);
  if (name.empty() || pattern.empty()) return false;
  return (any || equalIgnoringCase(pattern.substr(0, 1), name.substr(0, 1))) &&
         matches(pattern.substr(1), name.substr(1));
}

// Of "GRANT SELECT, INSERT ON `quillet`.* TO ...": the rights, when it is about the database.
std::string_view rightsIn(std::string_view grant, const std::string& database) {
  constexpr std::string_view start = "GRANT ";
  const std::size_t on = grant.find(" ON ");
  const std::size_t to = grant.find(".* TO ");
  if (!grant.starts_with(start) || on == std::string_view::npos || to == std::string_view::npos) {
    return {};
  }
  std::string_view place = grant.substr(on + 4, to - on - 4);
  const bool everywhere = place == "*";
  if (place.size() >= 2 && place.front() == '`') place = place.substr(1, place.size() - 2);
  return everywhere || matches(place, database) ? grant.substr(start.size(), on - start.size())
                                                : std::string_view();
}

}  // namespace

std::vector<std::string> missingRights(ClientConnection& connection, const std::string& database) {
  std::string given = ",";
  const RecordsetPtr grants = connection.query("show grants");
  for (; !grants->EOF_(); grants->MoveNext()) {
    for (const char c : lower(std::string(rightsIn(grants->text(0), database)))) {
      if (c != ' ' || !given.ends_with(',')) given += c;
    }
    given += ',';
  }
  std::vector<std::string> missing;
  if (given.find(",all privileges,") != std::string::npos) return missing;
  std::ranges::copy_if(neededRights(), std::back_inserter(missing), [&](const std::string& right) {
    return given.find(',' + right + ',') == std::string::npos;
  });
  return missing;
}

}  // namespace quillet::suite
