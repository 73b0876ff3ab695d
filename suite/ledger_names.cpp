#include "suite/ledger_names.h"

#include <array>
#include <cctype>
#include <string_view>

#include "data/errors.h"
#include "data/sql.h"
#include "data/text.h"
#include "suite/schema.h"

namespace quillet::suite {
namespace {

// The table that a statement changes is the first word that is no part of the command.
bool changesLedgers(std::string_view sql) {
  constexpr std::array<std::string_view, 15> commandWords{
      "insert", "into", "update", "delete", "from",   "replace",      "truncate", "table",
      "drop",   "if",   "exists", "alter",  "ignore", "low_priority", "quick"};
  std::string word;
  const auto isCommand = [&] {
    for (const std::string_view known : commandWords) {
      if (word == known) return true;
    }
    return false;
  };
  for (std::size_t i = 0; i <= sql.size(); ++i) {
    const char c = i < sql.size() ? sql[i] : ' ';
    if (std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_') {
      word += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
      continue;
    }
    if (word.empty()) continue;
    if (!isCommand()) return word == "mast_part";
    word.clear();
  }
  return false;
}

}  // namespace

void LedgerNames::noticed(const std::string& sql) {
  if (changesLedgers(sql)) loaded_ = false;
}

void LedgerNames::load() {
  names_.clear();
  // Old data holds several names for one id: the first one counts.
  const RecordsetPtr rows = database_.query("select PartId, Particular from Mast_Part");
  names_.reserve(static_cast<std::size_t>(rows->RecordCount()));
  for (; !rows->EOF_(); rows->MoveNext()) names_.try_emplace(rows->integer(0), rows->text(1));
  loaded_ = true;
}

std::string LedgerNames::nameOf(long id) {
  if (!loaded_) load();
  const auto found = names_.find(id);
  return found == names_.end() ? std::string() : found->second;
}

long LedgerNames::idOf(const std::string& name, bool create) {
  const std::string wanted(trimmed(name));
  if (wanted.empty() || lengthOf(wanted) > ledgerNameLength) return 0;
  try {
    const RecordsetPtr found =
        database_.query("select PartId from Mast_Part where Particular='" +
                        database_.escape(wanted) + "' order by PartId limit 1");
    if (!found->EOF_()) return found->integer(0);
    return create ? this->create(wanted) : 0;
  } catch (const RunTimeError&) {
    return 0;
  }
}

long LedgerNames::create(const std::string& name) {
  const long id = database_.query("select max(PartId) from Mast_Part")->integer(0) + 1;
  database_.execute("insert into Mast_Part(PartId,Particular) values(" + std::to_string(id) + ",'" +
                    database_.escape(name) + "')");
  database_.execute(flushTables);
  if (loaded_) names_.try_emplace(id, name);
  return id;
}

}  // namespace quillet::suite
