#include "server/real_cluster.h"

#include <unistd.h>

#include <chrono>
#include <stdexcept>
#include <thread>

#include "data/errors.h"

namespace quillet::support {

using namespace std::chrono_literals;

RealCluster::RealCluster() {
  for (unsigned& port : ports_) port = freePort();
  for (std::size_t number = 0; number < size; ++number) {
    try {
      nodes_.at(number) = std::make_unique<RealServer>(options(number, number == 0));
      waitUntilJoined(number);
    } catch (const std::runtime_error& error) {
      // The node that it takes the books from may know why.
      throw std::runtime_error(error.what() + (number == 0 ? std::string() : node(0).log()));
    }
  }
}

RealServer::Options RealCluster::options(std::size_t number, bool first) const {
  const auto address = [&](std::size_t n) { return "127.0.0.1:" + std::to_string(ports_.at(n)); };
  std::string others = "gcomm://";
  if (!first) others += address(0) + ',' + address(1) + ',' + address(2);
  RealServer::Options all{
      "--wsrep-on=ON",
      "--wsrep-provider=/usr/lib/galera/libgalera_smm.so",
      "--wsrep-cluster-address=" + others,
      "--wsrep-cluster-name=books",
      "--wsrep-node-address=" + address(number),
      "--wsrep-sst-method=rsync",
      "--wsrep-sst-receive-address=127.0.0.1:" + std::to_string(freePort()),
      "--wsrep-provider-options=gcache.size=16M;base_port=" + std::to_string(ports_.at(number)) +
          ";ist.recv_addr=127.0.0.1:" + std::to_string(freePort()),
      "--binlog-format=ROW",
      "--innodb-autoinc-lock-mode=2"};
  // What copies the books to a joining node gives root's rights up.
  if (getuid() == 0) all.emplace_back("--user=mysql");
  return all;
}

void RealCluster::join(std::size_t number) {
  node(number).start(options(number, false));
  waitUntilJoined(number);
}

void RealCluster::waitUntilJoined(std::size_t number) {
  for (const auto end = std::chrono::steady_clock::now() + 120s;;) {
    try {
      if (node(number).value("select variable_value from information_schema.global_status where "
                             "variable_name='wsrep_local_state_comment'") == "Synced") {
        return;
      }
    } catch (const RunTimeError&) {
      // It does not answer yet.
    }
    if (std::chrono::steady_clock::now() > end) {
      throw std::runtime_error("A node does not join: " + node(number).log());
    }
    std::this_thread::sleep_for(100ms);
  }
}

}  // namespace quillet::support
