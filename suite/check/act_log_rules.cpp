#include "suite/check/act_log_rules.h"

#include <string>
#include <utility>

#include "suite/history/act_row.h"
#include "suite/history/pruning.h"

namespace quillet::suite::check {
namespace {

constexpr const char* logRemedy =
    "Compare it with a backup. The books themselves are not concerned.";

void add(std::string what, Examined& examined) {
  examined.add({"", {}, "SuiteAct"}, "log",
               "The log of acts was changed from outside: " + std::move(what), logRemedy);
}

// Acts come and stay: a version that ended was altered, or taken out, but for what was pruned.
void examineVersions(Database& database, Examined& examined) {
  const RecordsetPtr ended = database.query(
      std::string("select count(*),min(At),max(At),max(row_till) from SuiteAct for system_time all"
                  " where row_till<'2038-01-01' and row_till not in (select p.At from SuiteAct p"
                  " where p.Command='") +
      pruningCommand + "')");
  const long acts = ended->integer(0);
  if (acts == 0) return;
  const auto at = [&](int column) { return localTime(instantFrom(ended->text(column))); };
  add((acts == 1 ? "the act of " + at(1) + " was"
                 : std::to_string(acts) + " acts from " + at(1) + " to " + at(2) + " were") +
          " altered or taken out, last at " + at(3) + '.',
      examined);
}

// Of the first row, what went before may have been pruned.
void examineChain(Database& database, Examined& examined) {
  const RecordsetPtr rows =
      database.query(std::string("select ") + ActRow::columns + " from SuiteAct order by At");
  std::string before;
  for (bool first = true; !rows->EOF_(); rows->MoveNext(), first = false) {
    const ActRow act = ActRow::from(*rows);
    if (!first && act.hash != act.hashAfter(before)) {
      add("the act of " + localTime(act.at) + " does not follow from the one before it.", examined);
    }
    before = act.hash;
  }
}

}  // namespace

void examineActLog(Database& database, Examined& examined) {
  if (!database.keepsHistory()) return;
  examineVersions(database, examined);
  examineChain(database, examined);
}

}  // namespace quillet::suite::check
