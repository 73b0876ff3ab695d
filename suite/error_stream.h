// Whose standard error is. The server library takes it for its log when it starts and never gives
// it back; the program's own words would be lost in that file.
#pragma once

namespace quillet::suite {

class ErrorStream {
 public:
  // Remembers the program's.
  ErrorStream();
  // Leaves the program its own.
  ~ErrorStream();
  ErrorStream(const ErrorStream&) = delete;
  ErrorStream& operator=(const ErrorStream&) = delete;

  // The library has started: the stream is the program's again.
  void restore();
  // The library is about to end: what it has to say goes to its log.
  void redirectToLog();

 private:
  int own_;
  int log_ = -1;
};

}  // namespace quillet::suite
