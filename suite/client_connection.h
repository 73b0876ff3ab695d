// One connection to a database server: that within this process, or one elsewhere. Errors are
// RunTimeError with the number and text of the server or of the client library.
#pragma once

#include <chrono>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "data/errors.h"
#include "data/recordset.h"

struct st_mysql;

namespace quillet::suite {

struct ClientLibrary;

// Where a connection goes and how long it may take.
struct ServerEntrance {
  std::string host{};
  unsigned port = 0;
  std::string socket{};  // on this machine, in place of host and port
  std::string user{};
  std::string password{};
  bool encrypted = false;       // with the certificate and the name of the server checked
  std::string authority{};      // the file with the certificates to trust; "": the system's
  unsigned connectSeconds = 0;  // 0: no limit
  unsigned answerSeconds = 0;   // for each wait within a statement
};

// A statement that was to be sent with the next one.
class LaterFailed : public RunTimeError {
 public:
  explicit LaterFailed(const RunTimeError& error) : RunTimeError(error) {}
};

class ClientConnection {
 public:
  // To the server within this process, or prepared for one elsewhere.
  ClientConnection();
  static ClientConnection remote();
  ~ClientConnection();
  ClientConnection(ClientConnection&& other) noexcept;
  ClientConnection& operator=(ClientConnection&& other) noexcept;

  void open();
  void open(const ServerEntrance& entrance);

  // While a statement waits for a server elsewhere: true after a second, and again and again; false
  // once it goes on. Nothing may be sent meanwhile.
  using Waiting = std::function<void(bool)>;
  void tellWaiting(Waiting waiting) { waiting_ = std::move(waiting); }

  // Text that is not UTF-8 is refused before it becomes SQL.
  void send(const std::string& sql);
  RecordsetPtr rows();
  void execute(const std::string& sql);
  // With the next statement, in one request. An error of it is thrown then, as LaterFailed; what
  // follows it is not sent.
  void executeLater(const std::string& sql);
  void forgetLater() { later_.clear(); }
  RecordsetPtr query(const std::string& sql);
  // `answer` is the same number for the same rows, and hardly ever for others.
  RecordsetPtr query(const std::string& sql, std::size_t& answer);
  std::string escape(const std::string& text) const;
  // "'text'"
  std::string quoted(const std::string& text) const { return '\'' + escape(text) + '\''; }

  // By which the server knows it.
  unsigned long number() const;
  bool answers();

  // Asks a server elsewhere whether it is there. The answer is waited for by answered(), no longer
  // than that, or by the next statement. Throw RunTimeError as a statement does.
  void ask();
  bool asked() const { return asked_; }
  bool answered(std::chrono::milliseconds longest);
  // Nothing waits for the other end any more: the connection is lost.
  void giveUp();
  bool gaveUp() const { return gaveUp_; }

 private:
  explicit ClientConnection(const ClientLibrary& library);
  [[noreturn]] void fail() const;
  [[noreturn]] void failStatement() const;
  RunTimeError statementError() const;
  bool sent(const std::string& sql);
  void awaitAnswer();
  void sendAfterLater(const std::string& sql);
  void takeAnswer();

  const ClientLibrary* library_;
  st_mysql* connection_;
  std::vector<std::string> later_;
  std::size_t laterSize_ = 0;
  bool asked_ = false;  // and the answer was not read yet
  bool gaveUp_ = false;
  unsigned answerSeconds_ = 0;
  Waiting waiting_;
};

}  // namespace quillet::suite
