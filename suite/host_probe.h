// Finds out which hosts of a server can be reached while the program goes on: one that drops what
// is sent to it keeps whoever connects waiting.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "suite/server_address.h"

namespace quillet::suite {

// A host from which nothing came, and why.
struct SilentHost {
  ServerAddress::Host host;
  std::string fault;
};

// "it does not answer within 10 s. ..."
std::string noAnswerWithin(unsigned seconds);

class HostProbe {
 public:
  // Begins, unless it has begun. Nothing while hosts may still answer; then those that did not
  // within the seconds for connecting, and the next call begins anew. One that refuses a connection
  // answers, too. Waits no longer than that for it.
  std::optional<std::vector<SilentHost>> silent(const ServerAddress& address,
                                                std::chrono::milliseconds longest);

 private:
  struct Work;
  void begin(const ServerAddress& address);

  std::shared_ptr<Work> work_;  // with the threads, which nobody waits for
};

}  // namespace quillet::suite
