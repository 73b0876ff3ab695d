#include "suite/sheets/source_files.h"

#include <fcntl.h>
#include <sodium.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>

#include "import/delimited_text.h"
#include "import/sheet_builder.h"
#include "import/web_table.h"
#include "suite/sheets/content_kind.h"
#include "suite/sheets/office_conversion.h"
#include "suite/sheets/stored_values.h"
#include "suite/sheets/workbook_file.h"

namespace quillet::suite {
namespace {

// An open file, for reading only. Nothing is waited for: a pipe would never begin.
class OpenFile {
 public:
  explicit OpenFile(const std::string& path)
      : file_(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY)) {
    if (file_ < 0) refuse(errno);
    struct stat about {};
    if (fstat(file_, &about) != 0) refuse(errno);
    if (S_ISDIR(about.st_mode)) close("is a folder. Choose a file in it.");
    if (!S_ISREG(about.st_mode))
      close("is no file but a device. Choose a workbook or a text file.");
    if (about.st_size > static_cast<off_t>(mostSourceBytes)) close(tooLarge);
  }
  ~OpenFile() { ::close(file_); }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  std::string bytes() const {
    std::string bytes;
    char piece[65'536];
    for (;;) {
      const ssize_t got = read(file_, piece, sizeof piece);
      if (got < 0 && errno == EINTR) continue;
      if (got < 0) refuse(errno);
      if (got == 0) return bytes;
      bytes.append(piece, static_cast<std::size_t>(got));
      if (bytes.size() > mostSourceBytes) throw SourceError(tooLarge);
    }
  }

 private:
  static constexpr const char* tooLarge =
      "is larger than 64 MB, far more than a trial balance. Copy the rows to be imported into a "
      "new "
      "workbook and import that.";

  [[noreturn]] static void refuse(int error) {
    if (error == ENOENT || error == ENOTDIR) {
      throw SourceError("is not there any more. Choose the file again.");
    }
    if (error == EACCES || error == EPERM) {
      throw SourceError("may not be read by you. Have its owner allow it, or copy it.");
    }
    throw SourceError(std::string("cannot be read: ") + std::strerror(error) +
                      ". Copy it to another place and import that.");
  }
  [[noreturn]] void close(const char* why) {
    ::close(file_);
    throw SourceError(why);
  }

  int file_;
};

// An error of LibreOffice's own comes as the text that it shows.
void markOwnErrors(SourceBook& book) {
  for (SourceSheet& sheet : book.sheets) {
    for (SourceRow& row : sheet.rows) {
      for (SourceCell& cell : row.cells) {
        if (isOwnError(cell.text)) cell.kind = SourceCell::Kind::error;
      }
    }
  }
}

// Stored values are the file's own, but of errors only the calculated book knows.
void keepErrors(SourceBook& stored, const SourceBook& calculated) {
  for (std::size_t i = 0; i < std::min(stored.sheets.size(), calculated.sheets.size()); ++i) {
    SourceBudget budget;
    SheetBuilder sheet(stored.sheets[i], budget);
    for (const SourceRow& row : calculated.sheets[i].rows) {
      for (std::size_t column = 0; column < row.cells.size(); ++column) {
        const SourceCell& cell = row.cells[column];
        if (cell.kind != SourceCell::Kind::error) continue;
        sheet.place(row.number - 1, static_cast<int>(column), cell);
      }
    }
  }
}

std::string fingerprintOf(std::string_view bytes) {
  unsigned char hash[crypto_generichash_BYTES];
  crypto_generichash(hash, sizeof hash, reinterpret_cast<const unsigned char*>(bytes.data()),
                     bytes.size(), nullptr, 0);
  char text[2 * sizeof hash + 1];
  sodium_bin2hex(text, sizeof text, hash, sizeof hash);
  return text;
}

}  // namespace

SourceBook SourceFiles::file(const std::string& path, const SourceOptions& options,
                             const GoesOn& goesOn) {
  const auto refuse = [&](const std::string& why) {
    return SourceError("The file " + path + " " + why);
  };
  try {
    const std::string bytes = OpenFile(path).bytes();
    if (!goesOn(0)) return {};
    SourceBook book = bookIn(bytes, options, goesOn);
    book.fingerprint = fingerprintOf(bytes);
    return book;
  } catch (const SourceError& error) {
    throw refuse(error.what());
  } catch (const std::bad_alloc&) {
    throw refuse("needs more memory than there is. Close other programs and import it again.");
  }
}

SourceBook SourceFiles::bookIn(std::string_view bytes, const SourceOptions& options,
                               const GoesOn& goesOn) const {
  const ContentKind kind = contentKind(bytes);
  if (kind == ContentKind::text) return delimitedBook(bytes, options, goesOn);
  if (kind == ContentKind::web) return webBook(bytes, options, goesOn);
  if (kind == ContentKind::workbook) return workbookIn(bytes, goesOn);
  const auto from = [&](int begin, int share) {
    return [&goesOn, begin, share](int percent) { return goesOn(begin + percent * share / 100); };
  };
  // The conversion takes most of the time.
  const auto converted = convertedWorkbook(bytes, kind, options_, from(0, 80));
  if (!converted) return {};
  SourceBook book = workbookIn(converted->bytes, from(80, 10));
  markOwnErrors(book);
  if (converted->stored.empty() || book.sheets.empty()) return book;
  SourceBook stored = workbookIn(converted->stored, from(90, 10));
  keepErrors(stored, book);
  return stored;
}

}  // namespace quillet::suite
