#include "suite/sheets/content_kind.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include "import/sheet_builder.h"
#include "import/text_encoding.h"
#include "ports/source_book.h"
#include "suite/sheets/zip_file.h"

namespace quillet::suite {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view zipMark = "PK\3\4"sv;
constexpr std::string_view compoundMark = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"sv;

struct Foreign {
  std::string_view begin;
  const char* what;
};
constexpr std::array<Foreign, 12> foreigners{{{"%PDF", "a PDF document"},
                                              {"\x89PNG", "a picture"},
                                              {"\xFF\xD8\xFF", "a picture"},
                                              {"GIF8", "a picture"},
                                              {"II*\0"sv, "a picture"},
                                              {"MM\0*"sv, "a picture"},
                                              {"{\\rtf", "a text document"},
                                              {"\x1F\x8B", "a packed file"},
                                              {"7z\xBC\xAF", "a packed file"},
                                              {"Rar!", "a packed file"},
                                              {"PK\5\6", "an empty packed file"},
                                              {"\x7F"
                                               "ELF",
                                               "a program"}}};

// Workbooks of the oldest programs begin with a record like this.
constexpr std::array<std::string_view, 4> oldRecords{"\x09\x00\x04\x00"sv, "\x09\x02\x06\x00"sv,
                                                     "\x09\x04\x06\x00"sv, "\x09\x08"sv};

[[noreturn]] void refuse(const std::string& what) {
  throw SourceError("is " + what + " and no workbook. Choose a workbook or a text file.");
}

[[noreturn]] void refuseLocked() {
  throw SourceError(
      "is locked by a password. Open it in a spreadsheet program, save it without a password and "
      "import that.");
}

// --- compound files: streams in sectors, with a directory of entries of 128 bytes

constexpr std::size_t entrySize = 128;

std::uint32_t littleAt(std::string_view bytes, std::size_t at, std::size_t count) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < count && at + i < bytes.size(); ++i) {
    number |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at + i])) << (8 * i);
  }
  return number;
}

// The directory's entry of this name, with its end of text; "" when there is none.
std::string_view entryOf(std::string_view bytes, std::string_view name) {
  std::string wide;
  for (const char c : name) (wide += c) += '\0';
  wide.append(2, '\0');
  for (std::size_t at = 512; at + entrySize <= bytes.size(); at += entrySize) {
    const std::string_view entry = bytes.substr(at, entrySize);
    if (entry.starts_with(wide) && littleAt(entry, 64, 2) == wide.size()) return entry;
  }
  return {};
}

ContentKind compoundKind(std::string_view bytes) {
  if (!entryOf(bytes, "EncryptedPackage").empty()) refuseLocked();
  for (const std::string_view name : {"Workbook", "Book", "WORKBOOK", "BOOK"}) {
    if (!entryOf(bytes, name).empty()) return ContentKind::oldWorkbook;
  }
  refuse("a document of another program");
}

// --- packed files

ContentKind zipKind(std::string_view bytes) {
  const ZipFile zip(bytes);
  constexpr std::string_view document = "application/vnd.oasis.opendocument.";
  if (const std::string type = zip.text("mimetype"); type.starts_with(document)) {
    if (!type.substr(document.size()).starts_with("spreadsheet")) refuse("another document");
    if (zip.text("META-INF/manifest.xml").find("encryption-data") != std::string::npos) {
      refuseLocked();
    }
    return ContentKind::openDocument;
  }
  return zip.has("xl/workbook.bin") ? ContentKind::binaryZip : ContentKind::workbook;
}

// --- texts

ContentKind textKind(std::string_view bytes) {
  constexpr std::size_t sample = 4096;
  std::string begin = decoded(bytes.substr(0, sample), encodingOf(bytes.substr(0, sample)));
  for (char& c : begin) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
  const auto first = begin.find_first_not_of(" \t\r\n");
  if (first == std::string::npos || begin[first] != '<') return ContentKind::text;
  const auto has = [&](std::string_view text) { return begin.find(text) != std::string::npos; };
  if (has("urn:schemas-microsoft-com:office:spreadsheet") && !has("<html")) {
    return ContentKind::xmlWorkbook;
  }
  if (has("office:document ") && has("opendocument")) return ContentKind::flatDocument;
  if (has("<html") || has("<!doctype html") || has("<table")) return ContentKind::web;
  if (begin.compare(first, 5, "<?xml") == 0) refuse("an XML file of another program");
  return ContentKind::text;
}

}  // namespace

ContentKind contentKind(std::string_view bytes) {
  if (bytes.empty()) throw SourceError("is empty.");
  for (const Foreign& foreign : foreigners) {
    if (bytes.starts_with(foreign.begin)) refuse(foreign.what);
  }
  if (bytes.starts_with(zipMark)) return zipKind(bytes);
  if (bytes.starts_with(compoundMark)) return compoundKind(bytes);
  for (const std::string_view record : oldRecords) {
    if (bytes.starts_with(record)) return ContentKind::oldWorkbook;
  }
  return textKind(bytes);
}

bool saysEncrypted(std::string_view bytes) {
  constexpr std::uint32_t encryption = 0x2F;
  constexpr std::uint32_t smallest = 4096;  // of a stream that has sectors of its own
  std::string_view entry = entryOf(bytes, "Workbook");
  if (entry.empty()) entry = entryOf(bytes, "Book");
  if (entry.empty() || littleAt(entry, 120, 4) < smallest) return false;
  const std::size_t sector = std::size_t{1} << std::min(littleAt(bytes, 30, 2), 12U);
  const std::size_t begin = (std::size_t{littleAt(entry, 116, 4)} + 1) * sector;
  const std::size_t end = std::min(begin + sector, bytes.size());
  for (std::size_t at = begin; at + 4 <= end; at += 4 + littleAt(bytes, at + 2, 2)) {
    if (littleAt(bytes, at, 2) == encryption) return true;
  }
  return false;
}

}  // namespace quillet::suite
