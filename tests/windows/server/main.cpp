// The suite's service object and its database for a program under Wine: suite_server PRACTICE. The
// first line that it writes is the port on which it listens, on this machine alone. It ends when
// its input does.
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <iostream>
#include <optional>
#include <stdexcept>

#include "server/operations.h"
#include "suite/clocks.h"
#include "suite/headless_front_end.h"
#include "suite/queued_dialogs.h"
#include "wire/line.h"

namespace {

using namespace quillet;

int listening() {
  const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  auto* const any = reinterpret_cast<sockaddr*>(&address);
  if (socket < 0 || bind(socket, any, size) != 0 || listen(socket, 1) != 0 ||
      getsockname(socket, any, &size) != 0) {
    throw std::runtime_error("There is no port to listen on.");
  }
  std::cout << ntohs(address.sin_port) << std::endl;
  return socket;
}

// The next program's line; nothing when the input ended.
std::optional<wire::Line> nextLine(int socket) {
  pollfd waiting[] = {{socket, POLLIN, 0}, {STDIN_FILENO, POLLIN, 0}};
  poll(waiting, 2, -1);
  if (waiting[1].revents != 0) return std::nullopt;
  return wire::Line(accept(socket, nullptr, nullptr));
}

void serve(const char* folder) {
  suite::QueuedDialogs dialogs;
  suite::HeadlessFrontEnd frontEnd(dialogs);
  suite::SystemClock clock;
  suite::Practice practice(suite::DataFolder::open(folder), frontEnd, clock);
  practice.service().statements().record(true);
  const int socket = listening();
  while (auto line = nextLine(socket)) {
    while (const auto asked = line->receive()) line->send(server::perform(practice, *asked));
  }
}

}  // namespace

int main(int count, char** arguments) {
  try {
    if (count != 2) throw std::runtime_error("Usage: suite_server PRACTICE");
    serve(arguments[1]);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "suite_server: " << error.what() << '\n';
    return 1;
  }
}
