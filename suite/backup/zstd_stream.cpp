#include "suite/backup/zstd_stream.h"

#include <zstd.h>

#include <new>
#include <stdexcept>

namespace quillet::suite::backup {

Compressor::Compressor(const PartFile& file)
    : file_(file), stream_(ZSTD_createCCtx()), buffer_(pieceSize) {
  if (stream_ == nullptr) throw std::bad_alloc();
  ZSTD_CCtx_setParameter(stream_, ZSTD_c_checksumFlag, 1);
}

Compressor::~Compressor() { ZSTD_freeCCtx(stream_); }

void Compressor::add(std::string_view bytes) { compress(bytes, false); }
void Compressor::finish() { compress({}, true); }

void Compressor::compress(std::string_view bytes, bool isEnd) {
  ZSTD_inBuffer in{bytes.data(), bytes.size(), 0};
  std::size_t left = 0;
  do {
    ZSTD_outBuffer out{buffer_.data(), buffer_.size(), 0};
    left = ZSTD_compressStream2(stream_, &out, &in, isEnd ? ZSTD_e_end : ZSTD_e_continue);
    if (ZSTD_isError(left) != 0) throw std::runtime_error(ZSTD_getErrorName(left));
    file_.write({buffer_.data(), out.pos});
  } while (isEnd ? left > 0 : in.pos < in.size);
}

Decompressor::Decompressor(const std::filesystem::path& file)
    : file_(file, std::ios::binary),
      stream_(ZSTD_createDCtx()),
      packed_(pieceSize),
      plain_(pieceSize) {
  if (stream_ == nullptr) throw std::bad_alloc();
}

Decompressor::~Decompressor() { ZSTD_freeDCtx(stream_); }

std::string_view Decompressor::next() {
  for (;;) {
    if (taken_ == given_) {
      file_.read(packed_.data(), packed_.size());
      given_ = file_.gcount();
      taken_ = 0;
      if (given_ == 0 && atFrameEnd_) return {};
      if (given_ == 0) throw std::runtime_error("the file ends too early");
    }
    ZSTD_inBuffer in{packed_.data(), given_, taken_};
    ZSTD_outBuffer out{plain_.data(), plain_.size(), 0};
    const std::size_t left = ZSTD_decompressStream(stream_, &out, &in);
    if (ZSTD_isError(left) != 0) throw std::runtime_error(ZSTD_getErrorName(left));
    taken_ = in.pos;
    atFrameEnd_ = left == 0;
    if (out.pos > 0) return {plain_.data(), out.pos};
  }
}

}  // namespace quillet::suite::backup
