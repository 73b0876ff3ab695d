#include "suite/history/version_query.h"

#include "data/text.h"

namespace quillet::suite {
namespace {

std::string inMicroseconds(const std::string& column) {
  return "cast(unix_timestamp(" + column + ")*1000000 as signed)";
}

std::string within(const std::string& column, const Period& period) {
  return '(' + column + ">='" + instantText(period.from) + "' and " + column + "<'" +
         instantText(period.till) + "')";
}

}  // namespace

std::string versionsOf(std::string_view columnsAndTable) {
  std::string select = replacedAll(std::string(columnsAndTable), "%f", inMicroseconds("row_from"));
  select = replacedAll(select, "%t", inMicroseconds("row_till"));
  return "select " + select + " for system_time all where row_from<>row_till";
}

std::string changedIn(const Period& period) {
  return " and (" + within("row_from", period) + " or " + within("row_till", period) + ')';
}

std::string asOf(Instant at) { return " for system_time as of timestamp'" + instantText(at) + "'"; }

}  // namespace quillet::suite
