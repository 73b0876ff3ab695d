#include "suite/history/inserted_rows.h"

namespace quillet::suite {

std::string insertedAt(const std::string& table, Instant at, bool shared) {
  const std::string instant = '\'' + instantText(at) + '\'';
  const std::string older =
      shared ? "row_from<'" + instantText(at - oneDay) + '\'' : "row_from<>" + instant;
  return "row_from=" + instant + " and row_id>(select coalesce((select row_id from `" + table +
         "` where " + older + " order by row_id desc limit 1),0))";
}

}  // namespace quillet::suite
