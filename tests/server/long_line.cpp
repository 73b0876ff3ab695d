#include "server/long_line.h"

#include <arpa/inet.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <stdexcept>
#include <string_view>

namespace quillet::support {
namespace {

constexpr std::chrono::milliseconds soon{5};

sockaddr_in loopback(unsigned port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  return address;
}

int newSocket() {
  const int made = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (made < 0) throw std::runtime_error("no socket");
  return made;
}

// Nothing waits for a full packet.
void atOnce(int socket) {
  const int on = 1;
  setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

// False when the other end is gone.
bool pass(int to, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t sent = send(to, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
  return true;
}

// A packet of the client that ends with that statement.
bool isCommit(std::string_view bytes) { return bytes.size() > 5 && bytes.ends_with("commit"); }

}  // namespace

LongLine::LongLine(unsigned server, std::chrono::milliseconds delay)
    : server_(server), delay_(delay), listening_(newSocket()) {
  sockaddr_in address = loopback(0);
  socklen_t size = sizeof address;
  if (bind(listening_, reinterpret_cast<sockaddr*>(&address), size) != 0 ||
      listen(listening_, 16) != 0 ||
      getsockname(listening_, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
    throw std::runtime_error("no port");
  }
  port_ = ntohs(address.sin_port);
  accepting_ = std::thread([this] { accept(); });
}

LongLine::~LongLine() {
  ends_ = true;
  accepting_.join();
  for (std::thread& each : serving_) each.join();
  close(listening_);
}

void LongLine::accept() {
  for (; !ends_; std::this_thread::sleep_for(silent_ ? soon : soon * 0)) {
    if (silent_) continue;
    pollfd waiting{listening_, POLLIN, 0};
    if (poll(&waiting, 1, 50) != 1) continue;
    const int client = ::accept(listening_, nullptr, nullptr);
    const int server = newSocket();
    const sockaddr_in address = loopback(server_);
    if (connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
      close(server);
      close(client);
      continue;
    }
    atOnce(client);
    atOnce(server);
    serving_.emplace_back([this, client, server] { serve(client, server); });
  }
}

void LongLine::serve(int client, int server) {
  std::array<char, 1 << 16> bytes{};
  bool goesOn = true;
  for (; goesOn && !ends_; std::this_thread::sleep_for(silent_ ? soon : soon * 0)) {
    if (silent_) continue;
    std::array<pollfd, 2> ends{{{client, POLLIN, 0}, {server, POLLIN, 0}}};
    if (poll(ends.data(), ends.size(), 50) <= 0) continue;
    for (const pollfd& end : ends) {
      if (!goesOn || end.revents == 0) continue;
      const ssize_t size = recv(end.fd, bytes.data(), bytes.size(), 0);
      if (size <= 0) {
        goesOn = false;
        break;
      }
      const std::string_view read(bytes.data(), static_cast<std::size_t>(size));
      if (end.fd == server) {
        goesOn = pass(client, read);
        continue;
      }
      ++requests_;
      if (countdown_ > 0 && --countdown_ == 0) happens_();
      std::this_thread::sleep_for(delay_);
      for (; isCommit(read) && holds_ && !ends_; holding_ = holds_.load()) {
        holding_ = true;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
      }
      const bool breaks = isCommit(read) && break_ != Break::none;
      if (breaks && break_.exchange(Break::none) == Break::beforeCommit) {
        goesOn = false;
        break;
      }
      goesOn = pass(server, read);
      if (breaks) {
        // The server has done it when it has answered.
        for (pollfd answer{server, POLLIN, 0}; poll(&answer, 1, 200) == 1;) {
          if (recv(server, bytes.data(), bytes.size(), 0) <= 0) break;
        }
        goesOn = false;
      }
    }
  }
  close(client);
  close(server);
}

}  // namespace quillet::support
