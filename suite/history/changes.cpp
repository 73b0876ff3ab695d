#include "suite/history/changes.h"

#include <algorithm>
#include <utility>

#include "data/year.h"
#include "suite/history/version_events.h"

namespace quillet::suite {
namespace {

using Of = Change::Of;

// What stands before the history began is no change.
Period sinceHistory(UnitOfWork& unit, const Period& period) {
  return {std::max(period.from, historyBegins(unit) + 1), std::min(period.till, endOfTime)};
}

BookRow lineOf(const Recordset& columns) {
  BookRow row;
  row.partId = columns.integer(2);
  row.allId = columns.integer(3);
  const Money amount = Money::rounded(columns.number(4));
  row.balance = columns.integer(5) == 2 ? -amount : amount;
  row.order = columns.integer(6);
  return row;
}

BookRow voucherLineOf(const Recordset& columns) {
  BookRow row = lineOf(columns);
  row.voucher = columns.integer(7);
  row.date = columns.text(8);
  row.details = columns.text(9);
  return row;
}

// Rows of masters are paired by their ids alone.
BookRow masterRow(long id, std::string says) {
  BookRow row;
  row.voucher = id;
  row.details = std::move(says);
  return row;
}

BookRow groupRow(long id, std::string says) {
  BookRow row = masterRow(id, std::move(says));
  row.allId = id;
  return row;
}

class YearReading {
 public:
  YearReading(UnitOfWork& unit, const ClientYear& year, const Period& period, long ledger)
      : unit_(unit), year_(year), events_(unit, period), names_(unit), ledger_(ledger) {}

  Changes read() {
    const std::vector<YearTables> over = tablesOver(unit_, year_);
    for (const YearTables& tables : over) {
      const Period part{tables.from, tables.till + 1};
      const std::string own = " and code_no='" + unit_.escape(year_.client) + '\'';
      const std::string ofLedger =
          ledger_ == 0 ? own : own + " and partid=" + std::to_string(ledger_);
      events_.read(Of::line, "%f,%t,partid,allid,amt,nid,srno from TAB_" + tables.suffix, ofLedger,
                   part, lineOf);
      events_.read(Of::voucher,
                   "%f,%t,PartId,AllId,Amount,0,LSrNo,VID,date_format(VDate,'%d/%m/%Y'),VNar from"
                   " JRNL_" +
                       tables.suffix,
                   ofLedger, part, voucherLineOf);
      events_.read(Of::stock, "%f,%t,partid,allid,amt,0,0 from TRADE_" + tables.suffix, ofLedger,
                   part, lineOf);
      if (ledger_ == 0) readBinding(tables, own, part);
    }
    if (ledger_ == 0) readRegistry(over);
    return events_.take();
  }

 private:
  void readRegistry(const std::vector<YearTables>& over) {
    const BookRow registered = masterRow(0, shownDate(year_.secondDate));
    for (const YearTables& tables : over) {
      events_.add(tables.from, Of::year, true, registered);
      events_.add(tables.till, Of::year, false, registered);
    }
  }

  // A head with the groups that are bound to it.
  void readBinding(const YearTables& tables, const std::string& own, const Period& part) {
    events_.read(
        Of::binding,
        "%f,%t,SrNo,GrpOrder,OsGrpId,PurGrpId,SalGrpId,CsGrpId,(select max(GrpHead) from"
        " RawMatGrpM where GrpId=GrpSr) from RMGRP_" +
            tables.suffix,
        own, part, [this](const Recordset& columns) {
          const Instant at = columns.integer(0);
          std::string text = columns.text(8);
          const char* const kinds[] = {"opening stock", "purchases", "sales", "closing stock"};
          for (int kind = 0; kind < 4; ++kind) {
            const long group = columns.integer(4 + kind);
            if (group == 0) continue;
            text += std::string("; ") + kinds[kind] + ' ' + names_.group(group, at);
          }
          BookRow row = masterRow(columns.integer(2), text);
          row.order = columns.integer(3);
          return row;
        });
  }

  UnitOfWork& unit_;
  const ClientYear& year_;
  VersionEvents events_;
  NamesAsOf names_;
  const long ledger_;
};

}  // namespace

const char* Change::what() const {
  if (!rows.before) return "Added";
  return rows.after ? "Changed" : "Deleted";
}

Changes changesOfYear(UnitOfWork& unit, const ClientYear& year, const Period& period, long ledger) {
  return YearReading(unit, year, sinceHistory(unit, period), ledger).read();
}

Changes changesOfMasters(UnitOfWork& unit, const Period& asked, long ledger) {
  const Period period = sinceHistory(unit, asked);
  VersionEvents events(unit, period);
  NamesAsOf names(unit);
  const std::string ofLedger = ledger == 0 ? "" : " and PartId=" + std::to_string(ledger);
  events.read(Of::ledger, "%f,%t,PartId,Particular from Mast_Part", ofLedger, period,
              [](const Recordset& columns) {
                BookRow row = masterRow(columns.integer(2), columns.text(3));
                row.partId = row.voucher;
                return row;
              });
  if (ledger != 0) return events.take();
  events.read(Of::group, "%f,%t,AllId,AllGrp,GID from Mast_AllGrp", "", period,
              [&](const Recordset& columns) {
                const std::string& under =
                    names.primaryGroup(columns.integer(4), columns.integer(0));
                return groupRow(columns.integer(2), columns.text(3) + " (under " + under + ')');
              });
  events.read(Of::mapping, "%f,%t,AllId,Code_No,SVIMapName,ITMapName from AllGrp_Map", "", period,
              [](const Recordset& columns) {
                const std::string code = columns.text(3);
                BookRow row = groupRow(columns.integer(2), "Schedule VI: " + columns.text(4) +
                                                               "; income tax: " + columns.text(5));
                // The rows that all clients share carry a mark in place of a code.
                row.date = code.starts_with('#') ? "" : code;
                return row;
              });
  events.read(
      Of::head, "%f,%t,GrpId,GrpHead from RawMatGrpM", "", period,
      [](const Recordset& columns) { return masterRow(columns.integer(2), columns.text(3)); });
  return events.take();
}

Instant lastChange(UnitOfWork& unit, const ClientYear& year) {
  const RecordsetPtr last =
      unit.query("select max(At) from SuiteAct where Client='" + unit.escape(year.client) +
                 "' and Yr='" + unit.escape(year.secondDate) + '\'');
  return instantFrom(last->text(0));
}

// The last entry of each year in the index on client, year and instant: its maximum would read all
// of them.
std::map<std::string, std::string> lastChanges(UnitOfWork& unit, const std::string& client) {
  const std::string code = '\'' + unit.escape(client) + '\'';
  const RecordsetPtr years = unit.query(
      "select m.s_yr,(select a.At from SuiteAct a where a.Client=" + code +
      " and a.Yr=m.s_yr order by a.At desc limit 1) from master m where m.code_no=" + code);
  std::map<std::string, std::string> times;
  for (; !years->EOF_(); years->MoveNext()) {
    if (const Instant last = instantFrom(years->text(1)); last != 0) {
      times[years->text(0)] = localTime(last);
    }
  }
  return times;
}

}  // namespace quillet::suite
