#include "suite/history/version_events.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace quillet::suite {

void VersionEvents::read(Change::Of of, const std::string& select, const std::string& condition,
                         const Period& part, const RowOf& rowOf) {
  const Period asked{std::max(part.from, period_.from), std::min(part.till, period_.till)};
  if (asked.from >= asked.till) return;
  const RecordsetPtr rows = unit_.query(versionsOf(select) + condition + changedIn(asked));
  for (; !rows->EOF_(); rows->MoveNext()) {
    const Instant from = rows->integer(0);
    const Instant till = rows->integer(1);
    BookRow row = rowOf(*rows);
    if (asked.has(from) && asked.has(till)) add(from, of, true, row);
    if (asked.has(till)) {
      add(till, of, false, std::move(row));
    } else if (asked.has(from)) {
      add(from, of, true, std::move(row));
    }
  }
}

void VersionEvents::add(Instant at, Change::Of of, bool begins, BookRow row) {
  if (period_.has(at)) events_.push_back({at, of, begins, std::move(row)});
}

Changes VersionEvents::take() {
  std::ranges::stable_sort(events_, [](const Event& a, const Event& b) {
    return std::tuple(-a.at, a.of) < std::tuple(-b.at, b.of);
  });
  Changes changes(unit_);
  std::vector<Instant> acts;
  for (auto event = events_.begin(); event != events_.end();) {
    const Instant at = event->at;
    const Change::Of of = event->of;
    std::vector<BookRow> before;
    std::vector<BookRow> after;
    for (; event != events_.end() && event->at == at && event->of == of; ++event) {
      (event->begins ? after : before).push_back(std::move(event->row));
    }
    for (RowPair& pair : matchRows(std::move(before), std::move(after))) {
      if (pair.isSame()) continue;
      if (acts.empty() || acts.back() != at) acts.push_back(at);
      changes.list.push_back({at, of, std::move(pair)});
    }
  }
  events_.clear();
  changes.acts = ActNotes(unit_, acts);
  changes.actCount = acts.size();
  return changes;
}

}  // namespace quillet::suite
