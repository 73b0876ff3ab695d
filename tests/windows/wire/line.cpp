#include "wire/line.h"

#ifdef _WIN32
#include <winsock2.h>
#else
#include <arpa/inet.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>
#endif

#include <stdexcept>
#include <utility>

namespace quillet::wire {
namespace {

#ifdef _WIN32
constexpr int sendFlags = 0;
constexpr Line::Socket none = INVALID_SOCKET;
void close(Line::Socket socket) { closesocket(socket); }
void start() {
  WSADATA data;
  WSAStartup(MAKEWORD(2, 2), &data);
}
#else
constexpr int sendFlags = MSG_NOSIGNAL;
constexpr Line::Socket none = -1;
void close(Line::Socket socket) { ::close(socket); }
void start() {}
#endif

// Small lists go at once.
void withoutDelay(Line::Socket socket) {
  const int on = 1;
  setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<const char*>(&on), sizeof on);
}

}  // namespace

Line Line::to(std::uint16_t port) {
  start();
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  Line line(::socket(AF_INET, SOCK_STREAM, 0));
  if (connect(line.socket_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
    throw std::runtime_error("Nobody listens on port " + std::to_string(port) + ".");
  }
  withoutDelay(line.socket_);
  return line;
}

Line::Line(Line&& other) noexcept : socket_(std::exchange(other.socket_, none)) {}

Line::~Line() {
  if (socket_ != none) close(socket_);
}

void Line::send(const Values& values) {
  const std::string content = packed(values);
  const std::string bytes = packedLength(content.size()) + content;
  for (std::size_t sent = 0; sent < bytes.size();) {
    const auto count =
        ::send(socket_, bytes.data() + sent, static_cast<int>(bytes.size() - sent), sendFlags);
    if (count <= 0) throw std::runtime_error("The other side of the line is gone.");
    sent += static_cast<std::size_t>(count);
  }
}

std::optional<Values> Line::receive() {
  std::string bytes(lengthBytes, '\0');
  if (!receive(bytes.data(), bytes.size())) return std::nullopt;
  bytes.resize(unpackedLength(bytes));
  if (!receive(bytes.data(), bytes.size())) return std::nullopt;
  return unpacked(bytes);
}

bool Line::receive(char* bytes, std::size_t count) {
  while (count > 0) {
    const auto received = recv(socket_, bytes, static_cast<int>(count), 0);
    if (received <= 0) return false;
    bytes += received;
    count -= static_cast<std::size_t>(received);
  }
  return true;
}

}  // namespace quillet::wire
