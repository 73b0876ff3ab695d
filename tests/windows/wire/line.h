// A connection between the two, over the machine's own loopback. Wine's sockets are the system's.
#pragma once

#include <optional>

#include "wire/values.h"

namespace quillet::wire {

class Line {
 public:
#ifdef _WIN32
  using Socket = std::uintptr_t;
#else
  using Socket = int;
#endif
  // Takes the socket over.
  explicit Line(Socket socket) : socket_(socket) {}
  // Throws std::runtime_error when nobody listens.
  static Line to(std::uint16_t port);
  Line(Line&& other) noexcept;
  Line& operator=(Line&&) = delete;
  ~Line();

  void send(const Values& values);
  // Nothing when the other side is gone.
  std::optional<Values> receive();

 private:
  bool receive(char* bytes, std::size_t count);

  Socket socket_;
};

}  // namespace quillet::wire
