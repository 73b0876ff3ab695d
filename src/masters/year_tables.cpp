#include "masters/year_tables.h"

#include <vector>

#include "host/busy.h"

namespace quillet {

bool walkYearTables(Context& context, const std::string& text,
                    const std::function<bool(const std::string& table)>& visit) {
  const Busy busy(context, text);
  const auto rows = context.query("Select distinct tbl_nm from master");
  Progress& progress = context.host->objProgress();
  progress.Max(rows->RecordCount());
  for (; !rows->EOF_(); rows->MoveNext()) {
    const std::string table = rows->text(0);
    if (!table.empty() && visit(table)) return true;
    progress.update_pg();
  }
  return false;
}

}  // namespace quillet
