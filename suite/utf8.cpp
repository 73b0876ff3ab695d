#include "suite/utf8.h"

#include <algorithm>

namespace quillet::suite {
namespace {

bool isContinuation(unsigned char byte) { return (byte & 0xC0U) == 0x80U; }

// Bytes of the sequence that the lead byte begins, 0 when it begins none.
std::size_t lengthFrom(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead < 0xE0) return 2;
  if (lead >= 0xE0 && lead < 0xF0) return 3;
  if (lead >= 0xF0 && lead < 0xF5) return 4;
  return 0;
}

// Overlong forms, surrogates and what lies past the last code point show in the second byte.
bool secondByteFits(unsigned char lead, unsigned char second) {
  switch (lead) {
    case 0xE0:
      return second >= 0xA0;
    case 0xED:
      return second < 0xA0;
    case 0xF0:
      return second >= 0x90;
    case 0xF4:
      return second < 0x90;
    default:
      return true;
  }
}

}  // namespace

bool isUtf8(std::string_view bytes) {
  for (std::size_t at = 0; at < bytes.size();) {
    const auto lead = static_cast<unsigned char>(bytes[at]);
    const std::size_t length = lengthFrom(lead);
    if (length == 0 || at + length > bytes.size()) return false;
    const std::string_view rest = bytes.substr(at + 1, length - 1);
    if (!std::all_of(rest.begin(), rest.end(),
                     [](char c) { return isContinuation(static_cast<unsigned char>(c)); })) {
      return false;
    }
    if (length > 1 && !secondByteFits(lead, static_cast<unsigned char>(rest.front()))) return false;
    at += length;
  }
  return true;
}

}  // namespace quillet::suite
