#include "windows/vtxt/property_stream.h"

#include <array>
#include <cstdint>

#include "windows/com/errors.h"

namespace quillet::windows {
namespace {

constexpr std::uint32_t mark = 0x31547856;  // "VxT1"
constexpr std::uint32_t mostProperties = 100;
constexpr std::uint32_t mostBytes = 0x10000;

void append(std::string& bytes, std::uint32_t number) {
  for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(number >> shift & 0xffU);
}

void append(std::string& bytes, const std::string& text) {
  append(bytes, static_cast<std::uint32_t>(text.size()));
  bytes += text;
}

void read(IStream& stream, void* to, std::uint32_t size) {
  ULONG taken = 0;
  if (FAILED(stream.Read(to, size, &taken)) || taken != size) {
    throw errorOf(STG_E_READFAULT, "VTxt.Load");
  }
}

// A number above `most` is none of ours: the stream was damaged, or somebody else's.
std::uint32_t readNumber(IStream& stream, std::uint32_t most) {
  std::array<unsigned char, 4> bytes{};
  read(stream, bytes.data(), bytes.size());
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) number |= std::uint32_t{bytes[i]} << 8 * i;
  if (number > most) throw errorOf(STG_E_DOCFILECORRUPT, "VTxt.Load");
  return number;
}

std::string readText(IStream& stream) {
  std::string text(readNumber(stream, mostBytes), '\0');
  read(stream, text.data(), static_cast<std::uint32_t>(text.size()));
  return text;
}

}  // namespace

std::string streamOf(const VTxt::PropertyBag& bag) {
  std::string bytes;
  append(bytes, mark);
  append(bytes, static_cast<std::uint32_t>(bag.size()));
  for (const auto& [name, value] : bag) {
    append(bytes, name);
    append(bytes, value);
  }
  return bytes;
}

VTxt::PropertyBag readStream(IStream& stream) {
  if (readNumber(stream, mark) != mark) throw errorOf(STG_E_DOCFILECORRUPT, "VTxt.Load");
  VTxt::PropertyBag bag;
  for (std::uint32_t left = readNumber(stream, mostProperties); left > 0; --left) {
    const std::string name = readText(stream);
    bag[name] = readText(stream);
  }
  return bag;
}

}  // namespace quillet::windows
