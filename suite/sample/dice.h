// Numbers that look accidental and are the same everywhere. The standard library's distributions
// differ between libraries, so amounts drawn with them would too.
#pragma once

#include <cstdint>
#include <string_view>

namespace quillet::suite::sample {

class Dice {
 public:
  explicit Dice(std::string_view seed) {
    for (const char c : seed) state_ = state_ * 1'099'511'628'211u + static_cast<unsigned char>(c);
  }

  // From 0 to below the bound.
  long below(long bound) { return static_cast<long>(next() % static_cast<std::uint64_t>(bound)); }
  bool oneIn(long n) { return below(n) == 0; }
  // The amount, up to so many per cent more or less.
  long long vary(long long amount, long percent) {
    const long range = percent * 1'000;
    return amount * (100'000 + below(2 * range + 1) - range) / 100'000;
  }

 private:
  // SplitMix64.
  std::uint64_t next() {
    std::uint64_t z = state_ += 0x9E37'79B9'7F4A'7C15u;
    z = (z ^ (z >> 30)) * 0xBF58'476D'1CE4'E5B9u;
    z = (z ^ (z >> 27)) * 0x94D0'49BB'1331'11EBu;
    return z ^ (z >> 31);
  }

  std::uint64_t state_ = 14'695'981'039'346'656'037u;
};

}  // namespace quillet::suite::sample
