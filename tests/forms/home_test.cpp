// The home form: clients, years, commands, clean-up.
#include <gtest/gtest.h>

#include <chrono>

#include "editor/frmcrtb.h"
#include "forms/editor_fixture.h"
#include "home/third.h"

namespace quillet::support {
namespace {

class HomeTest : public EditorTest {
 protected:
  third& home() {
    auto& form = static_cast<third&>(*practice.forms().ObjThird());
    form.show();
    return form;
  }
  void press(third& form, const std::string& text) {
    for (const char32_t c : charactersOf(text)) form.press(c);
  }
};

TEST_F(HomeTest, TheFormsAreSingleInstancesOfOneModule) {
  EXPECT_EQ(practice.forms().MyDllVersion(), "2.26.2");
  EXPECT_EQ(practice.forms().ObjThird(), practice.forms().ObjThird());
  EXPECT_EQ(practice.forms().ObjCreate(), practice.forms().ObjCreate());
}

TEST_F(HomeTest, ListsTheClientsAndGoesToTheOneChosenLast) {
  host().vLstSelClCode("C2");
  third& form = home();
  EXPECT_EQ(form.ClGrd1.rows(), 2);
  EXPECT_EQ(form.ClGrd1.TextMatrix(form.ClGrd1.Row(), 0), "C2");
  std::vector<std::string> heads;
  for (const GridColumn& column : form.ClGrd1.columns()) {
    if (!column.hidden) heads.push_back(column.heading);
  }
  EXPECT_EQ(heads,
            (std::vector<std::string>{"Code", "Name", "Status", "Father/Husband Name", "DOB/DOI",
                                      "Address", "Group Code", "Group Name", "Company Name"}));
}

TEST_F(HomeTest, AClientAndAYearOpenTheEditor) {
  addYear("C1", 2007, {{"Asha", "CAPITAL", -5}});
  addYear("C1", 2008, {{"Asha", "CAPITAL", -6}});
  third& form = home();
  form.click(form.mnualter);
  EXPECT_EQ(form.mode(), "alter");
  press(form, "asha");
  statements();
  form.press(keys::Enter);
  EXPECT_EQ(statements(),
            (std::vector<std::string>{"select code_no,f_year_dt,s_year_dt,f_yr,s_yr from master "
                                      "where code_no='C1' order by s_yr"}));
  EXPECT_EQ(shown(form.flexgrid2),
            (Rows{{"01/04/2007", "31/03/2008"}, {"01/04/2008", "31/03/2009"}}));
  EXPECT_FALSE(form.ClGrd1.shown());
  EXPECT_EQ(form.active(), &form.flexgrid2);
  EXPECT_EQ(context().clientCode, "C1");
  EXPECT_EQ(host().vLstSelClCode(), "C1");

  form.press(keys::Up);
  form.press(keys::Enter);
  EXPECT_EQ(statements().front(),
            "select * from master where code_no='C1' and f_yr='01042007' and s_yr='31032008'");
  auto& editor = static_cast<frmcrtb&>(*practice.forms().ObjCreate());
  EXPECT_TRUE(editor.visible());
  EXPECT_EQ(context().table, "TAB_1");
  EXPECT_EQ(context().firstDate, "01042007");
  EXPECT_EQ(editor.vsfm.cell(1, 2), "5.00");

  // Another year while the editor is open: it changes over.
  form.press(keys::Down);
  form.doubleClick(form.flexgrid2);
  EXPECT_EQ(editor.vsfm.cell(1, 2), "6.00");
  EXPECT_TRUE(editor.visible());

  form.press(keys::Escape);
  EXPECT_TRUE(form.ClGrd1.shown());
  EXPECT_FALSE(form.flexgrid2.shown());
}

TEST_F(HomeTest, AClientWithoutYearsGivesAMessageAndAnEmptyGrid) {
  third& form = home();
  form.press(keys::Enter);
  const auto asked = dialogs.takeMessages();
  ASSERT_EQ(asked.size(), 1U);
  EXPECT_EQ(asked[0].message.text, "No entry of this year is available.");
  EXPECT_EQ(form.flexgrid2.rows(), 0);
  form.press(keys::Enter);
  EXPECT_EQ(practice.context().desk.find("frmcrtb"), nullptr);
}

TEST_F(HomeTest, RefusedChecksAndMissingRowsOpenNothing) {
  addYear("C1", 2008, {{"Asha", "CAPITAL", -6}});
  third& form = home();
  host().refuse("CheckClpass");
  form.doubleClick(form.ClGrd1);
  EXPECT_TRUE(form.ClGrd1.shown());
  form.doubleClick(form.ClGrd1);
  exec("update master set d_of_s='01/01/2010'");
  host().refuse("CheckPass");
  form.doubleClick(form.flexgrid2);
  EXPECT_EQ(context().table, "");
  EXPECT_EQ(context().desk.find("frmcrtb"), nullptr);
  exec("delete from master");
  form.doubleClick(form.flexgrid2);
  EXPECT_EQ(context().desk.find("frmcrtb"), nullptr);
  EXPECT_TRUE(messages().empty());
}

TEST_F(HomeTest, SearchesEveryShownColumnAsOneTypes) {
  suite::Client person;
  person.code = "P9";
  person.first = "Meera";
  person.last = "Östlund";
  person.status = "Individual";
  person.address = "12 Hill Road, Pune";
  person.groupCode = "G1";
  person.groupName = "Hill Family";
  suite::addClient(practice.database(), person);
  third& form = home();
  EXPECT_EQ(form.ClGrd1.rows(), 3);
  press(form, "pune MEER");
  ASSERT_EQ(form.ClGrd1.rows(), 1);
  EXPECT_EQ(form.ClGrd1.TextMatrix(1, 1), "Meera Östlund");
  form.press(keys::Escape);
  EXPECT_EQ(form.ClGrd1.rows(), 3);
  press(form, "öST");
  EXPECT_EQ(form.ClGrd1.rows(), 1);
  press(form, "\b\b\b");
  EXPECT_EQ(form.ClGrd1.rows(), 3);
  EXPECT_EQ(form.ClGrd1.TextMatrix(form.ClGrd1.Row(), 0), "P9") << "the cursor stays on its client";

  // A hidden column is not searched; the arrangement is kept between runs.
  host().SaveSettingINI("ClientList", "Columns", "code:9,name:30");
  form.ClGrd1.refreshSetup();
  press(form, "pune");
  EXPECT_EQ(form.ClGrd1.rows(), 0);
  form.press(keys::Enter);
  EXPECT_TRUE(form.ClGrd1.shown()) << "no client, nothing to choose";
  form.press(keys::Escape);
  form.ClGrd1.setColumnWidth(1, 33);
  form.close();
  EXPECT_EQ(host().GetSettingINI("ClientList", "Columns", ""), "code:9,name:33");

  third& again = home();
  again.ClGrd1.cbostatus.choose(again.ClGrd1.cbostatus.find("Individual"));
  EXPECT_EQ(again.ClGrd1.rows(), 1);
  again.close();
  EXPECT_EQ(home().ClGrd1.rows(), 1) << "the filter is kept between runs";
}

TEST_F(HomeTest, TenThousandClientsAreSearchedWithoutDelay) {
  std::string values;
  for (int i = 0; i < 10000; ++i) {
    values +=
        (i ? ",('" : "('") + std::to_string(i) + "','Client " + std::to_string(i * 7919) + "')";
  }
  exec("insert into TempClTbl (CodeNo,Name) values " + values);
  third& form = home();
  statements();
  const auto start = std::chrono::steady_clock::now();
  press(form, "client 79");
  const auto taken = std::chrono::steady_clock::now() - start;
  EXPECT_GT(form.ClGrd1.rows(), 100);
  EXPECT_TRUE(statements().empty()) << "no query for each key";
  // Nine keys; generous, for a sanitized build on a busy machine.
  EXPECT_LT(std::chrono::duration<double>(taken).count(), 3.0);
}

TEST_F(HomeTest, RefreshKeepsOneNameOfEachLedger) {
  exec(
      "insert into mast_part (partid,particular) values (1,'Cash'),(1,'Cash at o''Brien\\\\'),"
      "(1,'Kasse'),(2,'Bank')");
  third& form = home();
  statements();
  form.click(form.mnurefresh);
  EXPECT_EQ(form.lblstatus.caption(), "2 second names removed from the ledger master.");
  EXPECT_EQ(value("select count(*) from mast_part"), "2");
  const auto sent = statements();
  EXPECT_EQ(sent[0],
            "SELECT PARTID,PARTICULAR, count(partid) as cntr FROM MAST_PART group by partid");
  EXPECT_EQ(sent[2].substr(0, 58), "Delete from MAST_PART where PARTID=1 and PARTICULAR<>'Cash");
  EXPECT_EQ(sent[3], "flush tables");
  const std::string kept = value("select lower(particular) from mast_part where partid=1");
  form.click(form.mnurefresh);
  EXPECT_EQ(form.lblstatus.caption(), "The ledger master holds no second names.");

  // Rows that the database takes for equal, and a name beside none. What has no name at all in one
  // of its rows stays as it is and is said.
  exec(
      "insert into mast_part (partid,particular) values (1,'Cash'),(1,'cash'),(1,'CASH '),(3,''),"
      "(3,'Rent'),(3,''),(4,'Loan'),(4,null)");
  form.click(form.mnurefresh);
  EXPECT_EQ(form.lblstatus.caption(),
            "5 second names removed from the ledger master. 1 ledger still in it with several "
            "rows.");
  EXPECT_EQ(rows("select partid,lower(trim(particular)) from mast_part order by partid,particular"),
            (Rows{{"1", kept}, {"2", "bank"}, {"3", "rent"}, {"4", "NULL"}, {"4", "loan"}}));
  EXPECT_TRUE(messages().empty());
}

TEST_F(HomeTest, HelpAndBack) {
  third& form = home();
  form.click(form.mnuhelp);
  EXPECT_EQ(frontEnd.topics, (std::vector<std::string>{"2-2"}));
  form.click(form.mnuexit);
  EXPECT_FALSE(form.visible());
}

TEST_F(HomeTest, TheErrorLogGrowsByOneLineForEachError) {
  third& form = home();
  log();
  host().statements().failNext("from master");
  form.press(keys::Enter);
  host().statements().failNext("MAST_PART");
  form.click(form.mnurefresh);
  const auto lines = log();
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_NE(lines[0].find("\tthird\tCLGRD1_DBLCLICK"), std::string::npos) << lines[0];
  EXPECT_NE(lines[1].find("\tthird\tMNUREFRESH_CLICK"), std::string::npos) << lines[1];
  EXPECT_EQ(std::count(lines[0].begin(), lines[0].end(), '\t'), 5);
  EXPECT_FALSE(frontEnd.busy);
}

}  // namespace
}  // namespace quillet::support
