#include "suite/history/act_row.h"

#include <sstream>

#include "suite/history/digest.h"

namespace quillet::suite {
namespace {

std::string takenBackText(Instant instant) { return instant == 0 ? "" : instantText(instant); }

}  // namespace

std::string shownPerson(const std::string& account) {
  return account.substr(0, account.rfind('@'));
}

ActRow ActRow::from(const Recordset& rows) {
  ActRow row;
  row.at = instantFrom(rows.text(0));
  row.station = rows.text(1);
  row.person = rows.text(2);
  row.form = rows.text(3);
  row.command = rows.text(4);
  row.client = rows.text(5);
  row.secondDate = rows.text(6);
  row.reason = rows.text(7);
  row.tables = rows.text(8);
  row.takesBack = instantFrom(rows.text(9));
  row.digest = rows.text(10);
  row.hash = rows.text(11);
  return row;
}

std::vector<std::string> ActRow::changedTables() const {
  std::vector<std::string> found;
  std::istringstream listed(tables);
  for (std::string table; std::getline(listed, table, ',');) found.push_back(table);
  return found;
}

std::string ActRow::hashAfter(const std::string& before) const {
  Digest over;
  over.add(before).add(instantText(at)).add(station).add(person).add(form).add(command);
  over.add(client).add(secondDate).add(reason).add(tables).add(takenBackText(takesBack));
  return over.add(digest).hex();
}

std::string ActRow::insertion(const Database& database, const std::string& withHash) const {
  const auto quoted = [&](const std::string& text) { return '\'' + database.escape(text) + '\''; };
  const std::string taken = takesBack == 0 ? "null" : quoted(instantText(takesBack));
  return std::string("insert into SuiteAct(") + columns + ") values('" + instantText(at) + "'," +
         quoted(station) + ',' + quoted(person) + ',' + quoted(form) + ',' + quoted(command) + ',' +
         quoted(client) + ',' + quoted(secondDate) + ',' + quoted(reason) + ',' + quoted(tables) +
         ',' + taken + ",'" + digest + "','" + withHash + "')";
}

}  // namespace quillet::suite
