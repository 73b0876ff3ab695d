#include "app/apart.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <stdexcept>
#include <string>
#include <system_error>

namespace quillet::app {
namespace {

// The child's words to its parent: nothing when all went well.
[[noreturn]] void workAndTell(const std::function<void()>& work, int pipe) {
  try {
    work();
  } catch (const std::exception& error) {
    const std::string text = error.what();
    const auto written = write(pipe, text.data(), text.size());
    _exit(written < 0 ? 2 : 1);
  }
  _exit(0);
}

std::string readAll(int pipe) {
  std::string text;
  std::array<char, 512> buffer;
  while (true) {
    const auto count = read(pipe, buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return text;
    text.append(buffer.data(), static_cast<std::size_t>(count));
  }
}

[[noreturn]] void failed(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

}  // namespace

void runApart(const std::function<void()>& work) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) failed("pipe");
  const pid_t child = fork();
  if (child < 0) failed("fork");
  if (child == 0) {
    close(ends[0]);
    workAndTell(work, ends[1]);
  }
  close(ends[1]);
  const std::string text = readAll(ends[0]);
  close(ends[0]);
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  if (status == 0) return;
  throw std::runtime_error(text.empty() ? "the process that prepared the data folder ended" : text);
}

}  // namespace quillet::app
