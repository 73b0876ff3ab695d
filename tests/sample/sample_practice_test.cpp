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
    for (const auto& row : rows("select code_no,tbl_nm from master order by code_no,f_yr"))
      years.push_back({row[0], row[1]});
  }

  struct Year {
    std::string code;
    std::string table;
  };
  static std::string of(const Year& year) { return " where code_no='" + year.code + "'"; }

  std::vector<std::pair<long, long>> progress;
  std::vector<Year> years;
};

TEST_F(SamplePracticeTest, EveryYearBalancesAndItsLinesAreNumberedUniqueAndResolved) {
  ASSERT_FALSE(years.empty());
  for (const Year& year : years) {
    SCOPED_TRACE(year.code + " " + year.table);
    EXPECT_EQ(value("select coalesce(sum(cast(round(amt*100) as int)*if(nid=2,-1,1)),0) from " +
                    year.table + of(year)),
              "0");
    // An amount is the double nearest to a whole number of paise.
    EXPECT_EQ(value("select count(*) from " + year.table + of(year) +
                    " and (amt<=0 or nid not in (1,2) or amt<>round(amt,2))"),
              "0");
    const std::string lines = value("select count(*) from " + year.table + of(year));
    EXPECT_EQ(value("select concat(count(distinct srno),' ',coalesce(min(srno),1),' ',"
                    "coalesce(max(srno),0)) from " +
                    year.table + of(year)),
              lines + " 1 " + lines);
    EXPECT_EQ(value("select count(distinct partid,allid) from " + year.table + of(year)), lines);
    for (const char* prefix : {"TAB_", "TRADE_"}) {
      const std::string table = prefix + year.table.substr(4);
      EXPECT_EQ(value("select count(*) from " + table + " t" + of(year) +
                      " and ((select count(*) from Mast_Part p where p.PartId=t.partid)<>1 or"
                      " (select count(*) from Mast_AllGrp g where g.ALLID=t.allid)<>1)"),
                "0")
          << table;
    }
  }
  EXPECT_EQ(value("select count(*) from (select 1 from Mast_Part group by Particular having "
                  "count(*)>1) doubles"),
            "0");
}

TEST_F(SamplePracticeTest, YearsAreRegisteredAsAUserWouldHaveCreatedThem) {
  EXPECT_EQ(
      rows("select f_year_dt,s_year_dt,tbl_nm,count,f_yr,s_yr from master where "
           "code_no='TAV01' order by s_yr"),
      (std::vector<std::vector<std::string>>{
          {"01/04/2005", "31/03/2006", "TAB_" + tableSuffix(1), "1", "01042005", "31032006"},
          {"01/04/2006", "31/03/2007", "TAB_" + tableSuffix(2), "2", "01042006", "31032007"},
          {"01/04/2007", "31/03/2008", "TAB_" + tableSuffix(3), "3", "01042007", "31032008"},
          {"01/04/2008", "31/03/2009", "TAB_" + tableSuffix(4), "4", "01042008", "31032009"}}));
  EXPECT_EQ(value("select count(*) from (select 1 from master group by code_no,count having "
                  "count(*)>1) twice"),
            "0");
  EXPECT_NE(value("select count(distinct code_no) from TAB_" + tableSuffix(1)), "1")
      << "clients share a table";
}

TEST_F(SamplePracticeTest, ClosingStockIsTheNextYearsOpeningStock) {
  int compared = 0;
  for (std::size_t i = 1; i < years.size(); ++i) {
    const Year& last = years[i - 1];
    const Year& next = years[i];
    if (last.code != next.code) continue;
    const std::string opening =
        value("select sum(cast(round(amt*100) as int)) from " + next.table +
              " t join Mast_AllGrp g on g.ALLID=t.allid and g.GID=18" + of(next));
    if (opening == "NULL") continue;  // a practice that sells advice, or a year without lines
    ++compared;
    EXPECT_EQ(value("select sum(cast(round(t.amt*100) as int)) from TRADE_" + last.table.substr(4) +
                    " t join Mast_AllGrp g on g.ALLID=t.allid and g.GID=7" + of(last)),
              opening)
        << next.code << ' ' << next.table;
  }
  EXPECT_GE(compared, 5);
}

TEST_F(SamplePracticeTest, TheClientsAreInTheRegister) {
  const auto total = static_cast<long>(sample::sampleClients().size());
  // What holds something is left alone.
  const std::string lines = value("select count(*) from TAB_" + tableSuffix(1));
  EXPECT_THROW(installSamplePractice(practice.database()), std::runtime_error);
  EXPECT_EQ(value("select count(*) from TAB_" + tableSuffix(1)), lines);
  EXPECT_EQ(value("select count(*) from Main_Info1"), std::to_string(total));
  EXPECT_EQ(value("select count(*) from TempClTbl"), std::to_string(total));
  EXPECT_EQ(value("select count(distinct code_no) from master where code_no not in (select code_no "
                  "from Main_Info1)"),
            "0");
  EXPECT_EQ(rows("select f_nm,m_nm,l_nm from owner1 where code='TAV01'"),
            (std::vector<std::vector<std::string>>{{"Mohan", "Lal", "Tavdekar"}}));
  EXPECT_EQ(value("select nm from Main_Info1 where code_no='DSK01'"), "Deshvir and Kolhare");

  ASSERT_EQ(progress.size(), static_cast<std::size_t>(total));
  EXPECT_EQ(progress.front(), std::make_pair(1L, total));
  EXPECT_EQ(progress.back(), std::make_pair(total, total));
}

TEST_F(SamplePracticeTest, TheSpecialClientsAreThere) {
  EXPECT_EQ(value("select count(*) from master where code_no='TAV03'"), "0");
  EXPECT_EQ(value("select count(*) from TAB_" + tableSuffix(1) + " where code_no='ORV01'"), "2000");
  EXPECT_NE(value("select count(*) from TAB_" + tableSuffix(2) + " where code_no='DSK02'"), "0");
  EXPECT_EQ(value("select count(*) from TAB_" + tableSuffix(3) + " where code_no='DSK02'"), "0");
  EXPECT_EQ(value("select tbl_nm from master where code_no='DSK02' and f_yr='01042008'"),
            "TAB_" + tableSuffix(3));
}

}  // namespace
}  // namespace quillet::suite
