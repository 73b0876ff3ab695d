// Three real servers that hold the same books.
#pragma once

#include <array>
#include <memory>

#include "server/real_server.h"

namespace quillet::support {

class RealCluster {
 public:
  static constexpr std::size_t size = 3;
  RealCluster();

  RealServer& node(std::size_t number) { return *nodes_.at(number); }
  // Kills a node, or starts it again and waits until it has what the others have.
  void kill(std::size_t number) { node(number).kill(); }
  void join(std::size_t number);

 private:
  RealServer::Options options(std::size_t number, bool first) const;
  void waitUntilJoined(std::size_t number);

  std::array<unsigned, size> ports_;  // of what the nodes tell each other
  std::array<std::unique_ptr<RealServer>, size> nodes_;
};

}  // namespace quillet::support
