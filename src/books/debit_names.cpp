#include "books/debit_names.h"

#include <algorithm>
#include <array>
#include <string>

#include "data/text.h"

namespace quillet {
namespace {

using namespace std::string_view_literals;

constexpr std::array taken{
    "DRAWINGS"sv,          "DRAWING A C"sv,       "DRAWING AC"sv,
    "DRAWING ACCOUNT"sv,   "WITHDRAWAL"sv,        "WITHDRAWALS"sv,
    "CAPITAL WITHDRAWN"sv, "AMOUNT WITHDRAWN"sv,  "HOUSEHOLD EXPENSES"sv,
    "PERSONAL EXPENSES"sv, "INCOME TAX PAID"sv,   "ADVANCE TAX PAID"sv,
    "LIC PREMIUM"sv,       "MEDICLAIM PREMIUM"sv, "LIFE INSURANCE PREMIUM"sv,
};
// These are still owed, or came back.
constexpr std::array exceptions{"PAYABLE"sv, "OUTSTANDING"sv, "REFUND"sv};

// The words in capitals, each between blanks: " DRAWINGS A C RAO ".
std::string wordsOf(std::string_view name) {
  std::string words = " ";
  for (const char byte : upperCase(name)) {
    const bool isLetter = (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9') ||
                          static_cast<unsigned char>(byte) >= 0x80;
    if (isLetter || words.back() != ' ') words += isLetter ? byte : ' ';
  }
  if (words.back() != ' ') words += ' ';
  return words;
}

template <class Phrases>
bool hasOne(const std::string& words, const Phrases& phrases) {
  return std::any_of(phrases.begin(), phrases.end(), [&](std::string_view phrase) {
    return words.find(' ' + std::string(phrase) + ' ') != std::string::npos;
  });
}

bool saysTaken(std::string_view name) {
  const std::string words = wordsOf(name);
  return (hasOne(words, taken) || words.ends_with(" DRAWING ")) && !hasOne(words, exceptions);
}

}  // namespace

bool isUsuallyDebit(std::string_view ledger, std::string_view group) {
  return saysTaken(ledger) || saysTaken(group);
}

}  // namespace quillet
