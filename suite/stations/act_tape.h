// What an act has read and written so far, on books that several stations share. A read is kept as
// what would tell another answer; so the act can be held against what other stations have stored
// since, and be done again when the server took it back in favour of another station's.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace quillet::suite {

class ActTape {
 public:
  // The act that is running has read or written something.
  bool running() const { return !statements_.empty(); }
  bool hasWritten() const { return written_ > 0; }

  void read(const std::string& sql, std::size_t answer) {
    statements_.push_back({sql, answer, false});
  }
  void wrote(const std::string& sql) {
    statements_.push_back({sql, 0, true});
    ++written_;
  }
  // What was written stands: earlier answers do not hold any more.
  void stored();
  // The act is over.
  void clear();

  // Sends everything again, in order. False when a read is answered differently.
  bool again(const std::function<std::size_t(const std::string& sql)>& read,
             const std::function<void(const std::string& sql)>& write) const;

 private:
  struct Statement {
    std::string sql;
    std::size_t answer;
    bool writes;
  };
  std::vector<Statement> statements_;
  std::size_t written_ = 0;
};

}  // namespace quillet::suite
