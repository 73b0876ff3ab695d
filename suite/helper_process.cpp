#include "suite/helper_process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <thread>

namespace quillet::suite {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds tickTime = 40ms;

[[noreturn]] void endedUnexpectedly() {
  throw std::runtime_error("The spreadsheet program ended unexpectedly");
}

// The child's ends: the socket for input and output, nothing else of what we have open.
class ChildFiles {
 public:
  explicit ChildFiles(int socket) {
    posix_spawn_file_actions_init(&actions_);
    posix_spawn_file_actions_adddup2(&actions_, socket, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions_, socket, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);
  }
  ~ChildFiles() { posix_spawn_file_actions_destroy(&actions_); }
  ChildFiles(const ChildFiles&) = delete;
  ChildFiles& operator=(const ChildFiles&) = delete;
  const posix_spawn_file_actions_t* get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_;
};

// A process group of its own, so that what the helper starts goes with it.
class ChildAttributes {
 public:
  ChildAttributes() {
    posix_spawnattr_init(&attributes_);
    posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK);
    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_setsigmask(&attributes_, &none);
  }
  ~ChildAttributes() { posix_spawnattr_destroy(&attributes_); }
  ChildAttributes(const ChildAttributes&) = delete;
  ChildAttributes& operator=(const ChildAttributes&) = delete;
  const posix_spawnattr_t* get() const { return &attributes_; }

 private:
  posix_spawnattr_t attributes_;
};

std::filesystem::path newTemporaryFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "quillet-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) {
    throw std::runtime_error("No temporary folder can be made: " +
                             std::string(std::strerror(errno)));
  }
  return pattern;
}

// Our environment with another temporary folder.
std::vector<std::string> environmentWith(const std::filesystem::path& temporary) {
  std::vector<std::string> variables{"TMPDIR=" + temporary.string()};
  for (char** variable = environ; *variable != nullptr; ++variable) {
    if (std::string_view(*variable).substr(0, 7) != "TMPDIR=") variables.emplace_back(*variable);
  }
  return variables;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace

HelperProcess::HelperProcess(const std::filesystem::path& program,
                             const std::vector<std::string>& arguments,
                             std::chrono::milliseconds limit)
    : limit_(limit), temporary_(newTemporaryFolder()) {
  int ends[2];
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) {
    throw std::runtime_error(std::strerror(errno));
  }
  const std::string name = program.string();
  std::vector<std::string> words{name};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<std::string> variables = environmentWith(temporary_);
  const ChildFiles files(ends[1]);
  const ChildAttributes attributes;
  const int error = posix_spawn(&process_, name.c_str(), files.get(), attributes.get(),
                                pointersTo(words).data(), pointersTo(variables).data());
  ::close(ends[1]);
  if (error != 0) {
    ::close(ends[0]);
    std::filesystem::remove(temporary_);
    throw std::runtime_error("The program " + name + " cannot be started: " + std::strerror(error));
  }
  socket_ = ends[0];
}

HelperProcess::~HelperProcess() {
  kill();
  ::close(socket_);
  std::error_code ignored;
  std::filesystem::remove_all(temporary_, ignored);
}

void HelperProcess::kill() {
  if (process_ <= 0) return;
  ::kill(-process_, SIGKILL);
  waitpid(process_, nullptr, 0);
  process_ = -1;
}

void HelperProcess::waitFor(short event, Clock::time_point end) {
  for (;;) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
    pollfd wanted{socket_, event, 0};
    const auto most = tick_ ? std::min(left, tickTime) : left;
    const int ready = left <= 0ms ? 0 : poll(&wanted, 1, static_cast<int>(most.count()));
    if (ready > 0) return;
    if (ready < 0 && errno == EINTR) continue;
    if (left > most) {
      tick_();
      continue;
    }
    const auto seconds = std::chrono::duration<double>(limit_).count();
    throw std::runtime_error("The spreadsheet program did not answer within " +
                             std::to_string(std::lround(seconds)) + " seconds");
  }
}

void HelperProcess::send(std::string_view lines) {
  const auto end = Clock::now() + limit_;
  while (!lines.empty()) {
    waitFor(POLLOUT, end);
    const ssize_t sent = ::send(socket_, lines.data(), lines.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (sent < 0 && (errno == EAGAIN || errno == EINTR)) continue;
    if (sent < 0) endedUnexpectedly();
    lines.remove_prefix(sent);
  }
}

std::string HelperProcess::receiveLine() {
  const auto end = Clock::now() + limit_;
  for (;;) {
    if (const auto feed = received_.find('\n'); feed != std::string::npos) {
      std::string line = received_.substr(0, feed);
      received_.erase(0, feed + 1);
      return line;
    }
    waitFor(POLLIN, end);
    char bytes[4096];
    const ssize_t got = recv(socket_, bytes, sizeof bytes, MSG_DONTWAIT);
    if (got < 0 && (errno == EAGAIN || errno == EINTR)) continue;
    if (got <= 0) endedUnexpectedly();
    received_.append(bytes, got);
  }
}

bool HelperProcess::answersWithin(std::chrono::milliseconds most) {
  if (!received_.empty()) return true;
  pollfd wanted{socket_, POLLIN, 0};
  return poll(&wanted, 1, static_cast<int>(most.count())) > 0;
}

bool HelperProcess::finish() {
  shutdown(socket_, SHUT_WR);
  const auto end = Clock::now() + limit_;
  auto next = Clock::now() + tickTime;
  while (process_ > 0 && Clock::now() < end) {
    int status = 0;
    if (waitpid(process_, &status, WNOHANG) == process_) {
      ::kill(-process_, SIGKILL);  // what it may have left behind
      process_ = -1;
      return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }
    std::this_thread::sleep_for(5ms);
    if (!tick_ || Clock::now() < next) continue;
    tick_();
    next = Clock::now() + tickTime;
  }
  kill();
  return false;
}

}  // namespace quillet::suite
