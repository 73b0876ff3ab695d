#include "suite/dot_matrix.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "data/text.h"

namespace quillet::suite {
namespace {

constexpr const char* reset = "\x1B\x40";
constexpr const char* condensed = "\x0F";
constexpr const char* emphasisOn = "\x1B\x45";
constexpr const char* emphasisOff = "\x1B\x46";
constexpr const char* newLine = "\r\n";
constexpr const char* newPage = "\r\f";
constexpr std::size_t pageLines = 60;  // of 66, six stay free at the perforation
constexpr std::size_t gapInPrint = 2;
constexpr std::size_t leastWidth = 6;
constexpr char32_t rupee = 0x20B9;

std::string printable(const std::string& text) {
  std::string plain;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t character = nextCharacter(text, at);
    if (character == U'\n') {
      plain += ' ';
    } else if (character == rupee) {
      plain += "Rs";
    } else {
      plain += character >= U' ' && character < 127 ? static_cast<char>(character) : '?';
    }
  }
  return plain;
}

std::string placed(std::string text, std::size_t width, Align align) {
  text.resize(std::min(text.size(), width));
  const std::size_t room = width - text.size();
  const std::size_t left = align == Align::right ? room : align == Align::center ? room / 2 : 0;
  return std::string(left, ' ') + text + std::string(room - left, ' ');
}

std::string emphasised(const std::string& text, bool on) {
  return on ? emphasisOn + text + emphasisOff : text;
}

class Pages {
 public:
  Pages(const Document& document, PaperWidth width) : document_(document), width_(width) {}

  std::string text() {
    text_ = reset;
    if (width_ > columns80) text_ += condensed;
    for (const ReportHeading& heading : document_.pageHeadings()) write(heading);
    for (std::size_t row = 0; row < document_.rows().size(); ++row) add(row);
    return text_ + newPage;
  }

 private:
  // A heading wider than the paper goes on in the next line.
  void write(const ReportHeading& heading) {
    std::string rest = printable(heading.text);
    while (rest.size() > width_) {
      const std::size_t blank = rest.rfind(' ', width_);
      const std::size_t end = blank == std::string::npos || blank == 0 ? width_ : blank;
      line(emphasised(placed(rest.substr(0, end), width_, Align::center), heading.emphasised));
      rest.erase(0, rest.find_first_not_of(' ', end));
    }
    line(emphasised(placed(rest, width_, Align::center), heading.emphasised));
  }
  void add(std::size_t at) {
    const DocumentRow& row = document_.rows()[at];
    if (row.table != table_) begin(row.table);
    const bool ruled = std::any_of(row.cells.begin(), row.cells.end(),
                                   [](const ReportCell& cell) { return cell.ruled; });
    if (used_ + (ruled ? 2U : 1U) > pageLines) {
      text_ += newPage;
      used_ = 0;
      for (std::size_t h = 0; h < at; ++h) {
        const DocumentRow& heading = document_.rows()[h];
        if (heading.heading && heading.table == row.table) write(heading);
      }
    }
    write(row);
  }

  void begin(int table) {
    table_ = table;
    line("");
    widths_.assign(document_.columns(table), 1);
    std::vector<bool> words(widths_.size(), true);
    for (const DocumentRow& row : document_.rows()) {
      if (row.table != table) continue;
      for (std::size_t i = 0; i < row.cells.size(); ++i) {
        const Document::Span span = document_.spanOf(row, i);
        if (span.count > 1) continue;
        widths_[span.first] = std::max(widths_[span.first], printable(row.cells[i].text).size());
        if (row.cells[i].align == Align::right && !row.heading) words[span.first] = false;
      }
    }
    shorten(words);
  }

  // Takes from the widest text column, one character at a time.
  void shorten(const std::vector<bool>& words) {
    const auto total = [&] {
      return std::accumulate(widths_.begin(), widths_.end(), (widths_.size() - 1) * gapInPrint);
    };
    while (!widths_.empty() && total() > width_) {
      std::size_t widest = widths_.size();
      for (std::size_t i = 0; i < widths_.size(); ++i) {
        if (!words[i] || widths_[i] <= leastWidth) continue;
        if (widest == widths_.size() || widths_[i] > widths_[widest]) widest = i;
      }
      if (widest == widths_.size()) return;
      --widths_[widest];
    }
  }

  void write(const DocumentRow& row) {
    const auto compose = [&](auto draw) {
      std::string composed;
      for (std::size_t i = 0; i < row.cells.size(); ++i) {
        const Document::Span span = document_.spanOf(row, i);
        std::size_t width = (span.count - 1) * gapInPrint;
        for (std::size_t c = 0; c < span.count; ++c) width += widths_[span.first + c];
        composed += std::string(i > 0 ? gapInPrint : 0, ' ') + draw(row.cells[i], width);
      }
      return composed;
    };
    const std::string rules = compose([](const ReportCell& cell, std::size_t width) {
      return std::string(width, cell.ruled ? '-' : ' ');
    });
    if (rules.find('-') != std::string::npos) line(rules);
    line(compose([&](const ReportCell& cell, std::size_t width) {
      return emphasised(placed(cell.printed ? printable(cell.text) : "", width, cell.align),
                        cell.printed && cell.emphasised);
    }));
  }

  void line(const std::string& text) {
    text_ += text;
    text_ += newLine;
    ++used_;
  }

  const Document& document_;
  std::size_t width_;
  std::string text_;
  std::size_t used_ = 0;  // lines of the page
  int table_ = -1;
  std::vector<std::size_t> widths_;
};

}  // namespace

std::string dotMatrixOf(const Document& document, PaperWidth width) {
  return Pages(document, width).text();
}

}  // namespace quillet::suite
