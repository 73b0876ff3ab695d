// Reads an archive that anybody may have made: nothing in it is believed. Only the parts of a data
// folder are accepted, as ordinary files and folders with plain names.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "suite/backup/zstd_stream.h"

struct archive;

namespace quillet::suite::backup {

class ArchiveReader {
 public:
  struct Entry {
    std::filesystem::path name;  // relative to the data folder
    bool isFolder = false;
    std::uintmax_t size = 0;
    std::int64_t changed = 0;  // seconds since 1970
  };

  // Everything here throws std::runtime_error that names the file and tells what is wrong with it.
  explicit ArchiveReader(std::filesystem::path file);
  ~ArchiveReader();
  ArchiveReader(const ArchiveReader&) = delete;
  ArchiveReader& operator=(const ArchiveReader&) = delete;

  // The next entry; nothing at the end of an archive that is whole.
  std::optional<Entry> next();
  // The bytes of the entry, in order. Stretches of zeros may be left out between the pieces.
  using Piece = std::function<void(std::string_view bytes, std::uintmax_t position)>;
  void content(const Piece& take);

 private:
  void checkEnd();
  [[noreturn]] void fail(const std::string& what) const;

  std::filesystem::path file_;
  Decompressor packed_;
  archive* archive_;
  Entry current_;
  bool any_ = false;
  std::uintmax_t entries_ = 0;
  std::uintmax_t bytes_ = 0;
};

}  // namespace quillet::suite::backup
