// The tables: what designed statements see of them, and how missing parts come back.
#include "suite/schema.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/errors.h"
#include "support/practice.h"

namespace quillet::suite {
namespace {

class SchemaTest : public support::PracticeTest {
 protected:
  long complete() { return completeSchema(practice.database(), support::tableNumbers); }
  std::string columns(const std::string& table) {
    return value(
        "select group_concat(column_name order by ordinal_position) from"
        " information_schema.columns where table_schema=database() and table_name='" +
        table + "'");
  }
};

TEST_F(SchemaTest, DesignedInsertsFitEveryColumn) {
  const std::string table = "TAB_" + tableSuffix(2);
  const std::string journal = "JRNL_" + tableSuffix(2);
  const std::string binding = "RMGRP_" + tableSuffix(2);
  const std::vector<std::string> statements = {
      "insert into " + table + " values(1,'C1',10,20,99.5,2)",
      "insert into " + journal + " values('C1',1,1,'2008-04-05',10,20,-5.25,'Being cash')",
      "Insert Into " + binding + " Values ('C1',1,2,3,4,0,5,1)",
      "Insert Into Mast_AllGrp Values (1,2,'CASH','Y')",
      "Insert into RawMatGrpM Values (1,'RAW MATERIAL',1)",
      "Insert into RmSchSetup Values ('C1',2008,'a','b','c','d','e','f')",
      "insert into master(code_no,f_year_dt,s_year_dt,tbl_nm,count,f_yr,s_yr) values('C1',"
      "'01/04/2008','31/03/2009','" +
          table + "',2,'01042008','31032009')",
  };
  for (const std::string& sql : statements) EXPECT_NO_THROW(exec(sql)) << sql;
  EXPECT_EQ(rows("select * from " + table),
            (std::vector<std::vector<std::string>>{{"1", "C1", "10", "20", "99.5", "2"}}));
  exec("Insert into TAB_" + tableSuffix(3) + " select * from " + table + " where code_no='C1'");
  EXPECT_EQ(value("select count(*) from tab_" + tableSuffix(3)), "1") << "names in any case";
}

TEST_F(SchemaTest, CompletesWhatIsMissingAndKeepsRows) {
  const std::string table = "TAB_" + tableSuffix(1);
  ASSERT_EQ(complete(), 0);
  exec("insert into " + table + " values(1,'C1',10,20,5,1)");
  const std::string whole = columns(table);
  exec("drop table BANK_" + tableSuffix(1));
  exec("alter table " + table + " drop column partid, drop column nid");
  exec("alter table Mast_Part drop index PartId");
  exec("alter table TempClTbl drop column row_id");

  EXPECT_EQ(complete(), 4);
  EXPECT_EQ(columns(table), whole) << "columns stand where they were";
  EXPECT_EQ(value("select amt from " + table), "5");
  EXPECT_EQ(value("select count(*) from BANK_" + tableSuffix(1)), "0");
  EXPECT_EQ(complete(), 0);
}

// Books of earlier times: nothing was kept of what was changed, then the rows lay by their counter.
TEST_F(SchemaTest, BringsTablesOfEarlierTimesUpToDate) {
  const std::string indexes =
      "select distinct index_name='PRIMARY', seq_in_index, column_name from"
      " information_schema.statistics where table_schema=database() and table_name='JRNL_1'"
      " order by 1,2,3";
  exec("insert into JRNL_1 values('C1',7,1,'2008-04-05',10,20,-5.25,'Being cash')");
  const auto today = rows(indexes);
  const std::string byCounter =
      "alter table JRNL_1 drop primary key, drop index row_id, drop index row_till,"
      " add primary key(row_id), add index(VID,row_till)";
  const std::string withoutHistory =
      "alter table JRNL_1 drop system versioning, drop period for system_time,"
      " drop index VID, drop index code_no, drop index PartId, drop index AllId,"
      " drop column row_from, drop column row_till,"
      " add index(code_no,VDate), add index(VID), add index(PartId), add index(AllId)";
  for (const auto& change : {byCounter, withoutHistory}) {
    exec(byCounter);
    if (change != byCounter) exec(change);
    EXPECT_EQ(complete(), 1) << change;
    EXPECT_EQ(rows(indexes), today) << change;
    EXPECT_EQ(value("select VID from JRNL_1"), "7") << change;
    EXPECT_EQ(complete(), 0) << change;
  }
  exec("delete from JRNL_1");
  EXPECT_EQ(value("select count(*) from JRNL_1 for system_time all"), "1");
  exec("alter table JRNL_1 add column more int");
  EXPECT_EQ(value("select count(*) from JRNL_1 for system_time all"), "1")
      << "a further column leaves the history as it is";
  exec("alter table JRNL_1 drop column more");
}

// However often the lines were changed, reading them passes those that stand, in their order.
TEST_F(SchemaTest, ReadsNoFormerVersions) {
  for (int line = 1; line <= 20; ++line) {
    exec("insert into TAB_1 values(" + std::to_string(line) + ",'C1',1,1,1,1)");
  }
  for (int amount = 2; amount < 60; ++amount) {
    exec("update TAB_1 set amt=" + std::to_string(amount));
  }
  exec("insert into JRNL_1 values('C1',7,1,'2008-04-05',10,20,-5.25,'')");
  exec("update JRNL_1 set VID=8");
  const auto rowsRead = [&](const std::string& select) {
    exec("flush status");
    rows(select);
    return value(
        "select sum(variable_value) from information_schema.session_status where"
        " variable_name in ('Handler_read_rnd_next','Handler_read_next')");
  };
  EXPECT_EQ(rowsRead("Select * From TAB_1 where code_no='C1'"), "20");
  EXPECT_EQ(rowsRead("select * from TAB_1"), "20");
  EXPECT_EQ(rowsRead("Select max(VID) from JRNL_1"), "0");
  EXPECT_EQ(value("select group_concat(srno) from (Select * From TAB_1 where code_no='C1') q"),
            "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20");
}

TEST_F(SchemaTest, TheStatementsFiltersAreIndexed) {
  const std::string suffix = tableSuffix(1);
  const std::pair<std::string, const char*> cases[] = {
      {"TAB_" + suffix, "code_no='C1' and srno=7"},
      {"TAB_" + suffix, "code_no='C1' and partid=7 and allid=7"},
      {"TAB_" + suffix, "partid=7"},
      {"TAB_" + suffix, "allid=7"},
      {"JRNL_" + suffix, "VID=7"},
      {"JRNL_" + suffix, "code_no='C1' and VDate>='2008-04-01' and VDate<='2008-04-30'"},
      {"JRNL_" + suffix, "PartId=7"},
      {"TRADE_" + suffix, "code_no='C1'"},
      {"Mast_Part", "PartId=7"},
      {"Mast_Part", "Particular='x'"},
      {"Mast_AllGrp", "ALLGRP='x'"},
      {"master", "code_no='C1'"},
      {"TempClTbl", "CodeNo='C1'"},
  };
  for (const auto& [table, condition] : cases) {
    const auto plan = rows("explain select * from " + table + " where " + condition);
    ASSERT_EQ(plan.size(), 1U);
    EXPECT_NE(plan[0][4], "NULL") << table << " where " << condition;
  }
}

TEST_F(SchemaTest, RefusesWhatDoesNotFitItsColumn) {
  const char* const broken[] = {"\xFF",         "\xC0\xAF",         "\xED\xA0\x80",
                                "\xE0\x80\x80", "\xF4\x90\x80\x80", "half \xE2\x82"};
  for (const char* bytes : broken) {
    EXPECT_THROW(host().ConQuery("insert into Mast_Part values(1," + host().quoted(bytes) + ")"),
                 RunTimeError);
  }
  // What is too long or no number is refused, not cut.
  EXPECT_THROW(exec("insert into Mast_Part values(1,'" + std::string(101, 'x') + "')"),
               RunTimeError);
  EXPECT_THROW(exec("insert into Mast_Part values('one','x')"), RunTimeError);
  EXPECT_EQ(value("select count(*) from Mast_Part"), "0");
}

TEST_F(SchemaTest, ErrorsCarryTheServersNumber) {
  try {
    host().ConQuery("select * from no_such_table");
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.number(), 1146);
    EXPECT_NE(std::string(error.what()).find("no_such_table"), std::string::npos);
  }
}

TEST_F(SchemaTest, StatementsNeverReachFiles) {
  const std::string file = practice.folder().root().string() + "/stolen.txt";
  EXPECT_THROW(exec("select 'x' into outfile '" + file + "'"), RunTimeError);
  EXPECT_EQ(value("select load_file('/etc/hostname')"), "NULL");
  EXPECT_THROW(exec("load data local infile '/etc/hostname' into table Mast_Part"), RunTimeError);
}

TEST_F(SchemaTest, RecordsetsReadForwardByNameAndPosition) {
  exec("insert into Mast_Part values(1,'Cash'),(2,null),(3,'')");
  const RecordsetPtr found =
      context().query("select PartId, Particular, 1.5 as half from Mast_Part order by PartId");
  ASSERT_EQ(found->RecordCount(), 3);
  EXPECT_EQ(found->text("PARTICULAR"), "Cash");
  EXPECT_EQ(found->number("half"), 1.5);
  EXPECT_TRUE(found->numeric(0));
  EXPECT_FALSE(found->numeric(1));
  found->MoveNext();
  EXPECT_FALSE(found->field(1).has_value());
  found->MoveNext();
  EXPECT_EQ(found->field(1), "");
  EXPECT_THROW(found->text("nothing"), RunTimeError);
  EXPECT_THROW(found->text(3), RunTimeError);
  found->MoveNext();
  EXPECT_TRUE(found->EOF_());
  EXPECT_THROW(found->text(0), RunTimeError) << "past the last row";
  const RecordsetPtr none = context().query("select * from Mast_Part where PartId=9");
  EXPECT_TRUE(none->EOF_() && none->BOF_());
}

}  // namespace
}  // namespace quillet::suite
