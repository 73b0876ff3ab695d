// The MariaDB client: embedded on a data folder by default, or connected to a server. The only
// place that includes the client library is its implementation.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "data/recordset.h"
#include "ports/ports.h"
#include "suite/folder_examination.h"
#include "suite/server_address.h"

namespace quillet::suite {

class Database : public Connection {
 public:
  // Starts the embedded server on the folder (made when missing) and opens the schema "quillet".
  // Throws std::runtime_error with a message that names the folder when another process holds it,
  // when it cannot be written or when it is damaged; the folder is then untouched. The policy
  // says what is done when that cannot be told. Once in a
  // process: the server library does not survive a second start.
  static std::unique_ptr<Database> openEmbedded(const std::filesystem::path& folder,
                                                const ExaminationPolicy& policy = {});

  struct Server {
    ServerAddress address;
    std::string password;
    bool mayBeNew = true;  // false: a database without tables has been lost
  };
  // No other station opens the database until share() or until this object goes. Throws
  // std::runtime_error that tells that there are no books where there should be, or what the server
  // is to be set to; WrongPassword.
  static std::unique_ptr<Database> connect(const Server& server);

  ~Database() override;

  // Executes a statement; throws RunTimeError with the server's number and text. Text that is not
  // UTF-8 is refused before it becomes SQL.
  void execute(const std::string& sql);
  // On a server: with the next statement, in one request. An error of it is thrown then as
  // LaterFailed. An embedded one executes it at once.
  void executeLater(const std::string& sql);
  // Does not send what was to be sent later.
  void forgetLater();
  // A select, or any statement that returns rows.
  RecordsetPtr query(const std::string& sql);
  // The same; `answer` is the same number for the same rows, and hardly ever for others.
  RecordsetPtr query(const std::string& sql, std::size_t& answer);
  std::string escape(const std::string& text) const;

  // The books are complete: other stations may open them from now on. Nothing for an embedded one.
  void share();

  // What is told while a statement waits for a server, or a connection is opened again that an act
  // needs; see ClientConnection.
  void tellWaiting(std::function<void(bool)> waiting);

  // Opens the connection again when it was lost, or when its server takes no changes any more: to
  // the first host that does. What was not committed is gone. Waits a while for one, if wanted.
  // Throws std::runtime_error as connect() does.
  enum class Waiting { no, yes };
  void renewConnection(Waiting waiting = Waiting::yes);

  // Two for whoever does nothing meanwhile, on a server: neither waits for it longer than a moment.
  // Whether it is there; false while it has not answered. Throws RunTimeError when it has not for
  // as long as a statement may take, or when the connection is lost.
  bool answersSoon();
  // As renewConnection(); false while hosts may still answer.
  bool renewConnectionSoon();
  // For the end of the program: a server that does not answer within some seconds is waited for no
  // more, and everything that is sent there fails at once.
  void giveUpIfSilent() noexcept;

  // Whether its tables can keep the rows that were changed or deleted.
  bool keepsHistory() const;

  // Where an embedded database keeps the definitions of its tables; empty for a server.
  std::filesystem::path schemaFolder() const;

  // Runs work that fills a database without tables. An embedded one that this process has made is
  // not synchronised to the disk until the end, which is much faster; all of it is durable when
  // this returns. When the process dies meanwhile, that database is empty again at the next start.
  void bulkLoad(const std::function<void()>& work);

 private:
  class Impl;
  explicit Database(std::unique_ptr<Impl> impl);
  std::unique_ptr<Impl> impl_;
};

}  // namespace quillet::suite
