#include "import/web_table.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <string>
#include <vector>

#include "data/text.h"
#include "import/sheet_builder.h"
#include "import/text_encoding.h"

namespace quillet {
namespace {

constexpr int widestRow = 100'000;  // far too wide to be imported

char small(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; }

std::string small(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), [](char c) { return small(c); });
  return result;
}

// "<td colspan=2>" without its brackets.
struct Tag {
  explicit Tag(std::string_view written) : text(small(written)) {
    closes = text.starts_with('/');
    const std::size_t begin = closes ? 1 : 0;
    name = text.substr(begin, text.find_first_of(" \t\r\n/", begin) - begin);
  }
  // The number of an attribute, from 1 to what a sheet may span.
  int span(const char* attribute) const {
    const auto at = text.find(attribute);
    const auto digit = at == std::string::npos ? at : text.find_first_of("0123456789", at);
    int number = 1;
    if (digit != std::string::npos) {
      std::from_chars(text.data() + digit, text.data() + text.size(), number);
    }
    return std::clamp(number, 1, 1000);
  }
  bool isHidden() const {
    return replacedAll(text, " ", "").find("display:none") != std::string::npos;
  }

  std::string text;
  std::string name;
  bool closes = false;
};

// What "&amp;" and the like stand for; "" for one that is not known.
std::string meantBy(std::string_view entity) {
  static const std::map<std::string_view, std::string_view> names{
      {"amp", "&"}, {"lt", "<"}, {"gt", ">"}, {"quot", "\""}, {"apos", "'"}, {"nbsp", "\u00A0"}};
  if (const auto found = names.find(entity); found != names.end()) {
    return std::string(found->second);
  }
  if (!entity.starts_with('#')) return {};
  const bool hex = entity.size() > 1 && small(entity[1]) == 'x';
  const std::string_view digits = entity.substr(hex ? 2 : 1);
  unsigned character = 0;
  const char* end = digits.data() + digits.size();
  const auto read = std::from_chars(digits.data(), end, character, hex ? 16 : 10);
  const bool surrogate = character >= 0xD800 && character < 0xE000;
  if (read.ptr != end || character == 0 || character > 0x10FFFF || surrogate) return {};
  std::string text;
  appendCharacter(text, character);
  return text;
}

// As a browser shows it: blanks and line ends are one blank, hard blanks stay.
std::string shown(std::string_view text) {
  std::string result;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (std::string_view(" \t\r\n").find(text[at]) != std::string_view::npos) {
      if (!result.empty() && result.back() != ' ') result += ' ';
      continue;
    }
    constexpr std::size_t longest = 10;
    const auto end = text[at] == '&' ? text.substr(at, longest).find(';') : std::string_view::npos;
    const std::string meant =
        end == std::string_view::npos ? "" : meantBy(text.substr(at + 1, end - 1));
    if (meant.empty()) {
      result += text[at];
    } else {
      result += meant;
      at += end;
    }
  }
  while (result.ends_with(' ')) result.pop_back();
  return replacedAll(std::move(result), "\u00A0", " ");
}

class Page {
 public:
  Page(std::string_view text, SourceSheet& sheet, SourceBudget& budget)
      : text_(text), sheet_(sheet), builder_(sheet, budget) {}
  // False when `goesOn` ended it.
  bool read(const GoesOn& goesOn);

 private:
  void obey(const Tag& tag);
  void skipTo(std::string_view end);
  void beginRow(const Tag& tag);
  void beginCell(const Tag& tag);
  void endText();

  std::string_view text_;
  SourceSheet& sheet_;
  SheetBuilder builder_;
  std::string written_;  // since the last cell began, or outside the tables
  SourceCell cell_;      // the one that is being read
  bool inCell_ = false;
  bool isOpen_ = false;  // a row came and no end of its table yet
  bool rowIsHidden_ = false;
  int row_ = 0;
  int column_ = -1;
  std::map<int, int> covered_;  // columns: the first row that is free below a cell of several
};

bool Page::read(const GoesOn& goesOn) {
  const std::size_t whole = text_.size();
  int told = 0;
  while (!text_.empty()) {
    const auto tag = text_.find('<');
    written_ += text_.substr(0, tag);
    if (tag == std::string_view::npos) break;
    text_.remove_prefix(tag + 1);
    if (text_.starts_with("!--")) {
      skipTo("-->");
      continue;
    }
    const auto end = text_.find('>');
    const Tag found(text_.substr(0, end));
    skipTo(">");
    obey(found);
    const int percent = static_cast<int>((whole - text_.size()) * 100 / whole);
    if (percent == told) continue;
    told = percent;
    if (!goesOn(told)) return false;
  }
  endText();
  if (isOpen_) throw SourceError("is cut off: its end is missing. Get it anew.");
  builder_.finish();
  if (sheet_.rows.empty() && sheet_.refusal.empty()) throw SourceError("holds no table.");
  return true;
}

void Page::skipTo(std::string_view end) {
  const auto at = text_.find(end);
  text_.remove_prefix(at == std::string_view::npos ? text_.size() : at + end.size());
}

void Page::obey(const Tag& tag) {
  const std::string& name = tag.name;
  if (!tag.closes && (name == "script" || name == "style" || name == "title")) {
    // Their text is nobody's to read.
    while (!text_.empty() && small(text_.substr(0, name.size() + 2)) != "</" + name) {
      text_.remove_prefix(1);
    }
  } else if (name == "tr" && !tag.closes) {
    beginRow(tag);
  } else if ((name == "td" || name == "th") && !tag.closes) {
    beginCell(tag);
  } else if (name == "td" || name == "th" || name == "tr" || name == "table") {
    endText();
    if (name == "table") covered_.clear();
    isOpen_ = isOpen_ && name != "table";
  } else if (name == "b" || name == "strong") {
    cell_.bold = cell_.bold || (inCell_ && !tag.closes);
  } else if (name == "html" && tag.closes) {
    isOpen_ = false;
  } else if (name == "br" || name == "p" || name == "div" || name.starts_with('h')) {
    inCell_ ? void(written_ += ' ') : endText();
  }
}

void Page::beginRow(const Tag& tag) {
  endText();
  if (column_ >= 0) ++row_;
  column_ = -1;
  isOpen_ = true;
  rowIsHidden_ = tag.isHidden();
}

void Page::beginCell(const Tag& tag) {
  endText();
  column_ = column_ < 0 ? 0 : column_ + cell_.columns;
  while (covered_.contains(column_) && covered_[column_] > row_) ++column_;
  column_ = std::min(column_, widestRow);
  cell_ = {};
  cell_.bold = tag.name == "th";
  cell_.columns = tag.span("colspan");
  cell_.rows = tag.span("rowspan");
  for (int i = 0; cell_.rows > 1 && i < cell_.columns; ++i) {
    covered_[column_ + i] = row_ + cell_.rows;
  }
  inCell_ = true;
}

void Page::endText() {
  std::string text = shown(written_);
  written_.clear();
  if (inCell_) {
    SourceCell cell = cell_;
    cell.kind = SourceCell::Kind::text;
    cell.text = std::move(text);
    builder_.place(row_, column_, std::move(cell));
    if (rowIsHidden_ && static_cast<std::size_t>(row_) < sheet_.rows.size()) {
      sheet_.rows[static_cast<std::size_t>(row_)].hidden = true;
    }
    inCell_ = false;
  } else if (!isBlank(text)) {
    if (column_ >= 0) ++row_;
    SourceCell cell;
    cell.kind = SourceCell::Kind::text;
    cell.text = std::move(text);
    builder_.place(row_++, 0, std::move(cell));
    column_ = -1;
  }
}

}  // namespace

SourceBook webBook(std::string_view bytes, const SourceOptions& options, const GoesOn& goesOn) {
  SourceBook book;
  book.encoding = options.encoding.empty() ? encodingOf(bytes) : options.encoding;
  const std::string text = decoded(bytes, book.encoding);
  SourceBudget budget;
  if (!Page(text, book.sheets.emplace_back(), budget).read(goesOn)) return {};
  requireReadable(book);
  return book;
}

}  // namespace quillet
