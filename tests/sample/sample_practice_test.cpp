// The sample practice as it lies in the tables.
#include "suite/sample_practice.h"

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "suite/sample/books.h"
#include "suite/schema.h"
#include "suite/starter_data.h"
#include "support/practice.h"

namespace quillet::suite {
namespace {

class SamplePracticeTest : public support::PracticeTest {
 protected:
  void SetUp() override {
    exec("delete from Mast_Gunder");
    exec("delete from Mast_AllGrp");
    installStarterData(practice.database());
    installSamplePractice(practice.database(),
                          [this](long done, long total) { progress.emplace_back(done, total); });
  }

  // Ledger, group and signed paise of a client's lines in the order in which they were written.
  Rows stored(const std::string& table, const std::string& code, const char* sign) {
    return rows("select Particular,ALLGRP,cast(round(amt*100) as int)*" + std::string(sign) +
                " from " + table +
                " t left join Mast_Part p on p.PartId=t.partid left join Mast_AllGrp g on "
                "g.ALLID=t.allid where code_no='" +
                code + "' order by t.row_id");
  }
  static Rows wanted(const std::vector<sample::BookLine>& lines) {
    Rows rows;
    for (const sample::BookLine& line : lines)
      rows.push_back({line.ledger, line.group, std::to_string(line.amount)});
    return rows;
  }

  std::vector<std::pair<long, long>> progress;
};

TEST_F(SamplePracticeTest, TheTablesHoldTheBooks) {
  for (const sample::SampleClient& client : sample::sampleClients()) {
    const std::string& code = client.entry.code;
    int number = 0;
    for (const sample::YearBooks& books : keepBooks(client)) {
      const std::string suffix = tableSuffix(++number);
      SCOPED_TRACE(code + " " + suffix);
      const std::string lines = std::to_string(books.lines.size());
      const std::string ofClient = "TAB_" + suffix + " where code_no='" + code + "'";
      EXPECT_EQ(stored("TAB_" + suffix, code, "if(nid=2,-1,1)"), wanted(books.lines));
      EXPECT_EQ(stored("TRADE_" + suffix, code, "1"), wanted(books.stock));
      EXPECT_EQ(value("select count(distinct srno) from " + ofClient + " and srno between 1 and " +
                      lines),
                lines);
      // An amount is the double nearest to a whole number of paise.
      EXPECT_EQ(value("select count(*) from " + ofClient +
                      " and (amt<=0 or nid not in (1,2) or amt<>round(amt,2))"),
                "0");
    }
    EXPECT_EQ(value("select count(*) from master where code_no='" + code + "'"),
              std::to_string(number));
  }
  EXPECT_EQ(value("select count(*) from (select 1 from Mast_Part group by Particular having "
                  "count(*)>1) doubles"),
            "0");
}

TEST_F(SamplePracticeTest, YearsAreRegisteredAsAUserWouldHaveCreatedThem) {
  EXPECT_EQ(rows("select f_year_dt,s_year_dt,tbl_nm,count,f_yr,s_yr from master where "
                 "code_no='DSK02' order by s_yr"),
            (Rows{{"01/04/2006", "31/03/2007", "TAB_1", "1", "01042006", "31032007"},
                  {"01/04/2007", "31/03/2008", "TAB_2", "2", "01042007", "31032008"},
                  {"01/04/2008", "31/03/2009", "TAB_3", "3", "01042008", "31032009"}}));
  EXPECT_NE(value("select count(distinct code_no) from TAB_1"), "1") << "clients share a table";
}

TEST_F(SamplePracticeTest, TheClientsAreInTheRegister) {
  const long total = std::ssize(sample::sampleClients());
  // What holds something is left alone.
  const std::string lines = value("select count(*) from TAB_1");
  EXPECT_THROW(installSamplePractice(practice.database()), std::runtime_error);
  EXPECT_EQ(value("select count(*) from TAB_1"), lines);
  EXPECT_EQ(value("select count(*) from Main_Info1"), std::to_string(total));
  EXPECT_EQ(value("select count(*) from TempClTbl"), std::to_string(total));
  EXPECT_EQ(rows("select f_nm,m_nm,l_nm from owner1 where code='TAV01'"),
            (Rows{{"Mohan", "Lal", "Tavdekar"}}));
  EXPECT_EQ(value("select nm from Main_Info1 where code_no='DSK01'"), "Deshvir and Kolhare");

  ASSERT_EQ(std::ssize(progress), total);
  EXPECT_EQ(progress.front(), std::make_pair(1L, total));
  EXPECT_EQ(progress.back(), std::make_pair(total, total));
}

}  // namespace
}  // namespace quillet::suite
