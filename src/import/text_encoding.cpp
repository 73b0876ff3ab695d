#include "import/text_encoding.h"

#include <algorithm>
#include <array>

#include "data/text.h"
#include "ports/source_book.h"

namespace quillet {
namespace {

constexpr std::string_view utf8 = "UTF-8";
constexpr std::string_view utf16Little = "UTF-16LE";
constexpr std::string_view utf16Big = "UTF-16BE";
constexpr std::string_view western = "windows-1252";
constexpr char32_t replacement = 0xFFFD;

struct Mark {
  std::string_view bytes;
  std::string_view encoding;
};
constexpr std::array<Mark, 3> marks{
    {{"\xEF\xBB\xBF", utf8}, {"\xFF\xFE", utf16Little}, {"\xFE\xFF", utf16Big}}};

// Those of the bytes 0x80 to 0x9F; five of them stand for no letter.
constexpr std::array<char32_t, 32> westernLetters{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t byteAt(std::string_view bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes[at]);
}

std::string_view withoutMark(std::string_view bytes, std::string_view encoding) {
  for (const Mark& mark : marks) {
    if (mark.encoding == encoding && bytes.starts_with(mark.bytes)) {
      bytes.remove_prefix(mark.bytes.size());
    }
  }
  return bytes;
}

// Latin letters, digits and separators have a zero in one of their two bytes; a text has them in
// the same places throughout.
std::string_view wideEncodingOf(std::string_view bytes) {
  std::array<std::size_t, 2> zeros{};
  for (std::size_t i = 0; i < bytes.size(); ++i) zeros[i % 2] += bytes[i] == '\0' ? 1 : 0;
  const auto telling = [&](std::size_t many, std::size_t few) {
    return many * 20 > bytes.size() && many > few * 4;
  };
  if (telling(zeros[1], zeros[0])) return utf16Little;
  if (telling(zeros[0], zeros[1])) return utf16Big;
  return {};
}

std::string fromUtf8(std::string_view bytes) {
  if (isUtf8(bytes)) return std::string(bytes);
  std::string text;
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t begin = at;
    const char32_t character = nextCharacter(bytes, at);
    const bool invalid = character >= 0x80 && at == begin + 1;
    appendCharacter(text, invalid ? replacement : character);
  }
  return text;
}

std::string fromUtf16(std::string_view bytes, bool little) {
  const auto unitAt = [&](std::size_t at) -> char32_t {
    if (at + 1 >= bytes.size()) return 0;
    return byteAt(bytes, at) << (little ? 0U : 8U) | byteAt(bytes, at + 1) << (little ? 8U : 0U);
  };
  const auto isSurrogate = [](char32_t unit, char32_t first) {
    return unit >= first && unit < first + 0x400;
  };
  std::string text;
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    char32_t character = unitAt(at);
    if (isSurrogate(character, 0xD800) && isSurrogate(unitAt(at + 2), 0xDC00)) {
      at += 2;
      character = 0x10000 + ((character - 0xD800) << 10U) + (unitAt(at) - 0xDC00);
    } else if (character >= 0xD800 && character < 0xE000) {
      character = replacement;
    }
    appendCharacter(text, character);
  }
  return text;
}

std::string fromWestern(std::string_view bytes) {
  std::string text;
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    const char32_t byte = byteAt(bytes, at);
    appendCharacter(text, byte >= 0x80 && byte < 0xA0 ? westernLetters[byte - 0x80] : byte);
  }
  return text;
}

}  // namespace

std::string encodingOf(std::string_view bytes) {
  for (const Mark& mark : marks) {
    if (bytes.starts_with(mark.bytes)) return std::string(mark.encoding);
  }
  if (const auto wide = wideEncodingOf(bytes); !wide.empty()) return std::string(wide);
  return std::string(isUtf8(bytes) ? utf8 : western);
}

std::string decoded(std::string_view bytes, std::string_view encoding) {
  bytes = withoutMark(bytes, encoding);
  if (encoding == utf8) return fromUtf8(bytes);
  if (encoding == utf16Little || encoding == utf16Big) {
    return fromUtf16(bytes, encoding == utf16Little);
  }
  if (encoding == western) return fromWestern(bytes);
  throw SourceError("cannot be read as \"" + std::string(encoding) + "\". Choose " +
                    std::string(utf8) + ", " + std::string(utf16Little) + ", " +
                    std::string(utf16Big) + " or " + std::string(western) + ".");
}

bool isBinary(std::string_view text) {
  constexpr std::string_view usual = "\t\n\v\f\r\x1A\x1B";
  const auto control = [&](char c) {
    return static_cast<unsigned char>(c) < 0x20 && usual.find(c) == std::string_view::npos;
  };
  const auto count = std::count_if(text.begin(), text.end(), control);
  return static_cast<std::size_t>(count) * 50 > text.size() ||
         text.find('\0') != std::string_view::npos;
}

}  // namespace quillet
