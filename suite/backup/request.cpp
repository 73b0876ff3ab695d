#include "suite/backup/request.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <string_view>
#include <system_error>

namespace quillet::suite::backup {
namespace {

namespace fs = std::filesystem;

constexpr const char* socketName = "socket";
constexpr std::string_view begun = "begun", ended = "done";

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  operator int() const { return number_; }

 private:
  int number_;
};

// One message each way, whole or not at all.
Descriptor makeSocket() { return Descriptor(socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0)); }

// An address holds 108 bytes: the folder is named by a descriptor of it, however long its path is.
sockaddr_un addressIn(int folder) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  const std::string path = "/proc/self/fd/" + std::to_string(folder) + '/' + socketName;
  path.copy(address.sun_path, sizeof address.sun_path - 1);
  return address;
}

const sockaddr* plain(const sockaddr_un& address) {
  return reinterpret_cast<const sockaddr*>(&address);
}

Descriptor openFolder(const fs::path& folder) {
  return Descriptor(open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
}

void waitAtMost(int socket, std::chrono::seconds limit) {
  const timeval time{limit.count(), 0};
  setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &time, sizeof time);
  setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &time, sizeof time);
}

bool isOwner(int socket) {
  ucred other{};
  socklen_t size = sizeof other;
  return getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &other, &size) == 0 && other.uid == geteuid();
}

// Returns whether the other end is still there.
bool tell(int socket, std::string_view text) {
  return send(socket, text.data(), std::min<std::size_t>(text.size(), 4000), MSG_NOSIGNAL) >= 0;
}

// Nothing when none came in time; "" when the other end is gone.
std::optional<std::string> receive(int socket) {
  std::array<char, 8192> buffer{};
  ssize_t got = 0;
  do {
    got = recv(socket, buffer.data(), buffer.size(), 0);
  } while (got < 0 && errno == EINTR);
  if (got < 0) return std::nullopt;
  return std::string(buffer.data(), got);
}

}  // namespace

RequestSocket::RequestSocket(const fs::path& dataFolder) : folder_(dataFolder) {
  const Descriptor folder = openFolder(folder_);
  // What a killed program left; nobody else holds the folder.
  unlinkat(folder, socketName, 0);
  socket_ = socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  const sockaddr_un address = addressIn(folder);
  // The name takes these rights, less those that the user's mask removes.
  if (socket_ < 0 || fchmod(socket_, 0600) != 0 ||
      bind(socket_, plain(address), sizeof address) != 0 || listen(socket_, 4) != 0) {
    const int error = errno;
    if (socket_ >= 0) close(socket_);
    throw std::runtime_error("No backups can be asked for in " + folder_.string() + ": " +
                             std::generic_category().message(error) + ".");
  }
}

RequestSocket::~RequestSocket() {
  unlink((folder_ / socketName).c_str());
  close(socket_);
}

void RequestSocket::answer(const std::function<void(const fs::path& file)>& work) {
  const Descriptor asker(accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC));
  if (asker < 0 || !isOwner(asker)) return;
  waitAtMost(asker, std::chrono::seconds(1));
  const std::optional<std::string> file = receive(asker);
  if (!file || !fs::path(*file).is_absolute()) return;
  if (!tell(asker, begun)) return;  // gave up
  try {
    work(*file);
    tell(asker, ended);
  } catch (const std::exception& error) {
    tell(asker, error.what());
  }
}

bool requestBackup(const fs::path& dataFolder, const fs::path& file, const Patience& patience) {
  const Descriptor folder = openFolder(dataFolder);
  const Descriptor running = makeSocket();
  const sockaddr_un address = addressIn(folder);
  waitAtMost(running, patience.toBegin);
  if (folder < 0 || running < 0 || connect(running, plain(address), sizeof address) != 0) {
    return false;
  }
  if (!isOwner(running)) throw std::runtime_error("Another user's program has the folder open.");
  tell(running, fs::absolute(file).string());
  std::optional<std::string> reply = receive(running);
  if (reply == begun) {
    waitAtMost(running, patience.toEnd);
    reply = receive(running);
  }
  if (reply == ended) return true;
  throw std::runtime_error(!reply ? "The running Quillet does not answer. A question may"
                                    " be open in it; answer it and try again."
                           : reply->empty()
                               ? "The running Quillet ended before the backup was made."
                               : *reply);
}

}  // namespace quillet::suite::backup
