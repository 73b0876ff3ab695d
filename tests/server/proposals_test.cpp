// What a server proposes to everybody who comes in changes nothing in the books: the same day at a
// station leaves the same books under each proposal.
#include <gtest/gtest.h>

#include <thread>

#include "server/station.h"
#include "suite/check/books_check.h"
#include "suite/server_login.h"

namespace quillet::support {
namespace {

// Those that can stand beside each other are tried together.
const std::vector<std::string> proposals[] = {
    {"sql_select_limit=2",
     "max_statement_time=0.0001",
     "max_join_size=1",
     "sql_mode='ANSI_QUOTES,PIPES_AS_CONCAT,NO_BACKSLASH_ESCAPES,EMPTY_STRING_IS_NULL'",
     "autocommit=0",
     "tx_isolation='SERIALIZABLE'",
     "tx_read_only=1",
     "completion_type='RELEASE'",
     "lock_wait_timeout=0",
     "innodb_lock_wait_timeout=0",
     "wait_timeout=1",
     "interactive_timeout=1",
     "idle_transaction_timeout=1",
     "group_concat_max_len=4",
     "max_sort_length=8",
     "div_precision_increment=0",
     "sql_safe_updates=1",
     "sql_auto_is_null=1",
     "unique_checks=0",
     "check_constraint_checks=0",
     "sql_if_exists=1",
     "explicit_defaults_for_timestamp=0",
     "system_versioning_asof='2001-01-01'",
     "system_versioning_alter_history='ERROR'",
     "default_storage_engine='MyISAM'",
     "default_tmp_storage_engine='MEMORY'",
     "auto_increment_increment=7",
     "time_zone='+13:00'",
     "lc_time_names='hi_IN'",
     "lc_messages='de_DE'",
     "old_mode='NO_DUP_KEY_WARNINGS_WITH_IGNORE,ZERO_DATE_TIME_CAST'",
     "character_set_server='latin1'",
     "character_set_client='latin1'",
     "character_set_connection='latin1'",
     "character_set_results='latin1'"},
    {"sql_mode='ORACLE'", "tx_isolation='READ-UNCOMMITTED'", "alter_algorithm='INSTANT'",
     "collation_connection='utf8mb4_bin'", "init_connect='set names latin1'"},
    {"init_connect='set sql_mode=\\'ORACLE\\', sql_select_limit=1, autocommit=0'"},
    {"init_connect='start transaction read only'"},
};

class Proposals : public ::testing::Test {
 protected:
  void SetUp() override { NEEDS_REAL_SERVERS(); }

  static std::string cells(const RecordsetPtr& rows) {
    std::string all;
    for (; !rows->EOF_(); rows->MoveNext()) {
      for (int i = 0; i < rows->fieldCount(); ++i) all += rows->text(i) + '|';
      all += '\n';
    }
    return all;
  }
  static std::string shown(const Grid& grid) {
    std::string all;
    for (int row = 1; row < grid.rows(); ++row) {
      for (int column = 0; column < 4; ++column) all += grid.cell(row, column) + '|';
      all += '\n';
    }
    return all;
  }
  static std::string stored(RealServer& server) {
    std::string all;
    for (const char* sql :
         {"* from quillet.TAB_2", "* from quillet.JRNL_2", "* from quillet.Mast_Part",
          "* from quillet.master", "Form,Command,Tables from quillet.SuiteAct order by At"}) {
      all += cells(server.root().query(std::string("select ") + sql));
    }
    return all;
  }

  // A day on new books: what is shown and stored at its steps.
  static std::string day(RealServer& server, std::chrono::milliseconds pause) {
    server.root().execute("drop database if exists quillet");
    Station station(server, "anna");
    station.addYear("A1", 2008);
    station.open("A1", 2008);
    for (int i = 0; i < 12; ++i) station.enter("Of Many " + std::to_string(i), "RENT", "1.10");
    station.enter("O'Brien \\ \"Söhne\" || -- र", "RENT", "10.1");
    std::this_thread::sleep_for(pause);
    frmjrnl& journal = station.openJournal();
    station.pass(journal, 2);
    journal.click(journal.cmdupdate);
    journal.close();
    // What the examination tells of.
    station.change("insert into Mast_Part(PartId,Particular) values(900,'OF MANY 1')");
    frmcrtb& editor = station.open("A1", 2008);
    std::string seen = shown(editor.vsfm) + stored(server);
    for (int i = 0; i < 2; ++i) {
      editor.click(editor.mnutakeback);
      seen += shown(editor.vsfm);
    }
    seen += stored(server);
    for (const suite::check::Finding& finding :
         suite::check::examineBooks(station.practice()).findings) {
      seen += finding.what;
    }
    station.leave();
    for (const std::string& notice : station.notices()) seen += notice;
    return seen + station.dialogs.takeFailure().value_or("");
  }
};

TEST_F(Proposals, LeaveTheBooksAsTheyAre) {
  RealServer server;
  server.addAccount("anna", "anna", suite::listed(suite::neededRights()) + " on quillet.*");
  const std::string usual = day(server, {});
  ASSERT_NE(usual.find("O'Brien"), std::string::npos) << usual;
  for (const std::vector<std::string>& together : proposals) {
    SCOPED_TRACE(together.front());
    for (const std::string& each : together) server.root().execute("set global " + each);
    // Longer than the session may be idle by these.
    const bool first = &together == &proposals[0];
    EXPECT_EQ(day(server, std::chrono::milliseconds(first ? 1'500 : 0)), usual);
    for (const std::string& each : together) {
      server.root().execute("set global " + each.substr(0, each.find('=')) + "=default");
    }
  }
  server.stop();
  server.start({"--skip-character-set-client-handshake", "--character-set-server=latin1"});
  server.root().execute("set names utf8mb4");
  EXPECT_EQ(day(server, {}), usual);
}

}  // namespace
}  // namespace quillet::support
