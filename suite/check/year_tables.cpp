#include "suite/check/year_tables.h"

#include "data/sql.h"
#include "data/table_names.h"
#include "suite/check/amounts.h"
#include "suite/check/line_rules.h"
#include "suite/check/schedule_rules.h"
#include "suite/check/voucher_rules.h"
#include "suite/schema_tables.h"

namespace quillet::suite::check {
namespace {

// The columns in front of those that a table is read for.
constexpr int common = 3;

}  // namespace

void YearTables::examine(Examined& examined) {
  examineTrialBalances(examined);
  examineJournals(examined);
  examineSchedules(examined);
}

std::string YearTables::sibling(const char* prefix) const {
  const std::string name = siblingTable(trialBalance_, prefix);
  return years_.hasTable(name) ? sqlName(name).text() : "";
}

// The database says which registered year a row belongs to, since it compares the codes.
template <class Row, class Read>
std::map<YearTables::Owner, std::vector<Row>> YearTables::read(const std::string& table,
                                                               const std::string& columns,
                                                               Read read) {
  std::map<Owner, std::vector<Row>> byOwner;
  if (table.empty()) return byOwner;
  const std::string key = rowIdColumn;
  const RecordsetPtr rows = database_.query(
      "select t." + key + ",t.code_no,y.year," + columns + " from " + table +
      " t left join (select code_no,min(" + key + ") year from master where tbl_nm='" +
      sqlName(trialBalance_).text() + "' group by code_no) y on y.code_no=t.code_no" +
      (locked_ ? " for update" : ""));
  for (; !rows->EOF_(); rows->MoveNext()) {
    const long year = rows->integer(2);
    byOwner[{year, year == 0 ? rows->text(1) : ""}].push_back(read(*rows));
  }
  return byOwner;
}

Place YearTables::placeOf(const Owner& owner, const std::string& table) const {
  if (owner.year == 0) return {owner.client, {}, table};
  return years_.placeOf(owner.year, table);
}

void YearTables::reportUnregistered(const Owner& owner, const std::string& table, std::size_t rows,
                                    Examined& examined) const {
  examined.add(
      placeOf(owner, table), "unregistered",
      "The table " + table + " holds " + std::to_string(rows) + (rows == 1 ? " row" : " rows") +
          " of a year that is not registered.",
      rows == 1
          ? "It is left alone; a year that the client creates there would begin with it."
          : "They are left alone; a year that the client creates there would begin with them.");
}

template <class Row, class Judge>
void YearTables::examineEach(const std::string& table,
                             const std::map<Owner, std::vector<Row>>& byOwner, Judge judge,
                             Examined& examined) {
  for (const auto& [owner, rows] : byOwner) {
    if (owner.year == 0) {
      reportUnregistered(owner, table, rows.size(), examined);
    } else {
      judge(masters_, placeOf(owner, table), rows, examined);
    }
  }
}

void YearTables::examineTrialBalances(Examined& examined) {
  const std::string table = sibling("TAB_");
  const auto lines =
      read<LineRow>(table, "t.srno,t.partid,t.allid,t.nid,t.amt", [](const auto& rows) {
        return LineRow{rows.integer(0),        idIn(rows, common),     idIn(rows, common + 1),
                       idIn(rows, common + 2), idIn(rows, common + 3), amountIn(rows, common + 4)};
      });
  examineEach(table, lines, examineLines, examined);
}

void YearTables::examineJournals(Examined& examined) {
  const std::string table = sibling("JRNL_");
  const auto vouchers = read<VoucherRow>(
      table, "t.VID,t.LSrNo,t.PartId,t.AllId,t.VDate,t.Amount,t.VNar", [](const auto& rows) {
        return VoucherRow{rows.integer(0),
                          idIn(rows, common),
                          idIn(rows, common + 1),
                          idIn(rows, common + 2),
                          idIn(rows, common + 3),
                          rows.text(common + 4),
                          amountIn(rows, common + 5),
                          rows.text(common + 6)};
      });
  std::vector<ClientVouchers> journals;
  for (const auto& [owner, rows] : vouchers) {
    const bool registered = owner.year != 0;
    const Place place = placeOf(owner, table);
    if (registered) {
      examineVouchers(masters_, place, rows, examined);
    } else {
      reportUnregistered(owner, table, rows.size(), examined);
    }
    journals.push_back({place, registered, rows});
  }
  examineVoucherNumbers(journals, examined);
}

void YearTables::examineSchedules(Examined& examined) {
  const std::string stock = sibling("TRADE_");
  const auto stocks = read<StockRow>(stock, "t.partid,t.allid,t.amt", [](const auto& rows) {
    return StockRow{idIn(rows, common), idIn(rows, common + 1), amountIn(rows, common + 2)};
  });
  examineEach(stock, stocks, examineStock, examined);

  const std::string binding = sibling("RMGRP_");
  const auto bindings = read<BindingRow>(
      binding, "t.SrNo,t.GrpSr,t.OsGrpId,t.PurGrpId,t.SalGrpId,t.CsGrpId", [](const auto& rows) {
        return BindingRow{rows.integer(0),
                          idIn(rows, common),
                          idIn(rows, common + 1),
                          {idIn(rows, common + 2), idIn(rows, common + 3), idIn(rows, common + 4),
                           idIn(rows, common + 5)}};
      });
  examineEach(binding, bindings, examineBinding, examined);
}

std::string YearTables::figures() {
  std::string all;
  const auto add = [&](const std::string& select) {
    const RecordsetPtr rows = database_.query(select);
    for (; !rows->EOF_(); rows->MoveNext()) {
      for (int column = 0; column < rows->fieldCount(); ++column) all += rows->text(column) + ' ';
      all += '\n';
    }
  };
  const auto paise = [](const std::string& amount) {
    return "ifnull(sum(cast(round(" + amount + "*100) as decimal(40))),0)";
  };
  // No sum with it would tell of other amounts.
  const auto tooLarge = [](const std::string& amount) {
    return "if(abs(" + amount + ")>1e15," + rowIdColumn + ",0)";
  };
  add("select partid," + paise("if(nid=2,-amt,amt)") + " from " + sibling("TAB_") +
      " group by code_no,partid," + tooLarge("amt") + " order by code_no,partid," +
      tooLarge("amt"));
  if (const std::string journal = sibling("JRNL_"); !journal.empty()) {
    add("select PartId,AllId,count(*)," + paise("Amount") + " from " + journal +
        " group by code_no,PartId,AllId," + tooLarge("Amount") + " order by code_no,PartId,AllId," +
        tooLarge("Amount"));
  }
  return all;
}

}  // namespace quillet::suite::check
