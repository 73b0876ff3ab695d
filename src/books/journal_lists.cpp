#include "books/journal_lists.h"

#include "books/account_groups.h"
#include "books/journal.h"
#include "books/scratch_tables.h"
#include "books/trial_balance.h"
#include "data/text.h"

namespace quillet {
namespace {

void sumUpPairs(ScratchTables& scratch, const TrialBalance& year, const Journal& journal) {
  const Sql into = "Insert into Ledger_Temp1 Select ";
  const auto pairs = [&](const Sql& from, const Sql& amount) {
    return into + from + ".partid," + from + ".allid,Particular,AllGrp," + amount +
           ScratchTables::named(from) + ".code_no='" + year.client() + "'";
  };
  const Sql& table = year.table();
  scratch.create(
      "(PartId Int(11), AllId Int(11), Part Varchar(100), AllGrp Varchar(100), Amt Double)");
  scratch.execute(into + "partid,0,Particular,'',0 from mast_part");
  scratch.execute(pairs(table, "sum(Amt)") + " and " + table + ".Nid=1 group by partid,allid");
  scratch.execute(pairs(table, "-sum(Amt)") + " and " + table + ".Nid=2 group by partid,allid");
  scratch.execute(pairs(journal.table(), "0"));
  scratch.execute(
      "Insert into Ledger_Temp Select partid, allid,Part,AllGrp,sum(Amt) from Ledger_Temp1 "
      "group by partid,allid");
  scratch.drop(ScratchTables::collected);
}

NameList readLedgers(ServiceObject& host) {
  const auto rows = host.query("Select distinct(PartId),Part from Ledger_Temp order by Part");
  NameList ledgers;
  ledgers.reserve(rows->RecordCount());
  for (; !rows->EOF_(); rows->MoveNext()) {
    // A line may stand on a ledger that the master does not have any more.
    if (rows->field(1)) ledgers.append(rows->text(1), rows->integer(0));
  }
  ledgers.sort();
  return ledgers;
}

BalanceList readBalances(ServiceObject& host, const NameList& groups) {
  const auto rows = host.query("Select * from Ledger_Temp order by Part,AllGrp");
  BalanceList balances;
  for (const NameList::Entry& group : groups.entries()) balances.nameGroup(group.id, group.name);
  const int partId = rows->column("PartId");
  const int allId = rows->column("AllId");
  const int amount = rows->column("Amt");
  for (; !rows->EOF_(); rows->MoveNext()) {
    balances.set({rows->integer(partId), rows->integer(allId)},
                 Money::rounded(rows->number(amount)));
  }
  return balances;
}

}  // namespace

JournalLists readJournalLists(ServiceObject& host, const ClientTable& books) {
  const TrialBalance year(host, books);
  const Journal journal(host, books);
  ScratchTables scratch(host);
  sumUpPairs(scratch, year, journal);
  JournalLists lists;
  lists.ledgers = readLedgers(host);
  AccountGroups groups;
  groups.load(host);
  lists.groups = groups.names();
  lists.balances = readBalances(host, lists.groups);
  scratch.drop(ScratchTables::summed);
  return lists;
}

std::optional<NamedId> findLedger(ServiceObject& host, const std::string& name) {
  const auto rows = host.query("Select * From Mast_Part Where Particular=" +
                               host.quoted(upperCase(trimmed(name))));
  return bestMatch(*rows, "PartId", "Particular", name);
}

}  // namespace quillet
