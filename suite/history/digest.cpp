#include "suite/history/digest.h"

#include <sodium.h>

#include <array>
#include <cstdint>
#include <stdexcept>

namespace quillet::suite {

struct Digest::State {
  crypto_generichash_state hash;
};

Digest::Digest() : state_(std::make_unique<State>()) {
  if (sodium_init() < 0) throw std::runtime_error("The hashing library did not start.");
  crypto_generichash_init(&state_->hash, nullptr, 0, crypto_generichash_BYTES);
}

Digest::~Digest() = default;
Digest::Digest(Digest&&) noexcept = default;
Digest& Digest::operator=(Digest&&) noexcept = default;

Digest& Digest::add(std::string_view text) {
  const std::string length = std::to_string(text.size()) + ':';
  for (const std::string_view part : {std::string_view(length), text}) {
    crypto_generichash_update(&state_->hash, reinterpret_cast<const unsigned char*>(part.data()),
                              part.size());
  }
  return *this;
}

std::string Digest::hex() {
  std::array<unsigned char, crypto_generichash_BYTES> bytes{};
  crypto_generichash_final(&state_->hash, bytes.data(), bytes.size());
  std::array<char, crypto_generichash_BYTES * 2 + 1> text{};
  sodium_bin2hex(text.data(), text.size(), bytes.data(), bytes.size());
  return text.data();
}

}  // namespace quillet::suite
