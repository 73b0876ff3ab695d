#include "suite/ledger_names.h"

#include <algorithm>
#include <set>

#include "data/best_match.h"
#include "data/errors.h"
#include "data/sql.h"
#include "data/text.h"
#include "suite/history/written_table.h"
#include "suite/schema.h"

namespace quillet::suite {

void LedgerNames::statementSent(const std::string& sql) {
  // Taking back a part of an act takes back the ledgers that it made.
  if (writtenBy(sql).tables.contains("mast_part") || equalIgnoringCase(sql, "rollback")) {
    forget();
  }
}

// What is found then stays so to the end of the transaction, but for what this station does.
bool LedgerNames::hasTurn() const { return unit_.turns() != nullptr && unit_.transaction() != 0; }

void LedgerNames::load() {
  names_.clear();
  byKey_.clear();
  // Old data holds several names for one id: the first one counts.
  const RecordsetPtr rows = unit_.query("select PartId, Particular from Mast_Part");
  names_.reserve(rows->RecordCount());
  for (; !rows->EOF_(); rows->MoveNext()) names_.try_emplace(rows->integer(0), rows->text(1));
  loaded_ = true;
  loadedIn_ = unit_.transaction();
}

std::string LedgerNames::nameOf(long id) {
  if (!loaded_) load();
  const auto found = names_.find(id);
  return found == names_.end() ? std::string() : found->second;
}

long LedgerNames::idOf(const std::string& name, bool create) {
  const std::string cleaned = cleanedName(name);
  if (cleaned.empty() || lengthOf(cleaned) > ledgerNameLength) return 0;
  try {
    // Until the turn is taken other stations may add names, and take the next number.
    if (create) unit_.beginWriting();
    const bool known = lookedUp_ && hasTurn() && lookedUpIn_ == unit_.transaction();
    if (!known) lookedUp_ = false;
    const std::optional<NamedId> found = find(name, cleaned);
    if (found) return found->id;
    return create ? this->create(cleaned) : 0;
  } catch (const RunTimeError&) {
    return 0;
  }
}

std::optional<NamedId> LedgerNames::find(const std::string& name, const std::string& cleaned) {
  const auto answer = lookedUp_ ? answers_.find(name) : answers_.end();
  std::optional<NamedId> found;
  if (answer != answers_.end()) {
    found = answer->second;
  } else {
    const auto rows =
        unit_.query("select PartId, Particular from Mast_Part where Particular in ('" +
                    unit_.escape(cleaned) + "','" + unit_.escape(name) + "') order by PartId");
    found = bestMatch(*rows, "PartId", "Particular", name);
  }
  if (found && sameName(found->name, name)) return found;
  const std::optional<NamedId> alike = findAlike(name);
  return alike ? alike : found;
}

// Whether the database tells the names from each other is asked with them: of names that it does
// not, the first one that is made is the answer for the next.
void LedgerNames::lookUp(const std::vector<std::string>& names) {
  lookedUp_ = false;
  answers_.clear();
  highest_ = 0;
  unit_.beginWriting();
  if (!hasTurn() || names.empty()) return;
  std::string questions, distinct;
  std::set<std::string> keys;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const std::string cleaned = unit_.escape(cleanedName(names[i]));
    questions += "select " + std::to_string(i) +
                 " as n,PartId,Particular from Mast_Part where Particular in ('" + cleaned + "','" +
                 unit_.escape(names[i]) + "') union all ";
    if (keys.insert(nameKey(names[i])).second) distinct += " union all select '" + cleaned + '\'';
  }
  const RecordsetPtr rows =
      unit_.query(questions +
                  "select -1,count(distinct x),'' from (select Particular as x from "
                  "Mast_Part where false" +
                  distinct + ") as names order by n,PartId");
  const bool apart = !rows->EOF_() && rows->integer(1) == std::ssize(keys);
  if (!apart) return;
  rows->MoveNext();
  std::vector<std::vector<NamedId>> found(names.size());
  for (; !rows->EOF_(); rows->MoveNext()) {
    found.at(rows->integer(0)).push_back({rows->integer(1), rows->text(2)});
  }
  for (std::size_t i = 0; i < names.size(); ++i) {
    answers_.try_emplace(names[i], bestMatch(found[i], names[i]));
  }
  lookedUp_ = true;
  lookedUpIn_ = unit_.transaction();
}

// The name may be stored in a spelling that the database takes for another one, as with two blanks.
// Names that other stations change meanwhile are read anew, but not for each of the thousands that
// one transaction enters.
std::optional<NamedId> LedgerNames::findAlike(const std::string& name) {
  if (!loaded_ || unit_.transaction() == 0 || loadedIn_ != unit_.transaction()) load();
  if (byKey_.empty()) {
    for (const auto& [id, listed] : names_) {
      long& lowest = byKey_.try_emplace(nameKey(listed), id).first->second;
      lowest = std::min(lowest, id);
    }
  }
  const auto listed = byKey_.find(nameKey(name));
  if (listed == byKey_.end()) return std::nullopt;
  return NamedId{listed->second, names_.at(listed->second)};
}

// The number of a ledger that was deleted is not given again: the history, and what is remembered
// of earlier years, means that one by it.
long LedgerNames::highestId() {
  if (lookedUp_ && highest_ != 0) return highest_;
  const char* const ever = unit_.keepsHistory() ? " for system_time all" : "";
  // The end of the index, which max() does not find among versions.
  const RecordsetPtr highest = unit_.query(std::string("select PartId from Mast_Part") + ever +
                                           " order by PartId desc limit 1");
  return highest->EOF_() ? 0 : highest->integer(0);
}

long LedgerNames::create(const std::string& name) {
  const long id = highestId() + 1;
  unit_.execute("insert into Mast_Part(PartId,Particular) values(" + std::to_string(id) + ",'" +
                unit_.escape(name) + "')");
  unit_.execute(flushTables);
  highest_ = id;
  if (loaded_) names_.try_emplace(id, name);
  if (!byKey_.empty()) byKey_.try_emplace(nameKey(name), id);
  return id;
}

}  // namespace quillet::suite
