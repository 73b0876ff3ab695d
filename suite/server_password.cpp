#include "suite/server_password.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <stdexcept>
#include <vector>

#include "suite/piped_program.h"
#include "suite/server_login.h"

namespace quillet::suite {
namespace {

constexpr int mostAttempts = 3;
constexpr const char* keyring = "secret-tool";

std::string firstLine(std::string text) {
  text.resize(std::min(text.find_first_of("\r\n"), text.size()));
  return text;
}

std::string readAll(int file) {
  std::string text;
  std::array<char, 1024> part{};
  for (ssize_t size; (size = read(file, part.data(), part.size())) > 0;) {
    text.append(part.data(), static_cast<std::size_t>(size));
  }
  return text;
}

// By which the keyring knows it.
std::vector<std::string> attributes(const ServerAddress& address) {
  return {"application", "quillet", "server", address.place(), "user", address.user};
}

std::optional<std::string> runKeyring(std::vector<std::string> words, const ServerAddress& address,
                                      const std::string& input = {}) {
  words.insert(words.begin(), keyring);
  for (std::string& word : attributes(address)) words.push_back(std::move(word));
  return outputOf(words, input);
}

// What is shown on a terminal while this lives is not what is typed.
class HiddenTyping {
 public:
  explicit HiddenTyping(int terminal) : terminal_(terminal) {
    if (tcgetattr(terminal_, &before_) != 0) return;
    termios hidden = before_;
    hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    hidden.c_lflag |= ECHONL;
    changed_ = tcsetattr(terminal_, TCSAFLUSH, &hidden) == 0;
  }
  ~HiddenTyping() {
    if (changed_) tcsetattr(terminal_, TCSAFLUSH, &before_);
  }
  HiddenTyping(const HiddenTyping&) = delete;
  HiddenTyping& operator=(const HiddenTyping&) = delete;
  explicit operator bool() const { return changed_; }

 private:
  int terminal_;
  termios before_{};
  bool changed_ = false;
};

// A signal that ends the program ends a read first, and does its work when this is gone: the
// terminal shows again what is typed.
class LateSignals {
 public:
  LateSignals() {
    struct sigaction late {};
    late.sa_handler = [](int signal) { came_ = signal; };
    came_ = 0;
    for (std::size_t i = 0; i < signals.size(); ++i) sigaction(signals[i], &late, &before_[i]);
  }
  ~LateSignals() {
    for (std::size_t i = 0; i < signals.size(); ++i) sigaction(signals[i], &before_[i], nullptr);
    if (came_ != 0) raise(came_);
  }
  LateSignals(const LateSignals&) = delete;
  LateSignals& operator=(const LateSignals&) = delete;

 private:
  static constexpr std::array signals{SIGINT, SIGTERM, SIGHUP, SIGQUIT};
  static inline volatile std::sig_atomic_t came_ = 0;
  std::array<struct sigaction, signals.size()> before_{};
};

// True when the server has taken it.
bool opens(const std::string& password, const std::function<void(const std::string&)>& open) {
  try {
    open(password);
    return true;
  } catch (const WrongPassword&) {
    return false;
  }
}

}  // namespace

std::string passwordIn(const std::string& file) {
  const int opened = open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
  struct stat state {};
  if (opened < 0 || fstat(opened, &state) != 0) {
    if (opened >= 0) close(opened);
    throw std::runtime_error("The file " + file + ", which is to hold a password, cannot be read.");
  }
  const bool isOwn = state.st_uid == geteuid() && (state.st_mode & 077) == 0;
  const std::string text = isOwn && S_ISREG(state.st_mode) ? readAll(opened) : "";
  close(opened);
  if (!isOwn) {
    throw std::runtime_error("The file " + file +
                             ", which holds a password, is not yours alone. Change the password if"
                             " others may have read it, and say: chmod 600 " +
                             file);
  }
  if (firstLine(text).empty()) {
    throw std::runtime_error("The file " + file + " holds no password in its first line.");
  }
  return firstLine(text);
}

namespace {

WrongPassword neededPassword(const ServerAddress& address) {
  return WrongPassword("The database server " + address.place() + " needs the password of " +
                       address.user +
                       ". Type it when you are asked, or name a file that only you can read as"
                       " PasswordFile in the section [Server] of settings.ini.");
}

}  // namespace

void withPassword(const ServerAddress& address, const AskPassword& ask,
                  const std::function<void(const std::string& password)>& open,
                  const MayKeepPassword& mayKeep) {
  if (!address.passwordFile.empty()) return open(passwordIn(address.passwordFile));
  // The system's own account comes in without one.
  const bool bySocket =
      !address.socket.empty() ||
      (address.hosts.size() == 1 && address.hosts[0] == ServerAddress::Host{"localhost", 0});
  if (bySocket && opens({}, open)) return;
  const auto kept = passwordInKeyring(address);
  if (kept && opens(*kept, open)) return;
  const std::string whose = "Password of " + address.user + " at " + address.place();
  std::string prompt = (kept ? "The one in the keyring was not it. " : "") + whose;
  for (int attempt = 0; attempt < mostAttempts; ++attempt) {
    const auto typed = ask(prompt);
    if (!typed) throw neededPassword(address);
    if (opens(*typed, open)) {
      if (mayKeep && outputOf({keyring, "search", "application", "quillet"}, {}) &&
          mayKeep(address.user + " at " + address.place())) {
        keepInKeyring(address, *typed);
      }
      return;
    }
    prompt = "That was not it. " + whose;
  }
  throw WrongPassword("The database server " + address.place() +
                      " does not take what was typed as the password of " + address.user +
                      ". Try again, or have whoever keeps the server give the account a new one.");
}

std::optional<std::string> passwordInKeyring(const ServerAddress& address) {
  const auto found = runKeyring({"lookup"}, address);
  if (!found || firstLine(*found).empty()) return std::nullopt;
  return firstLine(*found);
}

bool keepInKeyring(const ServerAddress& address, const std::string& password) {
  return runKeyring({"store", "--label=Quillet at " + address.place()}, address, password)
      .has_value();
}

std::optional<std::string> askAtTerminal(const std::string& prompt) {
  const int terminal = open("/dev/tty", O_RDWR | O_CLOEXEC);
  if (terminal < 0) return std::nullopt;
  std::string typed;
  const LateSignals late;
  if (const HiddenTyping hidden(terminal); hidden) {
    const std::string shown = prompt + ": ";
    std::array<char, 256> line{};
    if (write(terminal, shown.data(), shown.size()) > 0) {
      const ssize_t size = read(terminal, line.data(), line.size());
      if (size > 0) typed = firstLine(std::string(line.data(), static_cast<std::size_t>(size)));
    }
  }
  close(terminal);
  return typed.empty() ? std::nullopt : std::optional(typed);
}

}  // namespace quillet::suite
