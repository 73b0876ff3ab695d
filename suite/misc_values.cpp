#include "suite/misc_values.h"

namespace quillet::suite::misc_values {
namespace {

std::string condition(const UnitOfWork& unit, const std::string& section, const std::string& name) {
  return " where Section='" + unit.escape(section) + "' and Name='" + unit.escape(name) + '\'';
}

}  // namespace

std::string get(UnitOfWork& unit, const std::string& section, const std::string& name,
                const std::string& fallback) {
  const RecordsetPtr found =
      unit.query("select Value from SuiteMisc" + condition(unit, section, name) +
                 " order by row_id desc limit 1");
  return found->EOF_() ? fallback : found->text(0);
}

void set(UnitOfWork& unit, const std::string& section, const std::string& name,
         const std::string& value, const std::string& client, const std::string& year) {
  const auto quoted = [&](const std::string& text) { return '\'' + unit.escape(text) + '\''; };
  std::string old;
  const RecordsetPtr rows =
      unit.query("select row_id from SuiteMisc" + condition(unit, section, name) +
                 " and Client=" + quoted(client) + " and Yr=" + quoted(year));
  for (; !rows->EOF_(); rows->MoveNext()) old += (old.empty() ? "" : ",") + rows->text(0);
  unit.execute("insert into SuiteMisc(Section,Name,Value,Client,Yr) values(" + quoted(section) +
               ',' + quoted(name) + ',' + quoted(value) + ',' + quoted(client) + ',' +
               quoted(year) + ')');
  // The old value is deleted last, so that a value is there whatever happens in between.
  if (!old.empty()) unit.execute("delete from SuiteMisc where row_id in (" + old + ')');
}

}  // namespace quillet::suite::misc_values
