// Switches standard error between the program and the server library, which redirects it to its log
// when it starts and never restores it: the program's own messages would be lost in that file.
#pragma once

namespace quillet::suite {

class ErrorStream {
 public:
  // Remembers the program's stream.
  ErrorStream();
  // Restores it.
  ~ErrorStream();
  ErrorStream(const ErrorStream&) = delete;
  ErrorStream& operator=(const ErrorStream&) = delete;

  // To be called when the library has started.
  void restore();
  // To be called before the library ends, so that its messages go to its log.
  void redirectToLog();

 private:
  int own_;
  int log_ = -1;
};

}  // namespace quillet::suite
