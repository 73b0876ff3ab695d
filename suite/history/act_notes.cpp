#include "suite/history/act_notes.h"

#include <algorithm>
#include <map>

#include "suite/history/act_row.h"

namespace quillet::suite {
namespace {

constexpr std::size_t actsInOneSelect = 500;

}  // namespace

ActNotes::ActNotes(UnitOfWork& unit, const std::vector<Instant>& acts) {
  for (std::size_t from = 0; from < acts.size(); from += actsInOneSelect) {
    std::string instants;
    for (std::size_t i = from; i < std::min(acts.size(), from + actsInOneSelect); ++i) {
      instants += (instants.empty() ? "'" : ",'") + instantText(acts[i]) + '\'';
    }
    read(unit, instants);
  }
  markTakenBack(unit);
}

void ActNotes::read(UnitOfWork& unit, const std::string& instants) {
  const RecordsetPtr rows = unit.query(
      "select At,Station,Person,Form,Command,Reason,TakesBack from SuiteAct where At in (" +
      instants + ')');
  for (; !rows->EOF_(); rows->MoveNext()) {
    notes_[instantFrom(rows->text(0))] = {rows->text(1), shownPerson(rows->text(2)),
                                          rows->text(3), rows->text(4),
                                          rows->text(5), instantFrom(rows->text(6))};
  }
}

// An act that was taken back stands again when that was taken back itself.
void ActNotes::markTakenBack(UnitOfWork& unit) {
  const RecordsetPtr rows =
      unit.query("select At,TakesBack from SuiteAct where TakesBack is not null order by At desc");
  std::map<Instant, Instant> by;
  for (; !rows->EOF_(); rows->MoveNext()) {
    const Instant act = instantFrom(rows->text(0));
    const Instant taken = instantFrom(rows->text(1));
    if (by.contains(act)) continue;
    by[taken] = act;
    if (const auto note = notes_.find(taken); note != notes_.end()) note->second.takenBackBy = act;
  }
}

const ActNote& ActNotes::of(Instant act) const {
  static const ActNote none;
  const auto found = notes_.find(act);
  return found == notes_.end() ? none : found->second;
}

}  // namespace quillet::suite
