#include "suite/backup/archive_reader.h"

#include <archive.h>
#include <archive_entry.h>

#include <algorithm>
#include <cerrno>
#include <stdexcept>
#include <utility>

namespace quillet::suite::backup {
namespace {

namespace fs = std::filesystem;

// Far above every practice; they end an archive that was made to fill a disk.
constexpr std::uintmax_t mostEntries = 1'000'000;
constexpr std::uintmax_t mostBytes = 64ULL << 30U;

bool isPart(const std::string& name) {
  return name == "database" || name == "program" || name == "documents";
}

bool isPlainName(const std::string& name) {
  return name != "." && name != ".." && name.find('\0') == std::string::npos;
}

// Below the data folder, in one of its parts.
bool isOurs(const ArchiveReader::Entry& entry) {
  const fs::path& name = entry.name;
  if (name.empty() || name.is_absolute()) return false;
  if (name == "settings.ini") return !entry.isFolder;
  if (!std::all_of(name.begin(), name.end(),
                   [](const fs::path& part) { return isPlainName(part.string()); })) {
    return false;
  }
  const bool isTop = std::next(name.begin()) == name.end();
  return isPart(name.begin()->string()) && (!isTop || entry.isFolder);
}

std::string notOurs(const fs::path& file) {
  return "The file " + file.string() + " is not a backup made by Quillet, or it is damaged.";
}

// An exception does not pass through the library.
la_ssize_t readNext(archive* reader, void* packed, const void** bytes) {
  try {
    const std::string_view next = static_cast<Decompressor*>(packed)->next();
    *bytes = next.data();
    return static_cast<la_ssize_t>(next.size());
  } catch (const std::exception& error) {
    archive_set_error(reader, EIO, "%s", error.what());
    return ARCHIVE_FATAL;
  }
}

}  // namespace

ArchiveReader::ArchiveReader(fs::path file)
    : file_(std::move(file)), packed_(file_), archive_(archive_read_new()) {
  archive_read_support_format_tar(archive_);
  if (archive_read_open(archive_, &packed_, nullptr, &readNext, nullptr) != ARCHIVE_OK) {
    archive_read_free(archive_);
    const bool isThere = fs::is_regular_file(file_);
    throw std::runtime_error(isThere ? notOurs(file_)
                                     : "There is no backup " + file_.string() + ".");
  }
}

ArchiveReader::~ArchiveReader() { archive_read_free(archive_); }

std::optional<ArchiveReader::Entry> ArchiveReader::next() {
  archive_entry* raw = nullptr;
  const int result = archive_read_next_header(archive_, &raw);
  if (result == ARCHIVE_EOF && any_) {
    checkEnd();
    return std::nullopt;
  }
  if (result != ARCHIVE_OK && result != ARCHIVE_WARN) {
    if (!any_) {
      throw std::runtime_error(notOurs(file_));
    }
    fail("it is cut off or damaged");
  }
  const auto type = archive_entry_filetype(raw);
  const char* name = archive_entry_pathname(raw);
  std::string plain = name == nullptr ? "" : name;
  while (type == AE_IFDIR && plain.ends_with('/')) plain.pop_back();
  const std::int64_t size = type == AE_IFDIR ? 0 : archive_entry_size(raw);
  current_ = {plain, type == AE_IFDIR, static_cast<std::uintmax_t>(std::max<std::int64_t>(size, 0)),
              archive_entry_mtime(raw)};
  const bool isPlain = (type == AE_IFREG || type == AE_IFDIR) && size >= 0 &&
                       archive_entry_hardlink(raw) == nullptr &&
                       archive_entry_symlink(raw) == nullptr;
  if (!any_ && (!isPlain || current_.name != "settings.ini")) {
    throw std::runtime_error(notOurs(file_));
  }
  if (!isPlain || !isOurs(current_)) fail("it holds what is not part of one: " + plain);
  any_ = true;
  bytes_ += current_.size;
  if (++entries_ > mostEntries || bytes_ > mostBytes || current_.size > mostBytes) {
    fail("it is larger than any practice");
  }
  return current_;
}

void ArchiveReader::content(const Piece& take) {
  const void* bytes = nullptr;
  std::size_t count = 0;
  la_int64_t position = 0;
  int result = ARCHIVE_OK;
  while ((result = archive_read_data_block(archive_, &bytes, &count, &position)) == ARCHIVE_OK) {
    const auto start = static_cast<std::uintmax_t>(position);
    if (position < 0 || start > current_.size || count > current_.size - start) {
      fail("it holds more than it says");
    }
    if (count > 0) take({static_cast<const char*>(bytes), count}, start);
  }
  if (result != ARCHIVE_EOF) fail("it is cut off or damaged");
}

// The checksum stands behind everything.
void ArchiveReader::checkEnd() {
  try {
    for (std::string_view more = packed_.next(); !more.empty(); more = packed_.next()) {
      if ((bytes_ += more.size()) > mostBytes) throw std::runtime_error("endless");
    }
  } catch (const std::runtime_error&) {
    fail("it is cut off or damaged");
  }
}

void ArchiveReader::fail(const std::string& what) const {
  throw std::runtime_error("The backup " + file_.string() + " cannot be used: " + what + ".");
}

}  // namespace quillet::suite::backup
