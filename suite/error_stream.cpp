#include "suite/error_stream.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace quillet::suite {
namespace {

int duplicate() { return fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3); }

void redirectTo(int file) {
  std::fflush(stderr);
  if (file >= 0) dup2(file, STDERR_FILENO);
}

}  // namespace

ErrorStream::ErrorStream() : own_(duplicate()) {}

ErrorStream::~ErrorStream() {
  redirectTo(own_);
  if (own_ >= 0) close(own_);
  if (log_ >= 0) close(log_);
}

void ErrorStream::restore() {
  log_ = duplicate();
  redirectTo(own_);
}

void ErrorStream::redirectToLog() { redirectTo(log_); }

}  // namespace quillet::suite
