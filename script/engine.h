// Runs one script on a session.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "script/session.h"

struct lua_State;

namespace quillet::script {

class Engine {
 public:
  explicit Engine(Session& session);

  struct Outcome {
    int status = 0;       // the exit status that the script asked for, 1 when it failed
    std::string message;  // why it failed, with file and line; "" when it did not
  };
  // `arguments` become the table `arg` and the script's `...`.
  Outcome run(const std::filesystem::path& file, const std::vector<std::string>& arguments);

  // The handler of a signal that asks the program to end: the script ends as by os.exit, with 128
  // and the signal as its status.
  static void endSoon(int signal) noexcept;

 private:
  struct Closer {
    void operator()(lua_State* state) const;
  };
  std::unique_ptr<lua_State, Closer> state_;
};

}  // namespace quillet::script
