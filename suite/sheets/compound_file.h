// The container of old workbooks: streams in sectors of one size, and a directory of their names.
// Only as much of it is read as tells what the file is.
#pragma once

#include <cstdint>
#include <string_view>

namespace quillet::suite {

class CompoundFile {
 public:
  explicit CompoundFile(std::string_view bytes);

  // Whether it has a stream of this name.
  bool has(std::string_view name) const { return !entryOf(name).empty(); }
  // Whether sectors that are in use lie past its end.
  bool isCut() const;
  // Whether the workbook in it is encrypted; some are with a password that everybody knows.
  bool saysEncrypted() const;

 private:
  std::string_view entryOf(std::string_view name) const;
  std::size_t beginOfStream(std::string_view entry) const;
  std::size_t beginOf(std::uint32_t sector) const { return (std::size_t{sector} + 1) * sector_; }
  std::uint32_t numberAt(std::size_t at, std::size_t bytes) const;

  std::string_view bytes_;
  std::size_t sector_;  // its size
};

}  // namespace quillet::suite
