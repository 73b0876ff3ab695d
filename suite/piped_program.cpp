#include "suite/piped_program.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <thread>

namespace quillet::suite {
namespace {

using Steady = std::chrono::steady_clock;

// Its ends of the socket, and nothing else that we have open.
std::optional<pid_t> start(const std::vector<std::string>& words, int socket) {
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_adddup2(&files, socket, STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&files, socket, STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addclosefrom_np(&files, STDERR_FILENO + 1);
  pid_t process = -1;
  const int error =
      posix_spawnp(&process, arguments.front(), &files, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&files);
  return error == 0 ? std::optional(process) : std::nullopt;
}

// Until it closes its end or the time is over.
std::string receive(int socket) {
  const auto end = Steady::now() + std::chrono::minutes(1);
  std::string text;
  std::array<char, 1024> part{};
  while (true) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Steady::now());
    pollfd waiting{socket, POLLIN, 0};
    if (left.count() <= 0 || poll(&waiting, 1, static_cast<int>(left.count())) <= 0) return text;
    const ssize_t size = read(socket, part.data(), part.size());
    if (size <= 0) return text;
    text.append(part.data(), static_cast<std::size_t>(size));
  }
}

}  // namespace

std::optional<std::string> outputOf(const std::vector<std::string>& words,
                                    const std::string& input) {
  std::array<int, 2> ends{};
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) return std::nullopt;
  const auto process = start(words, ends[1]);
  close(ends[1]);
  std::string text;
  int status = -1;
  if (process) {
    send(ends[0], input.data(), input.size(), MSG_NOSIGNAL);
    shutdown(ends[0], SHUT_WR);
    text = receive(ends[0]);
    close(ends[0]);
    if (waitpid(*process, &status, WNOHANG) == 0) {
      std::this_thread::sleep_for(std::chrono::milliseconds(100));
      if (waitpid(*process, &status, WNOHANG) == 0) {
        kill(*process, SIGKILL);
        waitpid(*process, &status, 0);
      }
    }
  } else {
    close(ends[0]);
  }
  if (status != 0) return std::nullopt;
  return text;
}

}  // namespace quillet::suite
