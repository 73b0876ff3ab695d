#include "wire/values.h"

#include <array>
#include <charconv>
#include <stdexcept>

namespace quillet::wire {
namespace {

template <class Number>
std::string written(Number number) {
  std::array<char, 40> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  return {digits.data(), end};
}

std::string_view taken(std::string_view& bytes, std::size_t count) {
  if (bytes.size() < count) throw std::runtime_error("A list of values is cut off.");
  const std::string_view part = bytes.substr(0, count);
  bytes.remove_prefix(count);
  return part;
}

}  // namespace

Value::Value(double number) : kind(Kind::number), text(written(number)) {}
Value::Value(long number) : kind(Kind::number), text(written(number)) {}

double Value::number() const {
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

std::string packedLength(std::size_t length) {
  std::string bytes;
  for (std::size_t i = 0; i < lengthBytes; ++i) {
    bytes += static_cast<char>(length >> (8 * i) & 0xff);
  }
  return bytes;
}

std::size_t unpackedLength(std::string_view bytes) {
  std::size_t length = 0;
  for (std::size_t i = 0; i < lengthBytes; ++i) {
    length |= static_cast<std::size_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
  }
  return length;
}

std::string packed(const Values& values) {
  std::string bytes;
  for (const Value& value : values) {
    bytes += static_cast<char>(value.kind) + packedLength(value.text.size()) + value.text;
  }
  return bytes;
}

Values unpacked(std::string_view bytes) {
  Values values;
  while (!bytes.empty()) {
    Value value;
    value.kind = static_cast<Value::Kind>(taken(bytes, 1).front());
    const std::size_t length = unpackedLength(taken(bytes, lengthBytes));
    value.text = taken(bytes, length);
    values.push_back(std::move(value));
  }
  return values;
}

}  // namespace quillet::wire
