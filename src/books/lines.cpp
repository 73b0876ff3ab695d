#include "books/lines.h"

#include <algorithm>
#include <deque>
#include <map>
#include <tuple>
#include <utility>

#include "data/text.h"

namespace quillet {
namespace {

using Pair = std::pair<long, long>;

Pair pairOf(const Line& line) { return {line.partId, line.allId}; }

// Sorts by keys computed once for each entry.
template <class KeyOf>
void sortByKey(std::vector<Entry>& entries, KeyOf keyOf) {
  using SortKey = decltype(keyOf(entries.front()));
  std::vector<std::pair<SortKey, std::size_t>> order;
  order.reserve(entries.size());
  for (std::size_t i = 0; i < entries.size(); ++i) order.emplace_back(keyOf(entries[i]), i);
  std::sort(order.begin(), order.end());
  std::vector<Entry> sorted;
  sorted.reserve(entries.size());
  for (const auto& [key, index] : order) sorted.push_back(std::move(entries[index]));
  entries = std::move(sorted);
}

// Largest amount first; the current year's counts before the previous year's.
std::tuple<bool, double, double> amountKey(const Entry& entry) {
  const auto amount = [&](int year) { return entry.line[year] ? entry.line[year]->amount : 0; };
  return {!entry.line[0], -amount(0), -amount(1)};
}

}  // namespace

bool isSame(const Line& a, const Line& b) { return a.srno == b.srno && a.partId == b.partId; }

std::vector<Line> readLines(Recordset& rows) {
  const int srno = rows.column("srno");
  const int partId = rows.column("partid");
  const int allId = rows.column("allid");
  const int amount = rows.column("amt");
  const int nid = rows.column("nid");
  std::vector<Line> lines;
  lines.reserve(rows.RecordCount());
  for (; !rows.EOF_(); rows.MoveNext()) {
    lines.push_back({rows.integer(srno), rows.integer(partId), rows.integer(allId),
                     rows.number(amount), rows.integer(nid)});
  }
  const auto bySerial = [](const Line& a, const Line& b) { return a.srno < b.srno; };
  if (!std::is_sorted(lines.begin(), lines.end(), bySerial)) {
    std::stable_sort(lines.begin(), lines.end(), bySerial);
  }
  return lines;
}

std::vector<Entry> pairLines(const std::vector<Line>& current, const std::vector<Line>& previous) {
  std::map<Pair, std::deque<const Line*>> waiting;
  for (const Line& line : previous) waiting[pairOf(line)].push_back(&line);
  std::vector<Entry> entries;
  entries.reserve(std::max(current.size(), previous.size()));
  for (const Line& line : current) {
    Entry& entry = entries.emplace_back();
    entry.line[0] = line;
    const auto match = waiting.find(pairOf(line));
    if (match == waiting.end() || match->second.empty()) continue;
    entry.line[1] = *match->second.front();
    match->second.pop_front();
  }
  for (const Line& line : previous) {
    std::deque<const Line*>& left = waiting[pairOf(line)];
    if (left.empty() || left.front() != &line) continue;
    left.pop_front();
    entries.emplace_back().line[1] = line;
  }
  return entries;
}

void fillNames(std::vector<Entry>& entries, ServiceObject& host, const AccountGroups& groups) {
  for (Entry& entry : entries) {
    entry.particular = host.GetPart_MastPartId(entry.any().partId);
    entry.group = groups.name(entry.any().allId);
  }
}

void sortEntries(std::vector<Entry>& entries, SortOption option) {
  switch (option) {
    case SortOption::entered:
      return;
    case SortOption::particular:
      sortByKey(entries, [](const Entry& e) { return upperCase(e.particular); });
      return;
    case SortOption::group:
      sortByKey(entries, [](const Entry& e) {
        return std::make_pair(upperCase(e.group), upperCase(e.particular));
      });
      return;
    case SortOption::amount:
      sortByKey(entries, amountKey);
      return;
  }
}

Totals totalsOf(const std::vector<Line>& lines) {
  Totals totals;
  for (const Line& line : lines) {
    if (line.nid == debit) totals.debit += line.amount;
    if (line.nid == credit) totals.credit += line.amount;
  }
  return totals;
}

}  // namespace quillet
