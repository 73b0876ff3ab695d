#include "support/child.h"

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <stdexcept>

namespace quillet::support {
namespace {

void writeAll(int file, const std::string& text) {
  std::size_t at = 0;
  while (at < text.size()) {
    const ssize_t written = write(file, text.data() + at, text.size() - at);
    if (written <= 0) _exit(1);
    at += static_cast<std::size_t>(written);
  }
}

// Appends what is there; false at the end.
bool readSome(int file, std::string& text) {
  std::array<char, 4096> buffer{};
  const ssize_t got = read(file, buffer.data(), buffer.size());
  if (got <= 0) return false;
  text.append(buffer.data(), static_cast<std::size_t>(got));
  return true;
}

struct Started {
  pid_t child;
  int pipe;
};

Started start(const std::function<void(int pipe)>& work) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
  fflush(nullptr);
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("no child");
  if (child == 0) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);  // a test that is stopped leaves no child behind
    close(ends[0]);
    // Nothing may unwind from here into the copy of the test program.
    try {
      work(ends[1]);
    } catch (const std::exception& error) {
      fprintf(stderr, "child: %s\n", error.what());
      _exit(1);
    }
    _exit(0);
  }
  close(ends[1]);
  return {child, ends[0]};
}

}  // namespace

std::string inChild(const std::function<std::string()>& work) {
  const Started started = start([&](int pipe) {
    std::string text;
    try {
      text = work();
    } catch (const std::exception& error) {
      text = std::string("error: ") + error.what();
    }
    writeAll(pipe, text);
  });
  std::string text;
  while (readSome(started.pipe, text)) {
  }
  close(started.pipe);
  int status = 0;
  waitpid(started.child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? text : "died";
}

Reporting::Reporting(const std::function<void(const Tell&)>& work) {
  const Started started =
      start([&](int pipe) { work([&](const std::string& line) { writeAll(pipe, line + '\n'); }); });
  child_ = started.child;
  pipe_ = started.pipe;
}

Reporting::~Reporting() {
  kill();
  close(pipe_);
}

std::string Reporting::next() {
  std::size_t end;
  while ((end = pending_.find('\n')) == std::string::npos) {
    if (!readSome(pipe_, pending_)) return {};
  }
  std::string line = pending_.substr(0, end);
  pending_.erase(0, end + 1);
  return line;
}

std::string Reporting::kill() {
  if (child_ > 0) {
    ::kill(child_, SIGKILL);
    waitpid(child_, nullptr, 0);
    child_ = -1;
    while (readSome(pipe_, pending_)) {
    }
  }
  return pending_;
}

}  // namespace quillet::support
