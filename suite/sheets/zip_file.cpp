#include "suite/sheets/zip_file.h"

#include <archive.h>
#include <archive_entry.h>

#include <algorithm>
#include <cstdint>
#include <memory>

#include "data/text.h"
#include "ports/source_book.h"

namespace quillet::suite {
namespace {

// It ends a file that was made to fill the memory, as the sizes of its parts do.
constexpr int mostParts = 20'000;

[[noreturn]] void damaged() {
  throw SourceError(
      "is damaged or cut off: it cannot be unpacked. Get it anew from where it comes from, or open "
      "it in a spreadsheet program and save it again.");
}

[[noreturn]] void tooLarge() {
  throw SourceError("unpacks to far more than a trial balance has, and is not read.");
}

using Archive = std::unique_ptr<archive, decltype(&archive_read_free)>;

// Only with its directory, which stands at the end, is a file whole.
Archive opened(std::string_view bytes) {
  Archive zip(archive_read_new(), &archive_read_free);
  archive_read_support_format_zip_seekable(zip.get());
  if (archive_read_open_memory(zip.get(), bytes.data(), bytes.size()) != ARCHIVE_OK) damaged();
  return zip;
}

// Null after the last one.
archive_entry* nextEntry(archive* zip) {
  archive_entry* entry = nullptr;
  const int result = archive_read_next_header(zip, &entry);
  if (result == ARCHIVE_EOF) return nullptr;
  if (result != ARCHIVE_OK && result != ARCHIVE_WARN) damaged();
  return entry;
}

std::string nameOf(archive_entry* entry) {
  const char* raw = archive_entry_pathname_utf8(entry);
  if (raw == nullptr) raw = archive_entry_pathname(entry);
  std::string name = raw == nullptr ? "" : raw;
  std::replace(name.begin(), name.end(), '\\', '/');
  return name;
}

archive_entry* find(archive* zip, const std::string& part) {
  for (int count = 0; archive_entry* entry = nextEntry(zip); ++count) {
    if (count > mostParts) tooLarge();
    if (equalIgnoringCase(nameOf(entry), part)) return entry;
  }
  return nullptr;
}

}  // namespace

bool ZipFile::has(const std::string& part) const {
  return find(opened(bytes_).get(), part) != nullptr;
}

bool ZipFile::read(const std::string& part, const Take& take, std::size_t most) const {
  const Archive zip = opened(bytes_);
  archive_entry* entry = find(zip.get(), part);
  if (entry == nullptr) return false;
  if (archive_entry_is_encrypted(entry) != 0) {
    throw SourceError(
        "is locked by a password. Save it without one in the program that made it and import "
        "that.");
  }
  const auto whole = static_cast<double>(archive_entry_size(entry));
  std::size_t total = 0;
  for (;;) {
    const void* piece = nullptr;
    std::size_t size = 0;
    std::int64_t offset = 0;
    const int result = archive_read_data_block(zip.get(), &piece, &size, &offset);
    if (result == ARCHIVE_EOF) return true;
    if (result != ARCHIVE_OK) damaged();
    total += size;
    if (total > most) tooLarge();
    if (!take({static_cast<const char*>(piece), size}, whole)) return true;
  }
}

std::string ZipFile::text(const std::string& part) const {
  std::string text;
  const auto take = [&](std::string_view piece, double) {
    text += piece;
    return true;
  };
  read(part, take, largestList);
  return text;
}

}  // namespace quillet::suite
