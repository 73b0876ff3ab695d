#include "suite/backup/quiet_state.h"

#include <stdexcept>

namespace quillet::suite::backup {

void bringToRest(Database& database) {
  if (database.query("select @@in_transaction")->integer(0) != 0) {
    throw std::runtime_error("Quillet is in the middle of a change. Finish it and try again.");
  }
  // Waits for the removal of deleted rows, which no transaction of ours keeps from ending; then
  // writes every changed page.
  database.execute("set global innodb_max_purge_lag_wait=0");
  database.execute("set global innodb_log_checkpoint_now=1");
}

std::string restState(Database& database) {
  const RecordsetPtr counters = database.query(
      "show global status where variable_name in ('innodb_buffer_pool_pages_dirty',"
      "'innodb_history_list_length','innodb_data_pending_writes','innodb_lsn_current',"
      "'innodb_lsn_last_checkpoint','innodb_buffer_pool_pages_flushed','innodb_data_writes')");
  std::string state;
  for (; !counters->EOF_(); counters->MoveNext()) {
    const std::string name = counters->text(0), value = counters->text(1);
    const bool isBacklog =
        name.ends_with("dirty") || name.ends_with("length") || name.ends_with("pending_writes");
    if (isBacklog && value != "0") return "";
    state += value + ' ';
  }
  return state;
}

}  // namespace quillet::suite::backup
