#include "suite/client_connection.h"

#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <functional>
#include <new>
#include <optional>
#include <utility>

#include "data/errors.h"
#include "data/text.h"
#include "suite/client_library.h"
#include "suite/server_errors.h"

namespace quillet::suite {
namespace {

constexpr const char* databaseSource = "MariaDB";
constexpr const char* charset = "utf8mb4";
constexpr long connectionLost = 2013;

// Other ways to say that the connection is gone during a statement.
constexpr std::array lostAsWell{
    1053L,  // the server is being shut down
    1158L,  // reading from the network
    1159L,  // ... in time
    1160L,  // writing to it
    1161L,  // ... in time
    1927L,  // the connection was killed
    2026L,  // the encryption broke off
    4031L,  // the server has closed it for being idle
};

// The rows stay where the client library put them.
class StoredRows : public Recordset {
 public:
  StoredRows(const ClientLibrary& library, MYSQL_RES* result) : library_(library), result_(result) {
    if (result_ == nullptr) return;
    count_ = static_cast<long>(library_.countRows(result_));
    fields_ = library_.fields(result_);
    fieldCount_ = static_cast<int>(library_.countFields(result_));
    fetch();
  }
  ~StoredRows() override { library_.freeRows(result_); }
  StoredRows(const StoredRows&) = delete;
  StoredRows& operator=(const StoredRows&) = delete;

  bool EOF_() const override { return row_ == nullptr; }
  void MoveNext() override {
    if (result_ != nullptr) fetch();
  }
  long RecordCount() const override { return count_; }
  int fieldCount() const override { return fieldCount_; }
  std::string_view fieldName(int column) const override {
    checkColumn(column);
    return {fields_[column].name, fields_[column].name_length};
  }
  std::optional<std::string_view> field(int column) const override {
    checkColumn(column);
    if (row_ == nullptr) {
      throw RunTimeError(3021, "There is no current record.", databaseSource);
    }
    if (row_[column] == nullptr) return std::nullopt;
    return std::string_view(row_[column], lengths_[column]);
  }
  bool numeric(int column) const override {
    checkColumn(column);
    return IS_NUM(fields_[column].type);
  }
  // Of all rows; the first one is the current one afterwards.
  std::size_t digest() {
    auto digest = static_cast<std::size_t>(count_);
    const auto add = [&](std::size_t value) {
      digest ^= value + 0x9e3779b97f4a7c15U + (digest << 6U) + (digest >> 2U);
    };
    for (; !EOF_(); MoveNext()) {
      for (int column = 0; column < fieldCount_; ++column) {
        const auto value = field(column);
        add(value ? std::hash<std::string_view>()(*value) : 0);
      }
    }
    if (count_ > 0) {
      library_.toRow(result_, 0);
      fetch();
    }
    return digest;
  }

 private:
  void fetch() {
    row_ = library_.nextRow(result_);
    lengths_ = row_ == nullptr ? nullptr : library_.lengths(result_);
  }
  void checkColumn(int column) const {
    if (column < 0 || column >= fieldCount_) {
      throw RunTimeError(3265, "There is no column " + std::to_string(column) + ".",
                         databaseSource);
    }
  }

  const ClientLibrary& library_;
  MYSQL_RES* result_;
  MYSQL_FIELD* fields_ = nullptr;
  MYSQL_ROW row_ = nullptr;
  unsigned long* lengths_ = nullptr;
  long count_ = 0;
  int fieldCount_ = 0;
};

const char* orNull(const std::string& text) { return text.empty() ? nullptr : text.c_str(); }

}  // namespace

ClientConnection::ClientConnection(const ClientLibrary& library)
    : library_(&library), connection_(library.init(nullptr)) {
  if (connection_ == nullptr) throw std::bad_alloc();
  library_->options(connection_, MYSQL_SET_CHARSET_NAME, charset);
}

ClientConnection::ClientConnection() : ClientConnection(embeddedClient()) {}
ClientConnection ClientConnection::remote() { return ClientConnection(remoteClient()); }

ClientConnection::~ClientConnection() {
  if (connection_ != nullptr) library_->close(connection_);
}

ClientConnection::ClientConnection(ClientConnection&& other) noexcept
    : library_(other.library_),
      connection_(std::exchange(other.connection_, nullptr)),
      asked_(std::exchange(other.asked_, false)),
      gaveUp_(other.gaveUp_),
      answerSeconds_(other.answerSeconds_),
      waiting_(std::move(other.waiting_)) {}

ClientConnection& ClientConnection::operator=(ClientConnection&& other) noexcept {
  std::swap(library_, other.library_);
  std::swap(connection_, other.connection_);
  std::swap(asked_, other.asked_);
  std::swap(gaveUp_, other.gaveUp_);
  std::swap(answerSeconds_, other.answerSeconds_);
  std::swap(waiting_, other.waiting_);
  return *this;
}

void ClientConnection::open() {
  if (library_->connect(connection_, nullptr, nullptr, nullptr, nullptr, 0, nullptr, 0) ==
      nullptr) {
    fail();
  }
}

void ClientConnection::open(const ServerEntrance& entrance) {
  const auto set = [&](mysql_option option, const auto& value) {
    library_->options(connection_, option, &value);
  };
  constexpr my_bool no = 0;
  constexpr my_bool yes = 1;
  // A new connection would be without the transaction that was open.
  set(MYSQL_OPT_RECONNECT, no);
  if (entrance.connectSeconds > 0) set(MYSQL_OPT_CONNECT_TIMEOUT, entrance.connectSeconds);
  answerSeconds_ = entrance.answerSeconds;
  if (entrance.answerSeconds > 0) {
    set(MYSQL_OPT_READ_TIMEOUT, entrance.answerSeconds);
    set(MYSQL_OPT_WRITE_TIMEOUT, entrance.answerSeconds);
  }
  if (entrance.port != 0) {
    constexpr unsigned tcp = MYSQL_PROTOCOL_TCP;
    set(MYSQL_OPT_PROTOCOL, tcp);
  }
  if (entrance.encrypted) {
    library_->useCertificates(connection_, nullptr, nullptr, orNull(entrance.authority), nullptr,
                              nullptr);
    set(MYSQL_OPT_SSL_VERIFY_SERVER_CERT, yes);
  }
  if (library_->connect(connection_, orNull(entrance.host), orNull(entrance.user),
                        entrance.password.c_str(), nullptr, entrance.port, orNull(entrance.socket),
                        CLIENT_MULTI_STATEMENTS) == nullptr) {
    fail();
  }
  if (entrance.encrypted && library_->cipher(connection_) == nullptr) {
    throw RunTimeError(2026, "The connection is not encrypted.", databaseSource);
  }
}

void ClientConnection::send(const std::string& sql) {
  if (!isUtf8(sql)) throw RunTimeError(1300, "The text is not valid UTF-8.", databaseSource);
  if (asked_) takeAnswer();
  if (!later_.empty()) return sendAfterLater(sql);
  if (!sent(sql)) failStatement();
}

bool ClientConnection::sent(const std::string& sql) {
  if (!waiting_) return library_->send(connection_, sql.data(), sql.size()) == 0;
  if (library_->begin(connection_, sql.data(), sql.size()) != 0) return false;
  awaitAnswer();
  return library_->finish(connection_) == 0;
}

// The library's own limit begins when it reads: past it the connection is lost.
void ClientConnection::awaitAnswer() {
  using std::chrono::steady_clock;
  constexpr int first = 1000;
  constexpr int again = 200;
  const auto end = steady_clock::now() + std::chrono::seconds(answerSeconds_);
  pollfd answer{library_->socket(connection_), POLLIN, 0};
  bool told = false;
  for (int wait = first; poll(&answer, 1, wait) == 0; wait = again) {
    if (answerSeconds_ > 0 && steady_clock::now() > end) {
      giveUp();
      break;
    }
    waiting_(told = true);
  }
  if (told) waiting_(false);
}

void ClientConnection::executeLater(const std::string& sql) {
  // What a server takes in one request is limited.
  constexpr std::size_t most = 256UL * 1024;
  if (!isUtf8(sql)) throw RunTimeError(1300, "The text is not valid UTF-8.", databaseSource);
  if (later_.empty()) laterSize_ = 0;
  later_.push_back(sql);
  laterSize_ += sql.size();
  if (laterSize_ > most) execute("do 0");
}

void ClientConnection::sendAfterLater(const std::string& sql) {
  const std::vector<std::string> before = std::exchange(later_, {});
  std::string all;
  for (const std::string& each : before) all += each + ';';
  all += sql;
  bool failed = !sent(all);
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (failed) throw LaterFailed(statementError());
    library_->freeRows(library_->storeRows(connection_));
    failed = library_->nextRows(connection_) != 0;
  }
  if (failed) failStatement();
}

RecordsetPtr ClientConnection::rows() {
  MYSQL_RES* result = library_->storeRows(connection_);
  if (result == nullptr && library_->errorNumber(connection_) != 0) failStatement();
  return std::make_unique<StoredRows>(*library_, result);
}

void ClientConnection::execute(const std::string& sql) {
  send(sql);
  library_->freeRows(library_->storeRows(connection_));
}

RecordsetPtr ClientConnection::query(const std::string& sql) {
  send(sql);
  return rows();
}

RecordsetPtr ClientConnection::query(const std::string& sql, std::size_t& answer) {
  send(sql);
  auto rows = this->rows();
  answer = static_cast<StoredRows&>(*rows).digest();
  return rows;
}

std::string ClientConnection::escape(const std::string& text) const {
  std::string escaped(text.size() * 2 + 1, '\0');
  escaped.resize(library_->escape(connection_, escaped.data(), text.data(), text.size()));
  return escaped;
}

unsigned long ClientConnection::number() const { return library_->connectionNumber(connection_); }
bool ClientConnection::answers() {
  try {
    if (asked_) takeAnswer();
  } catch (const RunTimeError&) {
    return false;
  }
  return library_->ping(connection_) == 0;
}

void ClientConnection::ask() {
  constexpr std::string_view nothing = "do 0";
  if (library_->begin(connection_, nothing.data(), nothing.size()) != 0) failStatement();
  asked_ = true;
}

void ClientConnection::takeAnswer() {
  asked_ = false;
  if (library_->finish(connection_) != 0) failStatement();
}

bool ClientConnection::answered(std::chrono::milliseconds longest) {
  if (!asked_) return true;
  pollfd answer{library_->socket(connection_), POLLIN, 0};
  if (poll(&answer, 1, static_cast<int>(longest.count())) == 0) return false;
  takeAnswer();
  return true;
}

void ClientConnection::giveUp() {
  gaveUp_ = true;
  shutdown(library_->socket(connection_), SHUT_RDWR);
}

void ClientConnection::failStatement() const { throw statementError(); }

RunTimeError ClientConnection::statementError() const {
  const auto number = static_cast<long>(library_->errorNumber(connection_));
  const std::string text = library_->errorText(connection_);
  if (library_ == &embeddedClient()) return {number, text, databaseSource};
  const bool lost = std::find(lostAsWell.begin(), lostAsWell.end(), number) != lostAsWell.end();
  const long meant = lost ? connectionLost : number;
  return {meant, explained(meant, text), databaseSource};
}

void ClientConnection::fail() const {
  throw RunTimeError(static_cast<long>(library_->errorNumber(connection_)),
                     library_->errorText(connection_), databaseSource);
}

}  // namespace quillet::suite
