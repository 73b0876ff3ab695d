// A hash over texts, in hexadecimal digits.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace quillet::suite {

class Digest {
 public:
  Digest();
  ~Digest();
  Digest(Digest&&) noexcept;
  Digest& operator=(Digest&&) noexcept;

  // Texts are kept apart: "a" and "bc" give another hash than "ab" and "c".
  Digest& add(std::string_view text);
  // 64 digits; nothing is added afterwards.
  std::string hex();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace quillet::suite
