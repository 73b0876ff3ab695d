#include "books/year_figures.h"

#include "data/table_names.h"

namespace quillet {

std::vector<YearFigures> yearFigures(ServiceObject& host, const std::string& client) {
  return yearFigures(host, Registry(host).yearsOf(client));
}

std::vector<YearFigures> yearFigures(ServiceObject& host,
                                     const std::vector<RegisteredYear>& years) {
  std::vector<YearFigures> figures;
  Sql selects;
  for (const RegisteredYear& year : years) {
    if (!year.table.empty()) {
      const Sql ofClient = " Where Code_No=" + host.quoted(year.client);
      if (!selects.empty()) selects += " Union All ";
      selects += "Select " + sqlNumber(static_cast<long>(figures.size())) +
                 ",Count(*),Sum(If(Nid=1,Amt,0)),Sum(If(Nid=2,Amt,0)),(Select Max(VDate) From " +
                 sqlName(siblingTable(year.table, "JRNL_")) + ofClient + ") From " +
                 sqlName(year.table) + ofClient;
    }
    figures.push_back({.keys = year.keys});
  }
  if (selects.empty()) return figures;
  const auto rows = host.query(selects);
  for (; !rows->EOF_(); rows->MoveNext()) {
    YearFigures& year = figures.at(static_cast<std::size_t>(rows->integer(0)));
    year.lines = rows->integer(1);
    year.debit = Money::rounded(rows->number(2));
    year.credit = Money::rounded(rows->number(3));
    year.lastVoucher = rows->text(4);
  }
  return figures;
}

}  // namespace quillet
