// Run-time errors as the error log shows them: number, description, source.
#pragma once

#include <stdexcept>
#include <string>

namespace quillet {

class RunTimeError : public std::runtime_error {
 public:
  RunTimeError(long number, const std::string& description, std::string source)
      : std::runtime_error(description), number_(number), source_(std::move(source)) {}
  long number() const { return number_; }
  const std::string& source() const { return source_; }

 private:
  long number_;
  std::string source_;
};

}  // namespace quillet
