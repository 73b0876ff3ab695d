#include "suite/sheets/compound_file.h"

#include <algorithm>
#include <string>

namespace quillet::suite {
namespace {

constexpr std::size_t entrySize = 128;
constexpr std::uint32_t unused = 0xFFFFFFFF;

}  // namespace

CompoundFile::CompoundFile(std::string_view bytes) : bytes_(bytes), sector_(512) {
  sector_ = std::size_t{1} << std::clamp(numberAt(30, 2), 9U, 12U);
}

std::uint32_t CompoundFile::numberAt(std::size_t at, std::size_t bytes) const {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < bytes && at + i < bytes_.size(); ++i) {
    number |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes_[at + i])) << (8 * i);
  }
  return number;
}

// "" when there is none. Entries stand in sectors anywhere in the file, each at a multiple of their
// size; a name is in UTF-16.
std::string_view CompoundFile::entryOf(std::string_view name) const {
  std::string wide;
  for (const char c : name) (wide += c) += '\0';
  wide.append(2, '\0');
  for (std::size_t at = 512; at + entrySize <= bytes_.size(); at += entrySize) {
    const std::string_view entry = bytes_.substr(at, entrySize);
    if (entry.starts_with(wide) && numberAt(at + 64, 2) == wide.size()) return entry;
  }
  return {};
}

// The table of sectors in use lies in sectors of its own, the first 109 of them listed in the head.
bool CompoundFile::isCut() const {
  const std::uint32_t tables = std::min(numberAt(44, 4), 109U);
  const auto perTable = static_cast<std::uint32_t>(sector_ / 4);
  for (std::uint32_t table = 0; table < tables; ++table) {
    const std::size_t begin = beginOf(numberAt(76 + table * 4, 4));
    if (begin + sector_ > bytes_.size()) return true;
    for (std::uint32_t i = 0; i < perTable; ++i) {
      const bool isUsed = numberAt(begin + i * 4, 4) != unused;
      if (isUsed && beginOf(table * perTable + i) >= bytes_.size()) return true;
    }
  }
  return false;
}

// Small streams lie one behind the other in that of the root, the first entry of the directory.
std::size_t CompoundFile::beginOfStream(std::string_view entry) const {
  constexpr std::uint32_t smallest = 4096;  // of a stream that has sectors of its own
  constexpr std::size_t smallSector = 64;
  const auto at = static_cast<std::size_t>(entry.data() - bytes_.data());
  const std::uint32_t first = numberAt(at + 116, 4);
  if (numberAt(at + 120, 4) >= smallest) return beginOf(first);
  const std::size_t root = beginOf(numberAt(48, 4));
  return beginOf(numberAt(root + 116, 4)) + std::size_t{first} * smallSector;
}

// One of the first records of an encrypted workbook says so.
bool CompoundFile::saysEncrypted() const {
  constexpr std::uint32_t encryption = 0x2F;
  std::string_view entry = entryOf("Workbook");
  if (entry.empty()) entry = entryOf("Book");
  if (entry.empty()) return false;
  const std::size_t begin = beginOfStream(entry);
  const std::size_t end = std::min(begin + sector_, bytes_.size());
  for (std::size_t record = begin; record + 4 <= end; record += 4 + numberAt(record + 2, 2)) {
    if (numberAt(record, 2) == encryption) return true;
  }
  return false;
}

}  // namespace quillet::suite
