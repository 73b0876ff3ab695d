// A flag that is up for as long as this object lives, and then what it was before.
#pragma once

namespace quillet {

class ScopedFlag {
 public:
  explicit ScopedFlag(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
  ~ScopedFlag() { flag_ = before_; }
  ScopedFlag(const ScopedFlag&) = delete;
  ScopedFlag& operator=(const ScopedFlag&) = delete;

 private:
  bool& flag_;
  bool before_;
};

}  // namespace quillet
