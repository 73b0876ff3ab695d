// The deletion form: which options go together, what is asked, and which statements are sent.
#include "years/years_fixture.h"

namespace quillet::support {
namespace {

constexpr const char* confirmation = "Confirm Deletion of 'Trial Balance' ?";
constexpr const char* schedules = "\r\n - Schedules/Other Data relevant to Trial Balance";
constexpr const char* chart = "\r\n - Depreciation Chart (Fixed Assets)";
constexpr const char* misc =
    "\r\n - Misc. Forms/Reports/Certificates/Annexures relevant to Balance Sheet";

class DeletionTest : public YearsTest {
 protected:
  // C1's year 2008-2009 under the first number.
  RegisteredYear year(bool isSigned = false) {
    return {"C1", {"01042008", "31032009"}, "", "", tab(1), 1, isSigned};
  }
};

TEST_F(DeletionTest, IsAskedForAndOpensForTheYear) {
  addYear("C1", 2007);
  addYear("C1", 2008);
  third& form = choose(&third::mnudelete, "C1");
  answer({Answer::No, Answer::Yes});
  form.press(keys::Enter);
  EXPECT_FALSE(deletionOpen());
  form.doubleClick(form.flexgrid2);
  const Texts question = {
      "Do you really want to Delete Trial Balance of 'Asha Traders' for F.Y. 2008-2009 "
      "?\r\n\r\nConfirm Delete ?",
      "YesNo", "question", "No"};
  EXPECT_EQ(asked(), (Rows{question, question}));

  frmdelwhatinTB& box = deletion();
  EXPECT_EQ(box.caption(), "Delete Trial Balance Data");
  EXPECT_EQ(box.lblheading.caption(), "Delete Trial Balance for F.Y. 2008-2009");
  EXPECT_EQ(box.lblsubject.caption(), "Asha Traders (C1), 01/04/2008 - 31/03/2009");
  EXPECT_TRUE(box.modal());
  EXPECT_FALSE(box.famSchFA.visible());
  box.press(keys::Escape);
  EXPECT_FALSE(deletionOpen());
  EXPECT_EQ(form.flexgrid2.rows(), 2);
}

TEST_F(DeletionTest, OptionsAreTestedInTheirOrderAndCoupled) {
  const std::string table = addYear("C1", 2008);
  exec("insert into NewFATRa" + table.substr(4) + "(code_no) values('C1')");
  frmdelwhatinTB& box = openDeletion();
  EXPECT_TRUE(box.famSchFA.visible());
  EXPECT_FALSE(box.click(box.optSchOthData[0])) << "closed until the choice is the user's";
  box.click(box.cmddelete);
  EXPECT_EQ(asked(), (Rows{{"Select an option.", "OK", "information", "OK"}}));

  const struct {
    OptionButton* option;
    const char* chosen;  // of schedules, chart and forms
    bool refused;        // in some frame nothing is chosen
  } cases[] = {{&box.optMain[0], "YYY", false},
               {&box.optMain[1], "N-N", false},
               {&box.optMain[2], "N-N", false},
               {nullptr, "---", true},
               {&box.optMain[2], "---", true},
               {&box.optSchOthData[0], "YY-", true},  // the chart follows the schedules
               {&box.optMiscDet[1], "YYN", false},
               {&box.optSchFA[1], "YNN", false},
               // With the schedules kept there is no chart to be chosen for.
               {&box.optSchOthData[1], "N-N", false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.chosen);
    c.option ? box.click(*c.option) : box.INITDATA("delete", year());
    std::string chosen;
    for (auto* options : {&box.optSchOthData, &box.optSchFA, &box.optMiscDet}) {
      chosen += (*options)[0].checked() ? 'Y' : (*options)[1].checked() ? 'N' : '-';
    }
    EXPECT_EQ(chosen, c.chosen);
    EXPECT_EQ(box.famSchFA.enabled(), chosen[0] == 'Y');
    EXPECT_EQ(box.optSchFA[1].enabled(), c.option != &box.optMain[0] && chosen[0] == 'Y');
    statements();
    if (!c.refused) answer({Answer::Cancel});
    box.click(box.cmddelete);
    EXPECT_EQ(messages().at(0) == "Select an option.", c.refused);
    EXPECT_TRUE(statements().empty());
    EXPECT_TRUE(deletionOpen());
  }
  box.click(box.optSchOthData[0]);
  box.optSchFA[0].setChecked(false);
  box.click(box.cmddelete);
  EXPECT_EQ(messages(), Texts{"Select an option."}) << "the chart";
}

// The question names what goes with the lines. The registry keeps the year unless everything goes;
// a chart that is not there is no obstacle.
TEST_F(DeletionTest, DeletesWhatTheQuestionNames) {
  const std::string with = "\r\nWith";
  const struct {
    bool hasChart;
    int main, sch, fa, mis;  // option chosen in each frame, -1 for none
    std::string text;
    bool removed;
  } cases[] = {{true, 0, -1, -1, -1, with + schedules + chart + misc, true},
               {false, 0, -1, -1, -1, with + schedules + misc, true},
               {true, 1, -1, -1, -1, "", false},
               {true, 2, 0, 0, 0, with + schedules + chart + misc, true},
               {false, 2, 0, -1, 0, with + schedules + misc, true},
               {true, 2, 0, 1, 0, with + schedules + misc, false},
               {true, 2, 0, 0, 1, with + schedules + chart, false},
               {true, 2, 1, -1, 0, with + misc, false},
               {false, 2, 1, -1, 1, "", false}};
  for (const auto& c : cases) {
    exec("delete from master");
    for (const auto& row : held("C1"))
      exec("delete from " + row.first.substr(0, row.first.find(' ')));
    const std::string table = addYear("C1", 2008, {{"Cash", "BANKS", 5}});
    hangOn("C1", table.substr(4), 2009, 1, c.hasChart);
    const auto before = held("C1");
    frmdelwhatinTB& box = openDeletion();
    box.click(box.optMain[c.main]);
    if (c.sch >= 0) box.click(box.optSchOthData[c.sch]);
    if (c.fa >= 0) box.click(box.optSchFA[c.fa]);
    if (c.mis >= 0) box.click(box.optMiscDet[c.mis]);
    answer({Answer::Cancel, Answer::Yes});
    box.click(box.cmddelete);
    EXPECT_EQ(asked(), (Rows{{confirmation + c.text, "YesNoCancel", "critical", "Cancel"}}));
    EXPECT_TRUE(statements().empty());
    box.click(box.cmddelete);
    EXPECT_FALSE(deletionOpen());
    // Every row is still there or gone as its group was chosen for.
    const bool schedulesGo = c.text.find(schedules) != std::string::npos;
    const bool chartGoes = c.text.find(chart) != std::string::npos;
    const bool miscGoes = c.text.find(misc) != std::string::npos;
    const auto after = held("C1");
    for (const auto& [name, count] : before) {
      const bool ofChart =
          name.starts_with("FDA_") || name.starts_with("FIXED_") || name.starts_with("NewFA");
      const bool goes = name.starts_with("master")     ? c.removed
                        : name == table                ? true
                        : name.starts_with("Anex3cd_") ? miscGoes
                        : ofChart                      ? chartGoes || c.removed
                                                       : schedulesGo;
      EXPECT_EQ(after.count(name), goes ? 0U : 1U) << name << c.text;
    }
    EXPECT_EQ(home().lblstatus.caption(),
              c.removed ? "Trial balance of 2008-2009 deleted."
                        : "What was chosen of 2008-2009 is deleted. The year itself stays.");
  }
}

TEST_F(DeletionTest, RightsAreAskedForInTheirOrder) {
  addYear("C1", 2008);
  suite::Passwords::set(practice.database(), suite::PasswordKind::right, "overwrite", "o");
  suite::Passwords::set(practice.database(), suite::PasswordKind::right, "delete", "d");
  const struct {
    const char* mode;
    bool isSigned;
    std::vector<std::optional<std::string>> typed;
    bool goesOn;
  } cases[] = {{"delete", false, {}, true},
               {"delete", true, {"d"}, true},
               {"delete", true, {std::nullopt}, false},
               {"create", false, {"o"}, true},
               {"merge", true, {"o", "d"}, true},
               {"merge", true, {std::nullopt}, false},
               {"create", true, {"o", std::nullopt}, false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.mode + std::string(c.isSigned ? ", signed" : ""));
    frmdelwhatinTB box(context());
    box.INITDATA(c.mode, year(c.isSigned));
    box.showModal();
    statements();
    dialogs.takePrompts();
    // What is wrong with the options is told before anybody is asked for a password.
    box.click(box.cmddelete);
    EXPECT_EQ(messages(), Texts{"Select an option."});
    EXPECT_TRUE(dialogs.takePrompts().empty());
    box.click(box.optMain[1]);
    for (const auto& typed : c.typed) dialogs.queuePassword(typed);
    if (c.goesOn) answer({Answer::No});
    box.click(box.cmddelete);
    EXPECT_EQ(messages(), c.goesOn ? Texts{confirmation} : Texts{});
    EXPECT_TRUE(statements().empty());
    EXPECT_TRUE(box.visible());
  }
}

// Every statement in its order, and after each its flush.
TEST_F(DeletionTest, SendsEveryStatementInItsOrder) {
  addYear("C1", 2007);
  const std::string table = addYear("C1", 2008);
  const std::string s = table.substr(4);
  hangOn("C1", s, 2009, 2);
  remove(0);
  EXPECT_FALSE(deletionOpen());

  Texts expected;
  const auto deletes = [&](const std::string& behind, const Texts& tables) {
    for (const std::string& each : tables) expected.push_back("DELETE FROM " + each + behind);
  };
  const std::string c = " WHERE CODE_NO='C1'", numbered = " WHERE RCOUNT=2 AND CODE_NO='C1'";
  deletes(s + c, {"TAB_", "JRNL_"});
  deletes(c + " and FYear=2009", {"DeferTax_Liab", "DeferTax_Bal"});
  deletes(c + " and Yr=2009", {"Trade_Details"});
  deletes(s + c, {"TRADE_", "PROFIT_", "RMGRP_"});
  deletes(c + " and FYr=2009", {"RMSCHSETUP"});
  deletes(s + c, {"SHARE_"});
  deletes(numbered, {"PRFA", "PRFA_OTH"});
  deletes(s + c, {"CAPITAL_", "RESV_", "LOAN_ADV_", "SECUR_", "INVEST_", "SUNDEB_", "BANK_",
                  "MISCEXPASST_", "FDA_", "FIXED_", "NewFATRo", "NewFATRa"});
  deletes(" WHERE Code_No='C1' AND Yr=2009", {"NewFAMI", "NewFAMD"});
  deletes(c + " and Yr=2009", {"SchNotes"});
  deletes(s + c, {"SCHED_", "LIST_"});
  deletes(c + " and FYr=2009", {"SCHLISTS"});
  deletes(" WHERE CODE_NO ='C1' and FYr=2009",
          {"Anex3cd_Detail", "Anex3cd_Books", "Anex3cd_BfLoss", "Anex3cd_AnexI", "Anex3cd_Main"});
  expected.emplace_back("UPDATE master SET annex='' WHERE COUNT=2 AND CODE_NO='C1'");
  expected.emplace_back("DELETE FROM MASTER WHERE COUNT=2 AND CODE_NO='C1'");

  // Components of the suite have their own spellings of the flush.
  const auto flushAfter = [](const std::string& sql) {
    for (const char* each : {"FROM FDA_", "FROM FIXED_", "FROM NewFA"}) {
      if (sql.find(each) != std::string::npos) return "FLUSH TABLES";
    }
    const bool title =
        sql.find("Anex3cd_") != std::string::npos || sql.find("FROM MASTER") != std::string::npos;
    return title ? "Flush Tables" : "flush tables";
  };
  const Texts sent = statements();
  // The year list is read anew afterwards, and what the other years hold.
  ASSERT_EQ(sent.size(), 2 * expected.size() + 3);
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(sent[2 * i], expected[i]);
    EXPECT_EQ(sent[2 * i + 1], flushAfter(expected[i])) << expected[i];
  }
  EXPECT_EQ(home().flexgrid2.rows(), 1);
  EXPECT_EQ(held("C1"), (std::map<std::string, long>{{"master 01042007", 1}}));
}

TEST_F(DeletionTest, LeavesTheNeighboursAndTheOtherYears) {
  std::map<std::string, std::map<std::string, long>> older, before;
  for (const std::string code : {"C%", "C_1", "c'1", "CX1", "C\\1", "{Y}"}) {
    addClient(code, "Client " + code);
    const std::string one = addYear(code, 2007, {{"Cash", "BANKS", 5}});
    hangOn(code, one.substr(4), 2008, 1);
    older[code] = held(code);
    const std::string two = addYear(code, 2008, {{"Cash", "BANKS", 7}});
    hangOn(code, two.substr(4), 2009, 2, code != "CX1");
    before[code] = held(code);
  }
  for (const auto& [code, left] : older) {
    EXPECT_EQ(openDeletion(code).famSchFA.visible(), code != "CX1");
    deletion().click(deletion().cmdcancel);
    remove(0, code);
    before[code] = left;
    for (const auto& [each, rows] : before) EXPECT_EQ(held(each), rows) << each << " of " << code;
    messages();
  }
}

}  // namespace
}  // namespace quillet::support
