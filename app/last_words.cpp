#include "app/last_words.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <string_view>

#include "app/display.h"

namespace quillet::app {
namespace {

constexpr std::string_view words =
    "Quillet was ended by a fault, of the disk perhaps: it may be full or failing. What was stored "
    "before is safe; the last step may be missing, so look at it first. The file error.log in the "
    "data folder's folder database may tell more. Start Quillet again when the disk is in order.";

pid_t program = 0;  // its children end in their own way, and are not missed
int errors = -1;    // the program's own standard error, which the database library has at times
bool box = false;

// Whatever the program was doing: nothing here may wait or ask for memory.
void say(int signal) {
  std::signal(signal, SIG_DFL);
  if (getpid() != program) return;
  for (const std::string_view text :
       {std::string_view("quillet: "), words, std::string_view("\n")}) {
    if (write(errors, text.data(), text.size()) < 0) break;
  }
  if (box && vfork() == 0) {
    execl("/proc/self/exe", "quillet", lastWordsOption, nullptr);
    _exit(127);
  }
}

}  // namespace

void prepareLastWords(bool inBox) {
  program = getpid();
  errors = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3);
  box = inBox;
  for (const int signal : {SIGABRT, SIGSEGV, SIGBUS, SIGFPE, SIGILL}) {
    struct sigaction before {};
    // Whoever watches the program already, such as a sanitizer, goes on doing so.
    if (sigaction(signal, nullptr, &before) == 0 && before.sa_handler == SIG_DFL) {
      std::signal(signal, say);
    }
  }
}

int showLastWords() {
  const auto application = openDisplay();
  application->dialogs().MsgBox({std::string(words), "Quillet", Buttons::OK, Icon::critical});
  return 1;
}

}  // namespace quillet::app
