#include "suite/sheets/content_kind.h"

#include <array>
#include <string>

#include "import/sheet_builder.h"
#include "import/text_encoding.h"
#include "ports/source_book.h"
#include "suite/sheets/compound_file.h"
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

ContentKind compoundKind(std::string_view bytes) {
  const CompoundFile file(bytes);
  if (file.has("EncryptedPackage")) refuseLocked();
  if (file.isCut()) {
    throw SourceError("is cut off: its end is missing. Get it anew from where it comes from.");
  }
  if (!file.has("Workbook") && !file.has("Book")) refuse("a document of another program");
  return ContentKind::oldWorkbook;
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

}  // namespace quillet::suite
