// How a second Quillet asks the running one for a backup: a socket in the data folder, which only
// the owner can use.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace quillet::suite::backup {

// The running program's end.
class RequestSocket {
 public:
  // The caller holds the folder. Throws std::runtime_error where there can be no socket.
  explicit RequestSocket(const std::filesystem::path& dataFolder);
  ~RequestSocket();
  RequestSocket(const RequestSocket&) = delete;
  RequestSocket& operator=(const RequestSocket&) = delete;

  // Readable when somebody asks.
  int descriptor() const { return socket_; }
  // Lets the work make the backup that was asked for, and answers with what it throws. Returns at
  // once when nobody asks.
  void answer(const std::function<void(const std::filesystem::path& file)>& work);

 private:
  std::filesystem::path folder_;
  int socket_ = -1;
};

struct Patience {
  std::chrono::seconds toBegin{10};  // a program that is at work, or hangs
  std::chrono::seconds toEnd{3600};
};

// Asks the program that has the folder open for a backup. Returns whether one is there; throws
// std::runtime_error when it could not make the backup or does not answer.
bool requestBackup(const std::filesystem::path& dataFolder, const std::filesystem::path& file,
                   const Patience& patience = {});

}  // namespace quillet::suite::backup
