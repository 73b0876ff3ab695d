// A practice to try Quillet on: a handful of invented clients with the books of some years. Always
// the same one.
#pragma once

#include <functional>

namespace quillet::suite {

class Database;

// Fills a practice that has its tables and the starter data but no clients, ledgers or years yet;
// throws std::runtime_error when it has, and writes nothing then. `progress` is told the clients
// done of all.
void installSamplePractice(Database& database,
                           const std::function<void(long done, long total)>& progress = {});

}  // namespace quillet::suite
