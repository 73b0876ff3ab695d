#include "home/ledger_cleanup.h"

#include "data/sql.h"

namespace quillet {
namespace {

long namesInMaster(Context& context) {
  return context.query("select count(*) as names from MAST_PART")->integer("names");
}

}  // namespace

long cleanLedgerMaster(Context& context) {
  const auto rows = context.query(
      "SELECT PARTID,PARTICULAR, count(partid) as cntr FROM MAST_PART group by partid");
  long before = -1;
  for (; !rows->EOF_(); rows->MoveNext()) {
    if (rows->integer("cntr") <= 1) continue;
    if (before < 0) before = namesInMaster(context);
    context.change("Delete from MAST_PART where PARTID=" + sqlNumber(rows->integer("PARTID")) +
                   " and PARTICULAR<>'" + context.host->escaped(rows->text("PARTICULAR")) + "'");
  }
  return before < 0 ? 0 : before - namesInMaster(context);
}

}  // namespace quillet
