#include "view/figure_groups.h"

#include <algorithm>
#include <array>

#include "data/text.h"

namespace quillet::view {
namespace {

// The place of the digits before the point, with their commas.
struct Whole {
  std::size_t start = 0;
  std::size_t length = 0;
};

// Commas divide three digits at the end and two or three before them.
bool areGroups(std::string_view whole) {
  std::size_t digits = 0;
  bool last = true;  // behind the last comma
  for (auto c = whole.rbegin(); c != whole.rend(); ++c) {
    if (isDigit(*c)) {
      ++digits;
      continue;
    }
    if (*c != ',' || digits > 3 || digits < (last ? 3U : 2U)) return false;
    digits = 0;
    last = false;
  }
  return digits >= 1 && (last || digits <= 3);
}

bool isSide(std::string_view text) {
  if (text.starts_with(' ')) text.remove_prefix(1);
  constexpr std::array sides{"Dr", "Cr", "DR", "CR", "Debit", "Credit"};
  return std::ranges::find(sides, text) != sides.end();
}

// Length 0 when the text is no amount.
Whole wholeOf(std::string_view text) {
  Whole whole;
  const bool brackets = text.starts_with('(');
  if (brackets || text.starts_with('-') || text.starts_with('+')) whole.start = 1;
  const std::size_t point = text.find('.', whole.start);
  if (point == std::string_view::npos) return {};
  whole.length = point - whole.start;
  if (!areGroups(text.substr(whole.start, whole.length))) return {};
  std::string_view rest = text.substr(point + 1);
  if (rest.size() < 2 || !isDigit(rest[0]) || !isDigit(rest[1])) return {};
  rest.remove_prefix(2);
  if (brackets) {
    if (!rest.starts_with(')')) return {};
    rest.remove_prefix(1);
  }
  return rest.empty() || isSide(rest) ? whole : Whole{};
}

std::string divided(std::string digits, Grouping grouping) {
  if (grouping == Grouping::none) return digits;
  const std::size_t step = grouping == Grouping::lakhs ? 2 : 3;
  for (std::size_t at = digits.size() - std::min<std::size_t>(digits.size(), 3); at > 0;
       at -= std::min(at, step)) {
    digits.insert(at, 1, ',');
  }
  return digits;
}

Grouping& used() {
  static Grouping grouping = Grouping::asWritten;
  return grouping;
}

}  // namespace

Grouping groupingNamed(std::string_view name) {
  if (name == "none") return Grouping::none;
  if (name == "thousands") return Grouping::thousands;
  if (name == "lakhs") return Grouping::lakhs;
  return Grouping::asWritten;
}

std::string grouped(std::string text, Grouping grouping) {
  if (grouping == Grouping::asWritten) return text;
  const Whole whole = wholeOf(text);
  if (whole.length == 0) return text;
  std::string digits = text.substr(whole.start, whole.length);
  std::erase(digits, ',');
  return text.replace(whole.start, whole.length, divided(digits, grouping));
}

std::string groupedWords(const std::string& text, Grouping grouping) {
  if (grouping == Grouping::asWritten) return text;
  std::string result;
  for (std::size_t from = 0; from <= text.size();) {
    const std::size_t end = std::min(text.find(' ', from), text.size());
    std::string word = text.substr(from, end - from);
    std::string mark;
    if (!word.empty() && (word.back() == ',' || word.back() == ';' || word.back() == '.')) {
      mark = word.back();
      word.pop_back();
    }
    if (from > 0) result += ' ';
    result += grouped(std::move(word), grouping) + mark;
    from = end + 1;
  }
  return result;
}

Grouping grouping() { return used(); }
void setGrouping(Grouping grouping) { used() = grouping; }

std::string figuresIn(int room, const std::string& text,
                      const std::function<int(const std::string&)>& widthOf) {
  if (std::ranges::none_of(text, isDigit) || widthOf(text) <= room) return text;
  return std::string(static_cast<std::size_t>(std::max(1, room / std::max(1, widthOf("#")))), '#');
}

}  // namespace quillet::view
