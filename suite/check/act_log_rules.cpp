#include "suite/check/act_log_rules.h"

#include <string>

#include "suite/history/act_row.h"

namespace quillet::suite::check {

// Of the first row, what went before may have been pruned.
void examineActLog(Database& database, Examined& examined) {
  if (!database.keepsHistory()) return;
  const RecordsetPtr rows =
      database.query(std::string("select ") + ActRow::columns + " from SuiteAct order by At");
  std::string before;
  for (bool first = true; !rows->EOF_(); rows->MoveNext(), first = false) {
    const ActRow act = ActRow::from(*rows);
    if (!first && act.hash != act.hashAfter(before)) {
      examined.add({"", {}, "SuiteAct"}, "log",
                   "The log of acts was changed from outside: the act of " + localTime(act.at) +
                       " does not follow from the one before it.",
                   "Compare it with a backup. The books themselves are not concerned.");
    }
    before = act.hash;
  }
}

}  // namespace quillet::suite::check
