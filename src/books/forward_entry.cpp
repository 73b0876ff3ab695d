#include "books/forward_entry.h"

#include <stdexcept>

#include "books/all_or_nothing.h"
#include "books/forward_memory.h"
#include "books/ledger_or_new.h"
#include "books/posted_amounts.h"
#include "books/year_creation.h"
#include "data/year.h"

namespace quillet {
namespace {

// What was chosen before, where it is complete.
void prefer(OpeningChoices& choices, const std::optional<BroughtForward>& before) {
  if (!before) return;
  choices.keepsZero = before->choices.keepsZero;
  if (before->choices.stock.partId != 0) {
    choices.stock = before->choices.stock;
    choices.stockLedger.clear();
  }
  if (sumOf(before->choices.shares) == wholeShare) choices.shares = before->choices.shares;
}

NewYear readNewYear(ServiceObject& host, const RegisteredYear& year) {
  const ClientTable books{year.table, year.client};
  return {TrialBalance(host, books).lines(), postedAmounts(host, books),
          ForwardMemory(host, year.client, year.keys).read()};
}

}  // namespace

ForwardBooks readForwardBooks(ServiceObject& host, const RegisteredYear& last) {
  ForwardBooks books{.last = last, .nextKeys = last.keys.after()};
  books.closing = readClosingBalances(host, last);
  books.next = Registry(host).year(last.client, books.nextKeys, YearSelect::home);
  if (books.next) books.year = readNewYear(host, *books.next);
  books.choices = usualChoices(books.closing, primaryGroups(host));
  prefer(books.choices, ForwardMemory(host, last.client, last.keys).read());
  prefer(books.choices, books.year.brought);
  // The ledger may be there, if without a line.
  if (books.choices.stock.partId == 0) {
    books.choices.stock.partId = host.GetMax_MastPartId(books.choices.stockLedger, false);
  }
  return books;
}

// --- writing ------------------------------------------------------------------------------------

// The one place through which a year is about to be written here: what must not be, is refused.
std::optional<ForwardEnd> ForwardEntry::refusal() {
  const Registry registry(host_);
  if (!registry.has(seen_.last.table, seen_.last.client)) return ForwardEnd::yearGone;
  if (readClosingBalances(host_, seen_.last) != seen_.closing) return ForwardEnd::booksOther;
  const auto next = registry.year(seen_.last.client, seen_.nextKeys, YearSelect::home);
  if (next.has_value() != seen_.next.has_value()) return ForwardEnd::booksOther;
  if (next && next->table != seen_.next->table) return ForwardEnd::booksOther;
  return std::nullopt;
}

// False when there is no number for another year.
bool ForwardEntry::provideYear() {
  if (seen_.next) {
    year_ = *seen_.next;
    return true;
  }
  YearCreation creation(host_);
  creation.begin(seen_.last.client, shownDate(seen_.nextKeys.first),
                 shownDate(seen_.nextKeys.second));
  if (!creation.takeFreeTable()) return false;
  creation.insertRow();
  year_ = creation.year();
  if (!TrialBalance(host_, {year_.table, year_.client}).lines().empty()) {
    throw std::runtime_error(
        "The table of the new year holds lines of the client already, though "
        "no year is registered for them.");
  }
  return true;
}

// Only what is written has its ledger made.
void ForwardEntry::nameLedgers(std::vector<Taken>& lines, OpeningChoices& choices) {
  for (Taken& each : lines) {
    OpeningLine& line = each.change.line;
    if (!each.taken || line.pair.partId != 0) continue;
    const std::string name = line.ledger;
    line.pair.partId = ledgerOrNew(host_, name);
    for (ProfitShare& share : choices.shares) {
      if (share.pair.partId == 0 && share.ledger == name) share.pair.partId = line.pair.partId;
    }
    if (choices.stock.partId == 0 && choices.stockLedger == name) {
      choices.stock.partId = line.pair.partId;
    }
  }
}

ForwardEnd ForwardEntry::run(std::vector<Taken> lines, OpeningChoices choices,
                             const std::string& when) {
  AllOrNothing part(host_);
  if (const auto refused = refusal()) return *refused;
  if (!provideYear()) return ForwardEnd::noTable;
  nameLedgers(lines, choices);
  std::vector<ImportedLine> written;
  for (const Taken& each : lines) {
    const OpeningLine& line = each.change.line;
    if (!each.taken) continue;
    written.push_back({line.pair.partId, line.ledger, line.pair.allId, each.change.after,
                       line.stands && line.opening.isZero() ? line.side : 0});
  }
  switch (LineImport(host_, {year_.table, year_.client}).enter(written, seen_.year.standing)) {
    case ImportEnd::stopped:
      return ForwardEnd::stopped;
    case ImportEnd::booksOther:
      return ForwardEnd::booksOther;
    case ImportEnd::yearGone:
      return ForwardEnd::yearGone;
    default:
      break;
  }
  remember(lines, std::move(choices), when);
  part.keep();
  host_.ConQuery(flushTables);
  return ForwardEnd::done;
}

void ForwardEntry::remember(const std::vector<Taken>& lines, OpeningChoices choices,
                            const std::string& when) {
  BroughtForward brought{.when = when, .choices = std::move(choices)};
  if (seen_.year.brought && !seen_.year.isEmpty()) brought.amounts = seen_.year.brought->amounts;
  for (const auto& [change, taken] : lines) {
    const LedgerGroup pair = change.line.pair;
    // What is left is offered again.
    if (change.offered && !taken) continue;
    if (change.state == OpeningState::leftOut && !brought.amounts.contains(pair)) continue;
    brought.amounts[pair] = change.line.opening;
  }
  ForwardMemory(host_, year_.client, year_.keys).keep(brought);
}

}  // namespace quillet
