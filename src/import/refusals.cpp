#include "import/refusals.h"

namespace quillet {
namespace {

// "1234.50", without a sign.
std::string plainText(Money amount) {
  const std::int64_t paise = abs(amount).paise();
  const std::string cents = std::to_string(paise % 100);
  return std::to_string(paise / 100) + (cents.size() < 2 ? ".0" : ".") + cents;
}

std::string sideOf(Money balance) { return balance < Money() ? " CR" : " DR"; }

std::string lackingIn(const ProposedLine& line) {
  if (!line.question.empty()) return line.question;
  if (line.groupState != GroupState::missing || line.balance.isZero()) return {};
  return line.sourceGroup.empty() ? "Choose the group of \"" + line.ledger + "\"."
                                  : "Choose the group of \"" + line.ledger + "\": there is no \"" +
                                        line.sourceGroup + "\", or the ledger has several.";
}

}  // namespace

std::string differenceOf(const Proposals& proposals) {
  std::string text;
  if (const Money difference = proposals.entered.difference(); !difference.isZero()) {
    text = "Debit and credit of what is to be entered differ by " + plainText(difference) +
           sideOf(difference) + '.';
  }
  const auto add = [&](const std::string& sentence) {
    text += (text.empty() ? "" : " ") + sentence;
  };
  if (!proposals.explained) {
    add("The source's total is " + plainText(proposals.source.debit) + " DR and " +
        plainText(proposals.source.credit) + " CR, its ledgers add up to " +
        plainText(proposals.ledgers.debit) + " DR and " + plainText(proposals.ledgers.credit) +
        " CR.");
  }
  const Money left = proposals.ledgers.difference() - proposals.entered.difference();
  if (!left.isZero()) {
    add("What is to be entered differs from the source's ledgers by " + plainText(left) +
        sideOf(left) + '.');
  }
  return text;
}

std::vector<Refusal> refusalsOf(const Mapping& mapping, const ImportRows& rows,
                                const Proposals& proposals, bool differenceConfirmed) {
  if (const std::string problem = problemOf(mapping); !problem.empty()) return {{0, problem}};
  std::vector<Refusal> refusals;
  if (proposals.toEnter.empty()) refusals.push_back({0, "There is nothing to import."});
  const std::string difference = differenceOf(proposals);
  if (!difference.empty() && !differenceConfirmed) refusals.push_back({0, difference});
  auto line = proposals.lines.begin();
  for (const ImportRow& row : rows.rows) {
    std::string text = row.question;
    if (line != proposals.lines.end() && line->row == row.number) {
      text = line->taken ? lackingIn(*line) : std::string();
      ++line;
    }
    if (!text.empty()) refusals.push_back({row.number, text});
  }
  return refusals;
}

}  // namespace quillet
