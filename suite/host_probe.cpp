#include "suite/host_probe.h"

#include <fcntl.h>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <condition_variable>
#include <cstring>
#include <mutex>
#include <thread>
#include <utility>

namespace quillet::suite {
namespace {

constexpr const char* lookThere = ". Look whether the server runs and can be reached";

using Steady = std::chrono::steady_clock;
using Host = ServerAddress::Host;

class Socket {
 public:
  explicit Socket(int family)
      : number_(socket(family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {}
  ~Socket() {
    if (number_ >= 0) close(number_);
  }
  Socket(const Socket&) = delete;
  Socket& operator=(const Socket&) = delete;
  int number() const { return number_; }

 private:
  int number_;
};

// 0, or the error that it ended with.
int waitFor(int socket, short what, Steady::time_point end) {
  pollfd waiting{socket, what, 0};
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Steady::now());
  const int ready = poll(&waiting, 1, static_cast<int>(std::max<long>(0, left.count())));
  if (ready == 0) return ETIMEDOUT;
  if (ready < 0) return errno;
  int error = 0;
  socklen_t size = sizeof error;
  getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &size);
  return error;
}

// A server greets whoever connects.
int greeted(const sockaddr* address, socklen_t size, Steady::time_point end) {
  const Socket made(address->sa_family);
  if (made.number() < 0) return errno;
  if (connect(made.number(), address, size) != 0) {
    if (errno == EAGAIN) return ETIMEDOUT;  // as many wait at its socket as may
    if (errno != EINPROGRESS) return errno;
    if (const int error = waitFor(made.number(), POLLOUT, end); error != 0) return error;
  }
  return waitFor(made.number(), POLLIN, end);
}

std::string faultOf(int error, unsigned seconds) {
  if (error == 0 || error == ECONNREFUSED || error == ENOENT) return {};
  if (error == ETIMEDOUT) return noAnswerWithin(seconds);
  return "it cannot be reached (" + std::string(std::strerror(error)) + ')' + lookThere;
}

std::string faultOfSocket(const std::string& path, unsigned seconds) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof address.sun_path) return {};
  std::ranges::copy(path, address.sun_path);
  return faultOf(greeted(reinterpret_cast<const sockaddr*>(&address), sizeof address,
                         Steady::now() + std::chrono::seconds(seconds)),
                 seconds);
}

std::string faultOfHost(const Host& host, unsigned seconds) {
  const unsigned port = portOf(host);
  // The client library knows where the socket of this machine is.
  if (port == 0) return {};
  const auto end = Steady::now() + std::chrono::seconds(seconds);
  addrinfo wanted{};
  wanted.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  const int unknown = getaddrinfo(host.name.c_str(), std::to_string(port).c_str(), &wanted, &found);
  if (unknown != 0) {
    return "it cannot be found (" + std::string(gai_strerror(unknown)) + ')' + lookThere;
  }
  std::string fault;
  for (const addrinfo* each = found; each != nullptr; each = each->ai_next) {
    fault = faultOf(greeted(each->ai_addr, each->ai_addrlen, end), seconds);
    if (fault.empty()) break;
  }
  freeaddrinfo(found);
  return fault;
}

}  // namespace

std::string noAnswerWithin(unsigned seconds) {
  return "it does not answer within " + std::to_string(seconds) + " s" + lookThere;
}

struct HostProbe::Work {
  std::mutex mutex;
  std::condition_variable changed;
  std::vector<SilentHost> hosts;
  std::size_t open = 0;  // how many may still answer

  void add(const Host& host, std::string fault) {
    const std::lock_guard lock(mutex);
    const auto found = std::ranges::find(hosts, host, &SilentHost::host);
    found->fault = std::move(fault);
    --open;
    changed.notify_all();
  }
};

void HostProbe::begin(const ServerAddress& address) {
  const auto work = std::make_shared<Work>();
  std::vector<Host> hosts = address.hosts;
  if (!address.socket.empty()) hosts = {{.name = address.socket}};
  for (const Host& host : hosts) work->hosts.push_back({host, {}});
  work->open = hosts.size();
  for (const Host& host : hosts) {
    // Looking a name up may take its time as well. Nothing that the program takes down at its end
    // is used there.
    std::thread([work, host, isSocket = !address.socket.empty(), seconds = address.connectSeconds] {
      work->add(host, isSocket ? faultOfSocket(host.name, seconds) : faultOfHost(host, seconds));
    }).detach();
  }
  work_ = work;
}

std::optional<std::vector<SilentHost>> HostProbe::silent(const ServerAddress& address,
                                                         std::chrono::milliseconds longest) {
  if (!work_) begin(address);
  const auto work = work_;
  std::unique_lock lock(work->mutex);
  if (!work->changed.wait_for(lock, longest, [&] { return work->open == 0; })) return std::nullopt;
  work_.reset();
  std::erase_if(work->hosts, [](const SilentHost& host) { return host.fault.empty(); });
  return work->hosts;
}

}  // namespace quillet::suite
