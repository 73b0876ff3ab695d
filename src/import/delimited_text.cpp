#include "import/delimited_text.h"

#include <array>
#include <map>
#include <optional>

#include "import/sheet_builder.h"
#include "import/text_encoding.h"

namespace quillet {
namespace {

// Of those that fit equally well the first wins: amounts have commas of their own.
constexpr std::array<char, 4> delimiters{'\t', ';', '|', ','};
// As much of a file as its delimiter is looked for in.
constexpr std::size_t sampleSize = std::size_t{1} << 18U;
// A quoted field of a spreadsheet is no longer; a quote that is never closed swallows no more.
constexpr std::size_t longestField = 32'767 * 4;
constexpr int mostLinesOfField = 254;

// The fields of a text one after the other.
class Fields {
 public:
  Fields(std::string_view text, char delimiter) : text_(text), delimiter_(delimiter) {}

  bool atEnd() const { return at_ >= text_.size(); }
  // The next field; afterwards endsRow() tells whether it is the last one of its row.
  std::string next();
  bool endsRow() const { return endsRow_; }
  // How much of the text has been read.
  int percent() const { return static_cast<int>(at_ * 100 / text_.size()); }

 private:
  bool isEnd(std::size_t at) const {
    return at >= text_.size() || text_[at] == delimiter_ || text_[at] == '\n' || text_[at] == '\r';
  }
  std::optional<std::string> quoted();
  void passEnd();

  std::string_view text_;
  char delimiter_;
  std::size_t at_ = 0;
  bool endsRow_ = false;
};

std::string Fields::next() {
  std::string field;
  if (auto text = quoted()) {
    field = std::move(*text);
  } else {
    const std::size_t begin = at_;
    while (!isEnd(at_)) ++at_;
    field = text_.substr(begin, at_ - begin);
  }
  passEnd();
  return field;
}

// A quote that is not closed before the field's end is a character like any other.
std::optional<std::string> Fields::quoted() {
  const std::size_t quote = text_.find_first_not_of(' ', at_);
  if (quote == std::string_view::npos || text_[quote] != '"') return {};
  std::string field;
  int lines = 0;
  for (std::size_t at = quote + 1; at < text_.size(); ++at) {
    const char c = text_[at];
    if (c == '"') {
      if (isEnd(at + 1)) {
        at_ = at + 1;
        return field;
      }
      if (text_[++at] != '"') return {};
    }
    lines += c == '\n' ? 1 : 0;
    if (lines > mostLinesOfField || field.size() > longestField) return {};
    field += c;
  }
  return {};
}

void Fields::passEnd() {
  endsRow_ = atEnd() || text_[at_] != delimiter_;
  if (atEnd()) return;
  const bool pair = text_.substr(at_).starts_with("\r\n");
  at_ += pair ? 2 : 1;
}

// A spreadsheet names the delimiter so in a first line that it does not show.
char namedDelimiter(std::string_view& text) {
  constexpr std::string_view name = "sep=";
  if (!text.starts_with(name) || text.size() <= name.size()) return 0;
  const char delimiter = text[name.size()];
  std::string_view rest = text.substr(name.size() + 1);
  if (!rest.empty() && rest.front() != '\r' && rest.front() != '\n') return 0;
  if (delimiter == '\r' || delimiter == '\n' || delimiter == '"') return 0;
  if (rest.starts_with('\r')) rest.remove_prefix(1);
  if (rest.starts_with('\n')) rest.remove_prefix(1);
  text = rest;
  return delimiter;
}

// How many rows have the same number of fields, more than one.
std::size_t rowsAlike(std::string_view text, char delimiter) {
  std::map<std::size_t, std::size_t> rowsOf;
  std::size_t most = 0;
  std::size_t fields = 0;
  for (Fields all(text, delimiter); !all.atEnd();) {
    all.next();
    ++fields;
    if (!all.endsRow()) continue;
    if (fields > 1) most = std::max(most, ++rowsOf[fields]);
    fields = 0;
  }
  return most;
}

char likelyDelimiter(std::string_view text) {
  text = text.substr(0, sampleSize);
  char best = ',';
  std::size_t most = 0;
  for (const char delimiter : delimiters) {
    const std::size_t rows = rowsAlike(text, delimiter);
    if (rows > most) best = delimiter;
    most = std::max(most, rows);
  }
  return best;
}

// Nothing when `goesOn` ended it.
std::optional<SourceSheet> sheetOf(std::string_view text, char delimiter, const GoesOn& goesOn) {
  SourceSheet sheet;
  SourceBudget budget;
  SheetBuilder builder(sheet, budget);
  int row = 0;
  int column = 0;
  int told = 0;
  for (Fields fields(text, delimiter); !fields.atEnd();) {
    SourceCell cell;
    cell.kind = SourceCell::Kind::text;
    cell.text = fields.next();
    builder.place(row, column, std::move(cell));
    row += fields.endsRow() ? 1 : 0;
    column = fields.endsRow() ? 0 : column + 1;
    if (fields.percent() == told) continue;
    told = fields.percent();
    if (!goesOn(told)) return {};
  }
  builder.finish();
  return sheet;
}

void addSheet(SourceBook& book, std::optional<SourceSheet> sheet) {
  if (!sheet) return;
  book.sheets.push_back(std::move(*sheet));
  requireReadable(book);
}

}  // namespace

SourceBook delimitedBook(std::string_view bytes, const SourceOptions& options,
                         const GoesOn& goesOn) {
  SourceBook book;
  book.encoding = options.encoding.empty() ? encodingOf(bytes) : options.encoding;
  const std::string whole = decoded(bytes, book.encoding);
  if (options.encoding.empty() && isBinary(whole)) {
    throw SourceError(
        "is neither a workbook nor a text. Save it as a workbook (.xlsx) in the program that made "
        "it and import that.");
  }
  std::string_view text = whole;
  if (text.ends_with('\x1A')) text.remove_suffix(1);  // the end of a file of old programs
  const char named = namedDelimiter(text);
  book.delimiter = options.delimiter != 0 ? options.delimiter
                   : named != 0           ? named
                                          : likelyDelimiter(text);
  addSheet(book, sheetOf(text, book.delimiter, goesOn));
  return book;
}

SourceBook pastedBook(std::string_view text, const GoesOn& goesOn) {
  SourceBook book;
  addSheet(book, sheetOf(text, '\t', goesOn));
  return book;
}

}  // namespace quillet
