#include "suite/stations/act_tape.h"

namespace quillet::suite {

void ActTape::stored() {
  if (hasWritten()) clear();
}

void ActTape::clear() {
  statements_.clear();
  written_ = 0;
}

bool ActTape::again(const std::function<std::size_t(const std::string& sql)>& read,
                    const std::function<void(const std::string& sql)>& write) const {
  for (const Statement& each : statements_) {
    if (each.writes) {
      write(each.sql);
    } else if (read(each.sql) != each.answer) {
      return false;
    }
  }
  return true;
}

}  // namespace quillet::suite
