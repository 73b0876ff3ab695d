#include "books/ledger_cleanup.h"

#include "data/sql.h"
#include "data/text.h"

namespace quillet {
namespace {

struct Ledger {
  long id;
  std::string name;
};

std::vector<Ledger> ledgersInSeveralRows(ServiceObject& host) {
  std::vector<Ledger> all;
  const auto rows =
      host.query("SELECT PARTID,PARTICULAR, count(partid) as cntr FROM MAST_PART group by partid");
  for (; !rows->EOF_(); rows->MoveNext()) {
    if (rows->integer("cntr") > 1)
      all.push_back({rows->integer("PARTID"), rows->text("PARTICULAR")});
  }
  return all;
}

long rowsInMaster(ServiceObject& host, const Sql& which = {}) {
  return host.query("select count(*) as names from MAST_PART" + which)->integer("names");
}

// The name that the select came upon, unless it is blank and another is not.
std::string nameToKeep(ServiceObject& host, const Ledger& ledger) {
  if (!trimmed(ledger.name).empty()) return ledger.name;
  const auto names = host.query("select max(PARTICULAR) as name from MAST_PART where PARTID=" +
                                sqlNumber(ledger.id));
  return names->text("name");
}

void keepOneRow(ServiceObject& host, const Ledger& ledger) {
  const Sql ofLedger = " where PARTID=" + sqlNumber(ledger.id);
  const Sql name = "'" + host.escaped(nameToKeep(host, ledger)) + "'";
  host.change("Delete from MAST_PART" + ofLedger + " and PARTICULAR<>" + name);
  // Rows that the database takes for equal are no other name.
  const Sql equal = ofLedger + " and PARTICULAR=" + name;
  const long further = rowsInMaster(host, equal) - 1;
  if (further > 0) host.change("Delete from MAST_PART" + equal + " limit " + sqlNumber(further));
}

std::string counted(long number, const std::string& one) {
  return std::to_string(number) + ' ' + one + (number == 1 ? "" : "s");
}

}  // namespace

LedgerCleanup cleanLedgerMaster(ServiceObject& host) {
  const std::vector<Ledger> ledgers = ledgersInSeveralRows(host);
  if (ledgers.empty()) return {};
  const long before = rowsInMaster(host);
  for (const Ledger& ledger : ledgers) keepOneRow(host, ledger);
  return {before - rowsInMaster(host), static_cast<long>(ledgersInSeveralRows(host).size())};
}

std::string textOf(const LedgerCleanup& cleanup) {
  const std::string removed = cleanup.removed == 0 ? ""
                                                   : counted(cleanup.removed, "second name") +
                                                         " removed from the ledger master.";
  const std::string left =
      cleanup.left == 0 ? "" : counted(cleanup.left, "ledger") + " still in it with several rows.";
  if (removed.empty() && left.empty()) return "The ledger master holds no second names.";
  if (removed.empty()) return "Nothing could be removed from the ledger master: " + left;
  return left.empty() ? removed : removed + ' ' + left;
}

}  // namespace quillet
