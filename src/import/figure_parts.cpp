#include "import/figure_parts.h"

#include <algorithm>
#include <array>

#include "data/text.h"
#include "import/figures.h"

namespace quillet {
namespace {

bool isBlankCharacter(char32_t c) {
  return c == U' ' || (c >= 0x9 && c <= 0xD) || c == 0xA0 || (c >= 0x2000 && c <= 0x200B) ||
         c == 0x202F || c == 0x205F || c == 0x3000 || c == 0xFEFF;
}

// Dashes that stand for a minus.
bool isMinus(char32_t c) {
  return c == U'-' || c == 0x2212 || c == 0xFE63 || c == 0xFF0D || (c >= 0x2010 && c <= 0x2015);
}

// The first of the ten digits of scripts in use in India, and the wide ones.
constexpr std::array<char32_t, 11> scriptZeros{U'0',  0x966, 0x9E6, 0xA66, 0xAE6, 0xB66,
                                               0xBE6, 0xC66, 0xCE6, 0xD66, 0xFF10};

void takeSign(FigureParts& parts) {
  parts.signTwice = parts.signTwice || parts.negative;
  parts.negative = true;
}

// A word before or after the digits: a side or a currency.
void takeWord(FigureParts& parts, const std::string& word) {
  const std::string capitals = upperCase(word);
  if (capitals == "RS" || capitals == "INR" || capitals == "RE") return;
  const char side = sideNamed(word);
  if (side == 0) {
    parts.strange = parts.strange.empty() ? word : parts.strange;
  } else {
    parts.sideTwice = parts.sideTwice || parts.side != 0;
    parts.side = side;
  }
}

// Where the digits with their marks end: the last digit before anything else than digits, marks and
// single blanks between digits.
std::size_t digitsEnd(std::string_view text, std::size_t begin) {
  std::size_t end = begin;
  for (std::size_t i = begin; i < text.size(); ++i) {
    if (isDigit(text[i])) end = i + 1;
    if (!isDigit(text[i]) && std::string_view(",.' ").find(text[i]) == std::string_view::npos)
      break;
  }
  // "1,000." ends in its point.
  if (end < text.size() && text[end] == '.') ++end;
  return end;
}

bool isBracketed(std::string_view text) {
  return text.size() > 2 && text.front() == '(' && !isLetter(text[1]) &&
         text.find(')') != std::string_view::npos;
}

// A bracket of "(Cr)" or "(Dr.)".
bool bracketsWord(std::string_view text, std::size_t at) {
  if (text[at] == '(') return at + 1 < text.size() && isLetter(text[at + 1]);
  return text[at] == ')' && at > 0 && (isLetter(text[at - 1]) || text[at - 1] == '.');
}

}  // namespace

std::string plainFigure(std::string_view text) {
  std::string plain;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t c = nextCharacter(text, at);
    const auto* const zero =
        std::find_if(scriptZeros.begin(), scriptZeros.end(),
                     [c](char32_t first) { return first <= c && c < first + 10; });
    if (zero != scriptZeros.end()) {
      plain += static_cast<char>('0' + (c - *zero));
    } else if (isBlankCharacter(c)) {
      plain += ' ';
    } else if (isMinus(c)) {
      plain += '-';
    } else if (c == 0x20B9 || c == 0x20A8) {
      plain += "Rs ";
    } else if (c == 0x2019) {
      plain += '\'';
    } else {
      plain += c < 0x80 ? static_cast<char>(c) : '?';
    }
  }
  // "1,000/-" says that no paise follow.
  if (plain.ends_with("/-")) plain.resize(plain.size() - 2);
  return std::string(trimmed(plain));
}

FigureParts figureParts(std::string text) {
  FigureParts parts;
  if (isBracketed(text)) {
    takeSign(parts);
    text[0] = ' ';
    text[text.find(')')] = ' ';
  }
  for (std::size_t i = 0; i < text.size();) {
    const char c = text[i];
    const bool begins = isDigit(c) || (c == '.' && i + 1 < text.size() && isDigit(text[i + 1]));
    if (begins && parts.digits.empty()) {
      const std::size_t end = digitsEnd(text, i);
      parts.digits = text.substr(i, end - i);
      i = end;
    } else if (isLetter(c)) {
      const std::size_t begin = i;
      while (i < text.size() && isLetter(text[i])) ++i;
      takeWord(parts, text.substr(begin, i - begin));
      if (i < text.size() && text[i] == '.') ++i;
    } else {
      if (c == '-') takeSign(parts);
      const bool known = std::string_view("-+ /").find(c) != std::string_view::npos;
      if (!known && !bracketsWord(text, i) && parts.strange.empty())
        parts.strange = std::string(1, c);
      ++i;
    }
  }
  return parts;
}

char sideNamed(std::string_view text) {
  const std::string capitals = upperCase(plainFigure(text));
  const std::string word = capitals.substr(0, capitals.find('.'));
  if (word == "D" || word == "DR" || word == "DEBIT") return 'D';
  if (word == "C" || word == "CR" || word == "CREDIT") return 'C';
  return 0;
}

}  // namespace quillet
