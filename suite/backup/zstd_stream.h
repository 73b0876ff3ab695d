// Compression of a stream, with a checksum over everything.
#pragma once

#include <filesystem>
#include <fstream>
#include <string_view>
#include <vector>

#include "suite/backup/part_file.h"

struct ZSTD_CCtx_s;
struct ZSTD_DCtx_s;

namespace quillet::suite::backup {

// Of the pieces in which a stream is read and written. Too large for the stack, on which the
// database wants room.
inline constexpr std::size_t pieceSize = 128UL * 1024;

class Compressor {
 public:
  explicit Compressor(const PartFile& file);
  ~Compressor();
  Compressor(const Compressor&) = delete;
  Compressor& operator=(const Compressor&) = delete;

  // Each throws std::runtime_error when the file cannot be written.
  void add(std::string_view bytes);
  void finish();

 private:
  void compress(std::string_view bytes, bool isEnd);

  const PartFile& file_;
  ZSTD_CCtx_s* stream_;
  std::vector<char> buffer_;
};

class Decompressor {
 public:
  explicit Decompressor(const std::filesystem::path& file);
  ~Decompressor();
  Decompressor(const Decompressor&) = delete;
  Decompressor& operator=(const Decompressor&) = delete;

  // The next bytes, none at the end. Throws std::runtime_error when the file is cut off, does not
  // match its checksum or is none of this kind.
  std::string_view next();

 private:
  std::ifstream file_;
  ZSTD_DCtx_s* stream_;
  std::vector<char> packed_, plain_;
  std::size_t given_ = 0, taken_ = 0;  // of the packed bytes
  bool atFrameEnd_ = false;
};

}  // namespace quillet::suite::backup
