#include "suite/child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <system_error>
#include <utility>

namespace quillet::suite {
namespace {

void writeAll(int pipe, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = write(pipe, text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) _exit(EXIT_FAILURE);
    text.remove_prefix(written);
  }
}

// A lock on a file lasts until every copy of its descriptor is closed.
void closeAllBut(int pipe) {
  if (pipe > STDERR_FILENO + 1) close_range(STDERR_FILENO + 1, pipe - 1, 0);
  close_range(pipe + 1, ~0U, 0);
}

// Nothing may unwind from here into the copy of the program that started us.
[[noreturn]] void runAndExit(const std::function<void(const ChildProcess::Tell&)>& work, int pipe) {
  try {
    work([pipe](std::string_view text) { writeAll(pipe, text); });
  } catch (...) {
    _exit(EXIT_FAILURE);
  }
  _exit(EXIT_SUCCESS);
}

}  // namespace

ChildProcess::ChildProcess(const std::function<void(const Tell& tell)>& work) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) {
    throw std::system_error(errno, std::generic_category(), "pipe");
  }
  const pid_t parent = getpid();
  child_ = fork();
  if (child_ == 0) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) _exit(EXIT_FAILURE);
    closeAllBut(ends[1]);
    runAndExit(work, ends[1]);
  }
  const int error = errno;
  close(ends[1]);
  pipe_ = ends[0];
  if (child_ < 0) {
    close(pipe_);
    throw std::system_error(error, std::generic_category(), "fork");
  }
}

ChildProcess::~ChildProcess() {
  kill();
  close(pipe_);
}

std::string ChildProcess::read() {
  std::array<char, 4096> buffer{};
  ssize_t got = 0;
  do {
    got = ::read(pipe_, buffer.data(), buffer.size());
  } while (got < 0 && errno == EINTR);
  return got <= 0 ? std::string() : std::string(buffer.data(), got);
}

std::optional<std::string> ChildProcess::readWithin(std::chrono::milliseconds most) {
  pollfd wanted{pipe_, POLLIN, 0};
  if (poll(&wanted, 1, static_cast<int>(most.count())) <= 0) return std::nullopt;
  return read();
}

std::string ChildProcess::readAll() {
  std::string all;
  for (std::string text = read(); !text.empty(); text = read()) all += text;
  return all;
}

bool ChildProcess::finish() {
  if (child_ < 0) return false;
  int status = 0;
  while (waitpid(child_, &status, 0) < 0 && errno == EINTR) {
  }
  child_ = -1;
  signal_ = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
  return WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
}

void ChildProcess::kill() {
  if (child_ < 0) return;
  ::kill(child_, SIGKILL);
  finish();
}

std::optional<std::string> runInChild(const std::function<std::string()>& work) {
  ChildProcess child([&](const ChildProcess::Tell& tell) { tell(work()); });
  std::string text = child.readAll();
  return child.finish() ? std::optional(std::move(text)) : std::nullopt;
}

}  // namespace quillet::suite
