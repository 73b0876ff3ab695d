#include "import/figures.h"

#include <algorithm>
#include <optional>

#include "data/dates.h"
#include "data/text.h"
#include "import/figure_parts.h"

namespace quillet {
namespace {

// Of the digits before the point: what a table keeps to the paisa.
constexpr std::size_t mostDigits = 13;

struct Digits {
  std::string whole;
  std::string fraction;
};

std::string groupMarks(DecimalMark decimals) {
  return decimals == DecimalMark::comma ? ". '" : ", '";
}

// Groups of two or three digits, of which the last has three; one kind of mark.
bool groupedWell(std::string_view whole, DecimalMark decimals) {
  const std::string marks = groupMarks(decimals);
  char used = 0;
  std::size_t run = 0;
  bool first = true;
  for (const char c : whole) {
    if (isDigit(c)) {
      ++run;
      continue;
    }
    if (marks.find(c) == std::string::npos || (used != 0 && used != c)) return false;
    if (first ? run == 0 || run > 3 : run != 2 && run != 3) return false;
    used = c;
    first = false;
    run = 0;
  }
  return used == 0 || run == 3;
}

std::optional<Digits> digitsOf(std::string_view text, DecimalMark decimals) {
  const char mark = decimals == DecimalMark::comma ? ',' : '.';
  const std::size_t at = text.rfind(mark);
  const std::string_view whole = text.substr(0, at);
  if (!groupedWell(whole, decimals)) return std::nullopt;
  Digits digits;
  std::copy_if(whole.begin(), whole.end(), std::back_inserter(digits.whole), isDigit);
  if (at != std::string_view::npos) digits.fraction = text.substr(at + 1);
  if (!std::all_of(digits.fraction.begin(), digits.fraction.end(), isDigit)) return std::nullopt;
  digits.whole.erase(0, std::min(digits.whole.find_first_not_of('0'), digits.whole.size()));
  return digits;
}

// What one text says by itself about the mark: both marks, one of them twice, or other than three
// digits after the only one.
DecimalMark ownMark(std::string_view digits) {
  const std::size_t point = digits.rfind('.');
  const std::size_t comma = digits.rfind(',');
  constexpr std::size_t none = std::string_view::npos;
  if (point == none && comma == none) return DecimalMark::open;
  if (point != none && comma != none)
    return point > comma ? DecimalMark::point : DecimalMark::comma;
  const char mark = point != none ? '.' : ',';
  const DecimalMark itself = point != none ? DecimalMark::point : DecimalMark::comma;
  const DecimalMark other = point != none ? DecimalMark::comma : DecimalMark::point;
  if (std::count(digits.begin(), digits.end(), mark) > 1) return other;
  const std::size_t after = digits.size() - digits.rfind(mark) - 1;
  // A mark after more than three digits, or after a zero, groups nothing.
  const std::size_t before = digits.find_first_not_of("0123456789");
  const bool groups = after == 3 && before <= 3 && digits.front() != '0';
  return groups ? DecimalMark::open : itself;
}

bool onlyZeros(std::string_view digits) {
  return digits.find_first_not_of('0') == std::string_view::npos;
}

// A program that reckoned in binary keeps 15 digits of what was meant, and what follows is noise.
bool isBinaryNoise(const Digits& digits) {
  constexpr std::size_t kept = 15;
  std::size_t leading = 0;
  if (digits.whole.empty()) leading = digits.fraction.find_first_not_of('0');
  if (digits.whole.size() + digits.fraction.size() <= kept + leading) return false;
  const std::size_t decimals = kept + leading - digits.whole.size();
  const std::string_view meant = std::string_view(digits.fraction).substr(0, decimals).substr(2);
  return onlyZeros(meant) || meant.find_first_not_of('9') == std::string_view::npos;
}

struct Read {
  Money amount;
  std::string problem;
};

Read paiseOf(const Digits& digits, bool fromNumber, bool rounds) {
  if (digits.whole.size() > mostDigits) return {{}, "is larger than the books can keep"};
  const std::string fraction = digits.fraction + "00";
  std::int64_t paise = 0;
  for (const char c : digits.whole + fraction.substr(0, 2)) paise = paise * 10 + (c - '0');
  if (digits.fraction.size() > 2 && !onlyZeros(std::string_view(digits.fraction).substr(2))) {
    if (!rounds && !(fromNumber && isBinaryNoise(digits))) return {{}, "has parts of a paisa"};
    if (digits.fraction[2] >= '5') ++paise;
  }
  return {Money::ofPaise(paise), {}};
}

Figure unread(const SourceCell& cell, const std::string& why) {
  Figure figure;
  figure.state = Figure::State::unread;
  figure.problem = '"' + std::string(trimmed(cell.text)) + "\" " + why;
  return figure;
}

// What is wrong with what stands around the digits; "" when nothing.
std::string problemOf(const FigureParts& parts, std::string_view text) {
  if (text.find('%') != std::string_view::npos) return "is a percentage";
  if (!parts.strange.empty() || parts.digits.empty()) return "is not an amount";
  if (parts.signTwice) return "has two signs";
  if (parts.sideTwice) return "names a side twice";
  return {};
}

// An amount as it is shown, unless sign and side contradict each other.
Figure shownFigure(const SourceCell& cell, Money amount, bool negative, char side) {
  if (negative && side != 0) return unread(cell, "has a sign and a side");
  Figure figure;
  figure.state = Figure::State::amount;
  figure.amount = negative ? -amount : amount;
  figure.side = side;
  return figure;
}

// Why the marks cannot be read; "" when `mark` is the one before the paise.
std::string markProblem(std::string_view digits, DecimalMark rule, DecimalMark& mark) {
  const DecimalMark own = ownMark(digits);
  mark = rule != DecimalMark::open ? rule : own;
  if (rule != DecimalMark::open && own != DecimalMark::open && own != rule) {
    return "is written with other marks than the rest";
  }
  const bool marked = digits.find_first_of(".,") != std::string_view::npos;
  if (marked && mark == DecimalMark::open) {
    return "can be read in two ways: say whether the mark stands before thousands or paise";
  }
  return {};
}

Figure textFigure(const SourceCell& cell, FigureRules rules) {
  const std::string text = plainFigure(cell.text);
  const std::string capitals = upperCase(text);
  if (text.find_first_not_of("- ") == std::string::npos || capitals == "NIL") return {};
  const FigureParts parts = figureParts(text);
  std::string problem = problemOf(parts, text);
  if (!problem.empty()) return unread(cell, readDate(text) ? "is a date" : problem);
  DecimalMark mark = DecimalMark::open;
  problem = markProblem(parts.digits, rules.decimals, mark);
  if (!problem.empty()) return unread(cell, problem);
  const auto digits = digitsOf(parts.digits, mark);
  if (!digits) return unread(cell, readDate(text) ? "is a date" : "is not an amount");
  // What a comma that was not quoted has cut off an amount begins so.
  const std::string& written = parts.digits;
  if (written.size() > 1 && written[0] == '0' && written[1] >= '0' && written[1] <= '9') {
    return unread(cell, "begins with zeros: it may be the rest of another amount");
  }
  const Read read = paiseOf(*digits, false, rules.rounds);
  if (!read.problem.empty()) return unread(cell, read.problem);
  return shownFigure(cell, read.amount, parts.negative, parts.side);
}

Figure numberFigure(const SourceCell& cell, FigureRules rules) {
  std::string_view text = trimmed(cell.text);
  const bool negative = text.starts_with('-');
  if (negative) text.remove_prefix(1);
  const auto digits = text.find_first_not_of("0123456789.") == std::string_view::npos
                          ? digitsOf(text, DecimalMark::point)
                          : std::nullopt;
  if (!digits) return unread(cell, "is not an amount");
  const Read read = paiseOf(*digits, true, rules.rounds);
  if (!read.problem.empty()) return unread(cell, read.problem);
  return shownFigure(cell, read.amount, negative, cell.side);
}

}  // namespace

Figure readFigure(const SourceCell& cell, FigureRules rules) {
  switch (cell.kind) {
    case SourceCell::Kind::empty:
      return {};
    case SourceCell::Kind::text:
      return textFigure(cell, rules);
    case SourceCell::Kind::number:
      return numberFigure(cell, rules);
    case SourceCell::Kind::date:
      return unread(cell, "is a date");
    case SourceCell::Kind::truth:
      return unread(cell, "is no number");
    case SourceCell::Kind::error:
      return unread(cell, "is an error of the workbook");
  }
  return {};
}

DecimalMark decimalMarkOf(const std::vector<const SourceCell*>& column) {
  int points = 0;
  int commas = 0;
  int grouping = 0;  // texts with one comma before three digits: alone no proof, together one
  for (const SourceCell* cell : column) {
    if (cell->kind != SourceCell::Kind::text) continue;
    const FigureParts parts = figureParts(plainFigure(cell->text));
    if (!parts.strange.empty() || parts.digits.empty()) continue;
    const DecimalMark own = ownMark(parts.digits);
    points += own == DecimalMark::point ? 1 : 0;
    commas += own == DecimalMark::comma ? 1 : 0;
    if (own == DecimalMark::open && parts.digits.find(',') != std::string::npos) ++grouping;
  }
  if (commas > points) return DecimalMark::comma;
  return points > 0 || grouping > 1 ? DecimalMark::point : DecimalMark::open;
}

bool looksLikeFigure(const SourceCell& cell) {
  if (cell.kind == SourceCell::Kind::number) return true;
  if (cell.kind != SourceCell::Kind::text) return false;
  const FigureParts parts = figureParts(plainFigure(cell.text));
  return parts.strange.empty() && !parts.digits.empty();
}

}  // namespace quillet
