#include "review/year_books.h"

#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "books/account_groups.h"
#include "books/import_memory.h"
#include "books/posted_amounts.h"
#include "books/posting.h"
#include "books/trial_balance.h"

namespace quillet {
namespace {

// A name that several ledgers carry is that of the client's own: lists are in the order in which
// they are searched.
std::vector<NamedId> ledgersOf(ServiceObject& host, const ImportMemory& memory,
                               const std::vector<const std::vector<Line>*>& lines) {
  std::unordered_map<long, std::size_t> ranks;
  for (std::size_t rank = 0; rank < lines.size(); ++rank) {
    for (const Line& line : *lines[rank]) ranks.emplace(line.partId, rank);
  }
  std::vector<std::vector<NamedId>> names(lines.size() + 1);
  std::unordered_set<long> known;
  const auto rows = host.query("Select PartId,Particular From Mast_Part Order By PartId");
  for (; !rows->EOF_(); rows->MoveNext()) {
    const long id = rows->integer(0);
    known.insert(id);
    const auto rank = ranks.find(id);
    names[rank == ranks.end() ? lines.size() : rank->second].push_back({id, rows->text(1)});
  }
  std::vector<NamedId> all;
  for (auto& part : names) all.insert(all.end(), part.begin(), part.end());
  // The names that stood for them in the client's earlier imports come behind the master's own.
  for (const auto& [name, id] : memory.ledgers()) {
    if (known.contains(id)) all.push_back({id, name});
  }
  return all;
}

std::vector<NamedId> groupsOf(const AccountGroups& groups) {
  std::vector<NamedId> names;
  for (const NameList::Entry& group : groups.names().entries()) {
    names.push_back({group.id, group.name});
  }
  return names;
}

Line lineOf(LedgerGroup pair, Money balance, long srno) {
  return {.srno = srno,
          .partId = pair.partId,
          .allId = pair.allId,
          .amount = abs(balance).rupees(),
          .nid = balance < Money() ? credit : debit};
}

// One line for each pair, as it was before the vouchers. A pair that only vouchers brought has no
// line of its own; its ledger is mostly entered where it stands.
void setOriginals(YearBooks& books) {
  std::map<LedgerGroup, Money> balances;
  std::vector<LedgerGroup> order;
  for (const Line& line : books.standing) {
    const LedgerGroup pair{line.partId, line.allId};
    const auto [found, isFirst] = balances.emplace(pair, -books.postedOn(pair));
    found->second += Money::rounded(line.balance());
    if (isFirst) order.push_back(pair);
  }
  // Vouchers may have brought a balance to nothing.
  for (const auto& [pair, amount] : books.posted) {
    if (balances.emplace(pair, -amount).second) order.push_back(pair);
  }
  for (const LedgerGroup& pair : order) {
    const Money balance = balances[pair];
    if (balance.isZero()) {
      books.known.usualGroups.emplace(pair.partId, pair.allId);
    } else {
      books.known.current.push_back(
          lineOf(pair, balance, static_cast<long>(books.known.current.size()) + 1));
    }
  }
}

}  // namespace

Money YearBooks::postedOn(LedgerGroup pair) const {
  const auto found = posted.find(pair);
  return found == posted.end() ? Money() : found->second;
}

YearBooks readYearBooks(Context& context, const ReviewedYear& year) {
  ServiceObject& host = *context.host;
  postAllMissing(host, context.unposted);
  const ImportMemory memory(host, year.books.client, year.keys);
  AccountGroups groups;
  groups.load(host);
  std::vector<Line> standing = TrialBalance(host, year.books).lines();
  std::vector<Line> previous;
  if (!year.previousTable.empty()) {
    previous = TrialBalance(host, {year.previousTable, year.books.client}).lines();
  }
  YearBooks books{{ledgersOf(host, memory, {&standing, &previous}), groupsOf(groups)},
                  std::move(standing),
                  postedAmounts(host, year.books)};
  books.known.previous = std::move(previous);
  setOriginals(books);
  books.known.rememberedGroups = memory.groups();
  return books;
}

}  // namespace quillet
