#include "import/heading_words.h"

#include <algorithm>
#include <array>
#include <optional>

#include "data/text.h"

namespace quillet {
namespace {

using Time = HeadingWords::Time;

struct Phrase {
  std::string_view words;
  ColumnRole role;
};

// As a whole.
constexpr Phrase phrases[] = {{"PARTICULARS", ColumnRole::particulars},
                              {"PARTICULAR", ColumnRole::particulars},
                              {"LEDGER", ColumnRole::particulars},
                              {"LEDGERS", ColumnRole::particulars},
                              {"LEDGER NAME", ColumnRole::particulars},
                              {"LEDGER ACCOUNT", ColumnRole::particulars},
                              {"NAME OF LEDGER", ColumnRole::particulars},
                              {"NAME OF THE LEDGER", ColumnRole::particulars},
                              {"ACCOUNT", ColumnRole::particulars},
                              {"ACCOUNTS", ColumnRole::particulars},
                              {"ACCOUNT NAME", ColumnRole::particulars},
                              {"A C NAME", ColumnRole::particulars},
                              {"NAME OF ACCOUNT", ColumnRole::particulars},
                              {"NAME OF THE ACCOUNT", ColumnRole::particulars},
                              {"ACCOUNT HEAD", ColumnRole::particulars},
                              {"HEAD OF ACCOUNT", ColumnRole::particulars},
                              {"HEADS OF ACCOUNT", ColumnRole::particulars},
                              {"HEAD", ColumnRole::particulars},
                              {"NAME", ColumnRole::particulars},
                              {"DESCRIPTION", ColumnRole::particulars},
                              {"ACCOUNT DESCRIPTION", ColumnRole::particulars},
                              {"GROUP", ColumnRole::group},
                              {"GROUPS", ColumnRole::group},
                              {"GROUP NAME", ColumnRole::group},
                              {"ACCOUNT GROUP", ColumnRole::group},
                              {"LEDGER GROUP", ColumnRole::group},
                              {"NAME OF GROUP", ColumnRole::group},
                              {"UNDER", ColumnRole::group},
                              {"UNDER GROUP", ColumnRole::group},
                              {"PARENT", ColumnRole::group},
                              {"CATEGORY", ColumnRole::group},
                              {"SIDE", ColumnRole::side},
                              {"D C", ColumnRole::side},
                              {"TYPE", ColumnRole::side},
                              {"CODE", ColumnRole::code},
                              {"ACCOUNT CODE", ColumnRole::code},
                              {"LEDGER CODE", ColumnRole::code},
                              {"A C CODE", ColumnRole::code},
                              {"ACCOUNT NO", ColumnRole::code},
                              {"A C NO", ColumnRole::code},
                              {"GL CODE", ColumnRole::code},
                              {"SL", ColumnRole::code},
                              {"SL NO", ColumnRole::code},
                              {"S NO", ColumnRole::code},
                              {"SNO", ColumnRole::code},
                              {"SR NO", ColumnRole::code},
                              {"SR", ColumnRole::code},
                              {"SERIAL NO", ColumnRole::code},
                              {"SERIAL", ColumnRole::code},
                              {"NO", ColumnRole::code},
                              {"DATE", ColumnRole::date},
                              {"VOUCHER DATE", ColumnRole::date},
                              {"VCH DATE", ColumnRole::date},
                              {"ENTRY DATE", ColumnRole::date},
                              {"NARRATION", ColumnRole::narration},
                              {"REMARKS", ColumnRole::narration},
                              {"REMARK", ColumnRole::narration},
                              {"VOUCHER", ColumnRole::voucher},
                              {"VOUCHER NO", ColumnRole::voucher},
                              {"VOUCHER NUMBER", ColumnRole::voucher},
                              {"VCH NO", ColumnRole::voucher},
                              {"V NO", ColumnRole::voucher},
                              {"JV NO", ColumnRole::voucher},
                              {"JOURNAL NO", ColumnRole::voucher},
                              {"ENTRY NO", ColumnRole::voucher}};

struct TimeWord {
  std::string_view word;
  Time time;
};
constexpr TimeWord timeWords[] = {
    {"OPENING", Time::opening},      {"OP", Time::opening},      {"OPG", Time::opening},
    {"TRANSACTION", Time::movement}, {"DURING", Time::movement}, {"TRANSACTIONS", Time::movement},
    {"MOVEMENT", Time::movement},    {"PERIOD", Time::movement}, {"MOVEMENTS", Time::movement},
    {"TURNOVER", Time::movement},    {"CLOSING", Time::closing}, {"CL", Time::closing},
    {"CLG", Time::closing}};

constexpr std::array<std::string_view, 3> debitWords{"DEBIT", "DR", "DEBITS"};
constexpr std::array<std::string_view, 3> creditWords{"CREDIT", "CR", "CREDITS"};
constexpr std::array<std::string_view, 7> amountWords{"AMOUNT",   "AMT", "BALANCE", "BAL",
                                                      "BALANCES", "NET", "VALUE"};
// Beside the others.
constexpr std::array<std::string_view, 13> fillers{"RS",  "INR", "IN", "OF", "AS",     "ON",  "AT",
                                                   "THE", "FOR", "TO", "RE", "RUPEES", "YEAR"};

bool isNumber(std::string_view word) {
  return word.find_first_not_of("0123456789") == std::string_view::npos;
}

struct Told {
  bool debit = false;
  bool credit = false;
  bool amount = false;
  Time time = Time::open;
};

// Nothing when one of the words is no heading's.
std::optional<Told> toldBy(std::string_view words) {
  Told told;
  while (!words.empty()) {
    const std::string_view word = words.substr(0, words.find(' '));
    words.remove_prefix(std::min(word.size() + 1, words.size()));
    const auto* const time = std::find_if(std::begin(timeWords), std::end(timeWords),
                                          [&](const TimeWord& each) { return each.word == word; });
    if (time != std::end(timeWords)) {
      if (told.time == Time::open) told.time = time->time;
    } else if (holds(debitWords, word)) {
      told.debit = true;
    } else if (holds(creditWords, word)) {
      told.credit = true;
    } else if (holds(amountWords, word)) {
      told.amount = true;
    } else if (!holds(fillers, word) && !isNumber(word)) {
      return std::nullopt;
    }
  }
  return told;
}

ColumnRole roleOf(const Told& told) {
  if (told.debit && told.credit) return ColumnRole::side;
  if (told.debit) return ColumnRole::debits;
  if (told.credit) return ColumnRole::credits;
  return told.amount ? ColumnRole::amount : ColumnRole::none;
}

}  // namespace

std::string plainWords(std::string_view text) {
  std::string words;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t c = upperCase(nextCharacter(text, at));
    const bool visible = (c >= U'A' && c <= U'Z') || (c >= U'0' && c <= U'9') ||
                         (c >= 0xC0 && (c < 0x2000 || c > 0x206F) && c != 0x20B9);
    if (visible) {
      appendCharacter(words, c);
    } else if (!words.empty() && words.back() != ' ') {
      words += ' ';
    }
  }
  if (words.ends_with(' ')) words.pop_back();
  return words;
}

HeadingWords headingWords(std::string_view cell) {
  constexpr std::size_t longest = 60;
  if (cell.size() > longest) return {};
  const std::string words = plainWords(cell);
  const auto* const phrase = std::find_if(std::begin(phrases), std::end(phrases),
                                          [&](const Phrase& each) { return each.words == words; });
  if (phrase != std::end(phrases)) return {phrase->role, Time::open};
  const auto told = toldBy(words);
  return told ? HeadingWords{roleOf(*told), told->time} : HeadingWords{};
}

}  // namespace quillet
