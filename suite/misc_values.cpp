#include "suite/misc_values.h"

namespace quillet::suite::misc_values {
namespace {

std::string condition(const Database& database, const std::string& section,
                      const std::string& name) {
  return " where Section='" + database.escape(section) + "' and Name='" + database.escape(name) +
         '\'';
}

}  // namespace

std::string get(Database& database, const std::string& section, const std::string& name,
                const std::string& fallback) {
  const RecordsetPtr found =
      database.query("select Value from SuiteMisc" + condition(database, section, name) +
                     " order by row_id desc limit 1");
  return found->EOF_() ? fallback : found->text(0);
}

void set(Database& database, const std::string& section, const std::string& name,
         const std::string& value, const std::string& client, const std::string& year) {
  const auto quoted = [&](const std::string& text) { return '\'' + database.escape(text) + '\''; };
  database.execute("insert into SuiteMisc(Section,Name,Value,Client,Yr) values(" + quoted(section) +
                   ',' + quoted(name) + ',' + quoted(value) + ',' + quoted(client) + ',' +
                   quoted(year) + ')');
  // The old value is deleted last, so that a value is there whatever happens in between.
  database.execute("delete from SuiteMisc" + condition(database, section, name) + " and Client=" +
                   quoted(client) + " and Yr=" + quoted(year) + " and row_id<last_insert_id()");
}

}  // namespace quillet::suite::misc_values
