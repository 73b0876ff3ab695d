#include "suite/sheets/zip_file.h"

#include <archive.h>
#include <archive_entry.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <new>
#include <utility>

#include "data/text.h"
#include "ports/source_book.h"

namespace quillet::suite {
namespace {

// It ends a file that was made to fill the memory, as the sizes of its parts do.
constexpr int mostParts = 20'000;

[[noreturn]] void cutOff() {
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
  if (archive_read_open_memory(zip.get(), bytes.data(), bytes.size()) != ARCHIVE_OK) cutOff();
  return zip;
}

// Null after the last one.
archive_entry* nextEntry(archive* zip) {
  archive_entry* entry = nullptr;
  const int result = archive_read_next_header(zip, &entry);
  if (result == ARCHIVE_EOF) return nullptr;
  if (result != ARCHIVE_OK && result != ARCHIVE_WARN) cutOff();
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

void readEntry(archive* zip, archive_entry* entry, const ZipFile::Take& take, std::size_t most) {
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
    const int result = archive_read_data_block(zip, &piece, &size, &offset);
    if (result == ARCHIVE_EOF) return;
    if (result != ARCHIVE_OK) cutOff();
    total += size;
    if (total > most) tooLarge();
    if (!take({static_cast<const char*>(piece), size}, whole)) return;
  }
}

// Writes a zip file into a text, its parts unpacked: it is read at once.
class ZipWriter {
 public:
  ZipWriter() : zip_(archive_write_new(), &archive_write_free) {
    archive_write_set_format_zip(zip_.get());
    archive_write_zip_set_compression_store(zip_.get());
    archive_write_set_bytes_in_last_block(zip_.get(), 1);
    archive_write_open(zip_.get(), &bytes_, nullptr, &append, nullptr);
  }
  void add(const std::string& name, std::string_view content) {
    const std::unique_ptr<archive_entry, decltype(&archive_entry_free)> entry(archive_entry_new(),
                                                                              &archive_entry_free);
    archive_entry_set_pathname_utf8(entry.get(), name.c_str());
    archive_entry_set_filetype(entry.get(), name.ends_with('/') ? AE_IFDIR : AE_IFREG);
    archive_entry_set_size(entry.get(), static_cast<la_int64_t>(content.size()));
    archive_write_header(zip_.get(), entry.get());
    archive_write_data(zip_.get(), content.data(), content.size());
  }
  std::string take() {
    if (archive_write_close(zip_.get()) != ARCHIVE_OK) throw std::bad_alloc();
    return std::move(bytes_);
  }

 private:
  static la_ssize_t append(archive*, void* to, const void* from, std::size_t size) {
    static_cast<std::string*>(to)->append(static_cast<const char*>(from), size);
    return static_cast<la_ssize_t>(size);
  }

  std::string bytes_;
  std::unique_ptr<archive, decltype(&archive_write_free)> zip_;
};

}  // namespace

bool ZipFile::has(const std::string& part) const {
  return find(opened(bytes_).get(), part) != nullptr;
}

bool ZipFile::read(const std::string& part, const Take& take, std::size_t most) const {
  const Archive zip = opened(bytes_);
  archive_entry* entry = find(zip.get(), part);
  if (entry == nullptr) return false;
  readEntry(zip.get(), entry, take, most);
  return true;
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

std::string ZipFile::with(const std::string& part,
                          const std::function<std::string(std::string_view)>& change) const {
  const Archive zip = opened(bytes_);
  ZipWriter written;
  std::size_t total = 0;
  for (int count = 0; archive_entry* entry = nextEntry(zip.get()); ++count) {
    if (count > mostParts || total > largestSheet) tooLarge();
    const std::string name = nameOf(entry);
    std::string content;
    const auto take = [&](std::string_view piece, double) {
      content += piece;
      return true;
    };
    readEntry(zip.get(), entry, take, largestSheet);
    total += content.size();
    written.add(name, equalIgnoringCase(name, part) ? change(content) : content);
  }
  return written.take();
}

}  // namespace quillet::suite
