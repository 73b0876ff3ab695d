#include "suite/stations/sole_use.h"

#include <stdexcept>

#include "suite/history/act_log.h"
#include "suite/history/act_row.h"
#include "suite/stations/turn.h"
#include "suite/stations/year_presence.h"

namespace quillet::suite {
namespace {

// The row of whoever keeps the books for himself is that of a year of no client. A program that was
// killed leaves its row: it counts while somebody has the turn.
constexpr const char* ofSoleUse = " Code_No='' ";

bool isShared(const Database& database) { return database.schemaFolder().empty(); }

// Books that were never opened by several stations have no such tables yet.
bool knowsStations(Database& database) {
  return isShared(database) &&
         !database
              .query(
                  "select 1 from information_schema.tables where table_schema=database() and"
                  " table_name='SuitePresence'")
              ->EOF_();
}

}  // namespace

void refuseOtherStations(Database& database, const std::string& purpose) {
  if (!knowsStations(database)) return;
  const RecordsetPtr rows = database.query(
      "select distinct Person,substring_index(Station,':',1),Code_No,Yr from SuitePresence where " +
      heardLately() + " and not" + ofSoleUse + "order by Since");
  std::string told;
  for (; !rows->EOF_(); rows->MoveNext()) {
    told += (told.empty() ? "" : "; ") + shownPerson(rows->text(0)) + " at " + rows->text(1) +
            " has " + rows->text(2) + " open, the year that ends in " + rows->text(3).substr(4);
  }
  if (told.empty()) return;
  throw std::runtime_error("Others work on the books: " + told + ". " + purpose +
                           " waits for nobody: do it when they have closed their years, or two and"
                           " a half minutes after a station that ended unexpectedly. Nothing was"
                           " changed.");
}

SoleUse::SoleUse(Database& database, const std::string& purpose) : database_(database) {
  if (!knowsStations(database)) return;
  refuseOtherStations(database, purpose);
  const auto quoted = [&](const std::string& text) { return '\'' + database.escape(text) + '\''; };
  database.execute(std::string("delete from SuitePresence where") + ofSoleUse);
  database.execute("insert into SuitePresence(Code_No,Yr,Station,Person,Since,Heard) values(''," +
                   quoted(purpose.substr(0, 8)) + ',' + quoted(stationName()) +
                   ",substring_index(current_user(),'@',1),sysdate(6),sysdate(6))");
  Turn(database).open();
  // It may read or write elsewhere for as long as it takes.
  database.execute("set session idle_transaction_timeout=0,idle_write_transaction_timeout=0");
  database.execute("start transaction");
  open_ = true;
  try {
    database.query("select Acts from SuiteTurn where Id=1 for update");
    refuseOtherStations(database, purpose);
  } catch (...) {
    giveUp();
    throw;
  }
}

SoleUse::~SoleUse() {
  if (open_) giveUp();
}

void SoleUse::commit() {
  if (open_) database_.execute("commit");
}

void SoleUse::giveUp() noexcept {
  try {
    database_.execute("rollback");
    database_.execute(std::string("delete from SuitePresence where") + ofSoleUse);
  } catch (const std::exception&) {
    // The connection is gone, and the transaction with it.
  }
}

std::string whoHasSoleUse(Database& database) {
  const RecordsetPtr row = database.query(
      std::string("select Yr,Person,Station,date_format(Since,'%H:%i') from SuitePresence where") +
      ofSoleUse + "order by Since desc limit 1");
  if (row->EOF_()) return {};
  return row->text(0) + " is under way, by " + row->text(1) + " at " + row->text(2) + " since " +
         row->text(3) + " (UTC).";
}

}  // namespace quillet::suite
