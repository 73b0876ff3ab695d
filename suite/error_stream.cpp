#include "suite/error_stream.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace quillet::suite {
namespace {

int remembered() { return fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3); }

void become(int file) {
  std::fflush(stderr);
  if (file >= 0) dup2(file, STDERR_FILENO);
}

}  // namespace

ErrorStream::ErrorStream() : own_(remembered()) {}

ErrorStream::~ErrorStream() {
  become(own_);
  if (own_ >= 0) close(own_);
  if (log_ >= 0) close(log_);
}

void ErrorStream::takeBack() {
  log_ = remembered();
  become(own_);
}

void ErrorStream::handOver() { become(log_); }

}  // namespace quillet::suite
