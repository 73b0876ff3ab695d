// What a test's service object under Wine and the suite beside it say to each other: lists of
// values, one list asked, one answered. An asked list is the operation's name and its arguments. An
// answered one is what it gives, or "error" with number, description and source.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillet::wire {

struct Value {
  enum class Kind : char { nothing = '0', text = 't', number = 'n', truth = 'b' };

  Value() = default;
  Value(std::string content) : kind(Kind::text), text(std::move(content)) {}
  Value(std::string_view content) : Value(std::string(content)) {}
  Value(const char* content) : Value(std::string(content)) {}
  Value(double number);
  Value(long number);
  Value(bool truth) : kind(Kind::truth), text(truth ? "1" : "0") {}

  double number() const;
  bool truth() const { return number() != 0; }

  Kind kind = Kind::nothing;
  std::string text;  // a number as it is written, with a point
};

using Values = std::vector<Value>;

inline constexpr const char* error = "error";

// The bytes of a list without its length, and the list in them. Throws std::runtime_error when they
// are none.
std::string packed(const Values& values);
Values unpacked(std::string_view bytes);
// A length as it stands before what it is the length of.
inline constexpr std::size_t lengthBytes = 4;
std::string packedLength(std::size_t length);
std::size_t unpackedLength(std::string_view bytes);

}  // namespace quillet::wire
