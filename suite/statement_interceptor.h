// Passes the module's statements on to the unit of work. It can record them for scripts and tests,
// and make one of them fail.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "suite/unit_of_work.h"

namespace quillet::suite {

class StatementInterceptor {
 public:
  explicit StatementInterceptor(UnitOfWork& unit) : unit_(unit) {}

  static constexpr long unknownError = 1105;

  void execute(const std::string& sql);
  RecordsetPtr query(const std::string& sql);

  // Off by default, because recording a whole day would need memory for nothing.
  void record(bool on);
  // Every statement since the last call, in order, refused ones included.
  std::vector<std::string> take();
  // The next statement that contains the text (without regard to case) throws RunTimeError instead
  // of running, once `spared` of them have run. With the number of a storage error the unit of work
  // takes it for one.
  void failNext(std::string text, long spared = 0, long error = unknownError) {
    failing_ = std::move(text);
    spared_ = spared;
    error_ = error;
  }

 private:
  void pass(const std::string& sql);

  UnitOfWork& unit_;
  bool recording_ = false;
  std::vector<std::string> recorded_;
  std::optional<std::string> failing_;
  long spared_ = 0;
  long error_ = unknownError;
};

}  // namespace quillet::suite
