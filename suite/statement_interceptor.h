// The door through which the module's statements pass on their way to the database. It can keep
// them, for scripts and tests that read what was sent, and can make one of them fail.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "suite/database.h"

namespace quillet::suite {

class StatementInterceptor {
 public:
  explicit StatementInterceptor(Database& database) : database_(database) {}

  void execute(const std::string& sql);
  RecordsetPtr query(const std::string& sql);

  // Off unless asked for: a working day's statements are of no use to anybody.
  void record(bool on);
  // Every statement since the last call, in order, refused ones included.
  std::vector<std::string> take();
  // The next statement that contains the text (without regard to case) throws RunTimeError instead
  // of running, once `spared` of them have run.
  void failNext(std::string text, long spared = 0) {
    failing_ = std::move(text);
    spared_ = spared;
  }

 private:
  void pass(const std::string& sql);

  Database& database_;
  bool recording_ = false;
  std::vector<std::string> recorded_;
  std::optional<std::string> failing_;
  long spared_ = 0;
};

}  // namespace quillet::suite
