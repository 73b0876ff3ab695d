// The home form: clients, years, commands, clean-up.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <set>

#include "forms/editor_fixture.h"

namespace quillet::support {
namespace {

using Texts = std::vector<std::string>;

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
  // The access keys of what is shown.
  static std::string accessKeys(const Node& node) {
    std::string keys;
    if (node.kind == Node::Kind::control && node.control->shown()) {
      const std::string& text = node.label.empty() ? node.control->caption() : node.label;
      const std::size_t mark = text.find('&');
      if (mark != std::string::npos) keys = upperCase(text.substr(mark + 1, 1));
    }
    for (const Node& child : node.children) keys += accessKeys(child);
    return keys;
  }
};

TEST_F(HomeTest, ListsTheClientsAndGoesToTheOneChosenLast) {
  host().vLstSelClCode("C2");
  third& form = home();
  EXPECT_EQ(form.ClGrd1.rows(), 2);
  EXPECT_EQ(form.ClGrd1.TextMatrix(form.ClGrd1.Row(), 0), "C2");
  Texts heads;
  for (const GridColumn& column : form.ClGrd1.columns()) {
    if (!column.hidden) heads.push_back(column.heading);
  }
  EXPECT_EQ(heads, (Texts{"Code", "Name", "Status", "Father/Husband Name", "DOB/DOI", "Address",
                          "Group Code", "Group Name", "Company Name"}));
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
  EXPECT_EQ(statements(), Texts{"select code_no,f_year_dt,s_year_dt,f_yr,s_yr from master "
                                "where code_no='C1' order by s_yr"});
  EXPECT_EQ(form.active(), &form.flexgrid2);
  EXPECT_EQ(host().vLstSelClCode(), "C1");
  form.press(keys::Up);
  form.press(keys::Enter);
  EXPECT_EQ(statements().front(),
            "select * from master where code_no='C1' and f_yr='01042007' and s_yr='31032008'");
  auto& editor = static_cast<frmcrtb&>(*practice.forms().ObjCreate());
  EXPECT_TRUE(editor.visible());
  EXPECT_EQ(editor.vsfm.cell(1, 2), "5.00");
  // Another year while the editor is open: it changes over.
  form.press(keys::Down);
  form.doubleClick(form.flexgrid2);
  EXPECT_EQ(editor.vsfm.cell(1, 2), "6.00");
  EXPECT_TRUE(editor.visible());
}

TEST_F(HomeTest, WithoutAYearNothingOpens) {
  third& form = home();
  form.press(keys::Enter);
  EXPECT_EQ(messages(), Texts{"No entry of this year is available."});
  form.press(keys::Enter);
  EXPECT_EQ(context().desk.find("frmcrtb"), nullptr);
}

// The context's client and year, and the form's message.
TEST_F(HomeTest, AnotherClientClearsTheYear) {
  addYear("C1", 2007);
  addYear("C1", 2008);
  addYear("C2", 2008);
  third& form = home();
  const auto choose = [&](int row) {
    form.click(form.mnualter);
    form.ClGrd1.setCurrent(row);
    form.doubleClick(form.ClGrd1);
  };
  const auto inWork = [&] {
    const Context& c = context();
    return c.clientCode + ' ' + c.table + ' ' + c.firstDate + ' ' + c.secondDate;
  };
  const char* opened = "C1 TAB_2 01042008 31032009";
  choose(1);
  form.press(keys::Enter);
  EXPECT_EQ(inWork(), opened);
  host().refuse("CheckClpass");
  choose(2);
  EXPECT_EQ(inWork(), opened);
  choose(1);
  EXPECT_EQ(inWork(), opened) << "no other client";
  choose(2);
  EXPECT_EQ(inWork(), "C2   ");
  // A year that may not be opened is not the one in work either.
  choose(1);
  form.press(keys::Enter);
  exec("update master set d_of_s='x' where code_no='C1' and count=1");
  form.press(keys::Up);
  host().refuse("CheckPass");
  form.press(keys::Enter);
  EXPECT_EQ(inWork(), "C1   ");
  // Nor is one without a table, and that is said.
  exec("update master set d_of_s=null,tbl_nm='' where code_no='C1' and count=1");
  form.press(keys::Enter);
  EXPECT_EQ(inWork(), "C1   ");
  EXPECT_EQ(form.lblstatus.caption(), "No table is named for the trial balance of 2007-2008.");
  // The host goes on to another client: the list stays what it is.
  practice.forms().VClCode("C2");
  form.press(keys::Down);
  form.press(keys::Enter);
  EXPECT_EQ(inWork(), opened);
  practice.forms().ObjCreate()->close();
  // Where the years cannot be read nothing of another client's is left, and that is said.
  host().statements().failNext("from master");
  choose(2);
  EXPECT_EQ(form.flexgrid2.rows(), 0);
  EXPECT_EQ(form.lblstatus.caption(), "The years could not be read.");
  choose(2);
  EXPECT_EQ(form.flexgrid2.rows(), 1);
  EXPECT_EQ(form.lblstatus.caption(), "");
}

TEST_F(HomeTest, AYearThatIsGoneIsSaidAndTheListReadAnew) {
  const struct {
    Button third::*command;
    std::size_t asked;  // questions before
  } cases[] = {
      {&third::mnualter, 0}, {&third::mnudelete, 1}, {&third::mnualpha, 0}, {&third::mnusumm, 0}};
  for (const auto& c : cases) {
    exec("delete from master");
    addYear("C1", 2007);
    addYear("C1", 2008);
    third& form = home();
    form.click(form.*c.command);
    form.doubleClick(form.ClGrd1);
    select("C1", 2008);
    exec("delete from master where f_yr='01042008'");
    if (c.asked > 0) yes();
    form.press(keys::Enter);
    const auto told = messages();
    ASSERT_EQ(told.size(), c.asked + 1);
    EXPECT_EQ(told.back(),
              "The Trial Balance of 'Asha Traders' for F.Y. 2008-2009 does not exist any more.");
    EXPECT_EQ(shown(form.flexgrid2), (Rows{{"01/04/2007", "31/03/2008"}}));
    EXPECT_EQ(form.flexgrid2.current(), 1);
    EXPECT_EQ(context().table, "");
    EXPECT_EQ(context().desk.active(), &form);
  }
}

// --- the client grid ----------------------------------------------------------------------------

TEST_F(HomeTest, TheClientsShownAndTheirColumnsAreChosenFromTheGrid) {
  third& form = home();
  form.ClGrd1.cbostatus.choose(1);
  for (const auto& [button, name] : {std::pair{&form.ClGrd1.cmdclients, "frmClSelection"},
                                     {&form.ClGrd1.cmdcolumns, "frmClSetup"}}) {
    EXPECT_NE(button->caption().find('&'), std::string::npos) << "a key";
    form.click(*button);
    ASSERT_EQ(context().desk.active()->name(), name);
    context().desk.active()->press(keys::Escape);
    EXPECT_EQ(form.active(), &form.ClGrd1) << "one goes on typing";
  }
}

// Whatever changed in the register is there when the list comes into sight again; what a person
// has made of the list stays.
TEST_F(HomeTest, TheRegisterIsReadWheneverTheListIsShown) {
  for (const char* code : {"A1", "Z9"}) addClient(code, std::string("Asha ") + code);
  third& form = home();
  const auto codes = [&] {
    std::string all;
    for (int row = 1; row <= form.ClGrd1.rows(); ++row) all += form.ClGrd1.TextMatrix(row, 0) + ' ';
    return all + "on " + form.ClGrd1.TextMatrix(form.ClGrd1.Row(), 0);
  };
  press(form, "asha");
  form.ClGrd1.sortBy(0);
  form.ClGrd1.sortBy(0);
  form.ClGrd1.setCurrent(2);
  ASSERT_EQ(codes(), "Z9 C1 A1 on C1");
  const auto command = [&] { form.click(form.mnusumm); };
  const auto yearsAndBack = [&] {
    form.doubleClick(form.ClGrd1);
    form.press(keys::Escape);
  };
  const auto master = [&] {
    form.click(form.cmdgrpmas);
    context().desk.active()->close();
  };
  std::string added;
  for (const std::function<void()>& way :
       {std::function<void()>(command), {yearsAndBack}, {master}}) {
    const std::string code = "M" + std::to_string(added.size());
    addClient(code, "Asha " + code);
    added = code + ' ' + added;
    way();
    EXPECT_EQ(codes(), "Z9 " + added + "C1 A1 on C1");
  }
  // Fewer than before, also when the form was closed meanwhile.
  exec("delete from TempClTbl where CodeNo<>'C2'");
  form.click(form.mnualter);
  EXPECT_EQ(codes(), "on ");
  form.press(keys::Escape);
  EXPECT_EQ(codes(), "C2 on C2");
  form.close();
  exec("delete from TempClTbl");
  host().statements().failNext("TempClTbl");
  EXPECT_EQ(home().ClGrd1.rows(), 0);
  EXPECT_EQ(form.lblstatus.caption(), "The clients could not be read.");
  EXPECT_EQ(log().size(), 1U);
  messages();
}

TEST_F(HomeTest, FiltersThatNobodyAnswersToAreDroppedAndSaid) {
  exec("update TempClTbl set Status='Firm',GroupCode='G1' where CodeNo='C1'");
  exec("update TempClTbl set Status='Company',GroupCode='G2' where CodeNo='C2'");
  const std::string none = "No client has ";
  const std::string dropped = ". The list is no longer kept to it.";
  const struct {
    const char *status, *group;
    int rows;
    const char* kept;
    std::string told;
  } cases[] = {
      {"Firm", "", 1, "Firm/", ""},
      {"firm", "G1", 1, "firm/G1", ""},
      {"Gone", "G1", 1, "/G1", none + R"(the status "Gone")" + dropped},
      {"Firm", "Gone", 1, "Firm/", none + R"(the group "Gone")" + dropped},
      {"Firm", "G2", 2, "/", none + R"(the status "Firm" and the group "G2")" + dropped},
  };
  third& form = home();
  for (const auto& c : cases) {
    for (const bool open : {false, true}) {
      SCOPED_TRACE(std::string(c.status) + ' ' + c.group + (open ? ", open" : ", closed"));
      home().click(form.mnualter);
      if (!open) form.close();
      host().SaveSettingINI("ClientList", "Status", c.status);
      host().SaveSettingINI("ClientList", "Group", c.group);
      home().click(form.mnualter);
      EXPECT_EQ(form.ClGrd1.rows(), c.rows);
      EXPECT_EQ(host().GetSettingINI("ClientList", "Status", "") + '/' +
                    host().GetSettingINI("ClientList", "Group", ""),
                c.kept);
      if (open) {
        EXPECT_EQ(form.lblstatus.caption(), c.told);
      }
    }
  }
  // Spellings of one name are one filter.
  exec("update TempClTbl set Status='firm ' where CodeNo='C2'");
  form.click(form.mnualter);
  ASSERT_EQ(form.ClGrd1.cbostatus.size(), 2);
  form.ClGrd1.cbostatus.choose(2);
  EXPECT_EQ(form.ClGrd1.rows(), 2);
  exec("update TempClTbl set Status='Company' where CodeNo='C2'");
  form.click(form.mnualter);
  // What a person chooses is not dropped while nothing else has changed.
  form.ClGrd1.cbostatus.choose(form.ClGrd1.cbostatus.find("Firm"));
  form.ClGrd1.cbogrpcode.choose(form.ClGrd1.cbogrpcode.find("G2"));
  form.click(form.mnualter);
  EXPECT_EQ(form.ClGrd1.rows(), 0);
}

// Settings that cannot be written are no reason to keep anybody from work.
TEST_F(HomeTest, WorkGoesOnWithoutWritableSettings) {
  exec("update TempClTbl set Status='Firm' where CodeNo='C1'");
  addYear("C1", 2008);
  third& form = home();
  const auto file = practice.folder().settings().string() + ".new";
  std::filesystem::create_directory(file);  // stands where the new settings would be written
  form.ClGrd1.cbostatus.choose(form.ClGrd1.cbostatus.find("Firm"));
  EXPECT_EQ(form.ClGrd1.rows(), 1);
  form.click(form.mnualter);
  EXPECT_EQ(form.ClGrd1.rows(), 1) << "the choice holds as long as the form is open";
  form.ClGrd1.setColumnWidth(1, 33);
  form.click(form.ClGrd1.cmdcolumns);
  context().desk.active()->press(keys::Escape);
  form.doubleClick(form.ClGrd1);
  EXPECT_EQ(context().clientCode, "C1");
  EXPECT_EQ(frontEnd.client, "C1");
  EXPECT_EQ(form.flexgrid2.rows(), 1);
  EXPECT_TRUE(form.close());
  EXPECT_GE(log().size(), 3U);
  std::filesystem::remove(file);
}

TEST_F(HomeTest, WhatWasDoneIsSaidUntilTheNextCommandOrClient) {
  third& form = home();
  const auto command = [&] { form.click(form.mnucreate); };
  const auto client = [&] { form.doubleClick(form.ClGrd1); };
  const auto master = [&] {
    form.click(form.cmdledmas);
    context().desk.active()->close();
  };
  for (const std::function<void()>& way : {std::function<void()>(command), {client}, {master}}) {
    form.click(form.mnualter);
    form.click(form.mnurefresh);
    EXPECT_NE(form.lblstatus.caption(), "");
    way();
    EXPECT_EQ(form.lblstatus.caption(), "");
  }
  messages();
}

TEST_F(HomeTest, WhatFailedIsSaidUntilItHolds) {
  addYear("C1", 2008, {{"Asha", "CAPITAL", -6}});
  third& form = home();
  const auto years = [&] {
    form.click(form.mnualpha);
    form.doubleClick(form.ClGrd1);
  };
  const auto alter = [&] { form.click(form.mnualter); };
  const auto refresh = [&] { form.click(form.mnurefresh); };
  const auto back = [&] { form.press(keys::Escape); };
  const auto print = [&] { form.press(keys::Enter); };
  const auto choose = [&] { form.doubleClick(form.ClGrd1); };
  const char* const clients = "The clients could not be read.";
  const struct {
    const char* statement;
    std::function<void()> before, deed;
    const char *place, *said;
  } cases[] = {
      {"MAST_PART", [] {}, refresh, "MNUREFRESH_CLICK",
       "The ledger master was not looked through to its end."},
      {"TempClTbl", years, back, "FORM_KEYDOWN", clients},
      {"TempClTbl", alter, [&] { form.activate(); }, "FORM_ACTIVATE", clients},
      {"mast_allgrp", years, print, "FLEXGRID2_DBLCLICK",
       "The trial balance of 2008-2009 could not be printed."},
      {"from master", alter, choose, "CLGRD1_DBLCLICK", "The years could not be read."},
  };
  for (const auto& c : cases) {
    c.before();
    host().statements().failNext(c.statement);
    c.deed();
    EXPECT_EQ(form.lblstatus.caption(), c.said);
    EXPECT_EQ(log(), Texts{std::string("2009-06-15 12:00:00\t1105\tA statement with \"") +
                           c.statement + "\" was made to fail.\tMariaDB\tthird\t" + c.place});
    EXPECT_FALSE(frontEnd.busy);
    if (form.ClGrd1.shown()) form.activate();
    if (c.said == clients) {
      EXPECT_EQ(form.lblstatus.caption(), "");
    }
  }
}

// One that two controls share carries out neither.
TEST_F(HomeTest, EveryAccessKeyIsOneControlS) {
  third& form = home();
  const auto differ = [](const Form& shown, std::size_t least) {
    const std::string keys = accessKeys(shown.arrangement());
    EXPECT_GE(keys.size(), least);
    EXPECT_EQ(std::set<char>(keys.begin(), keys.end()).size(), keys.size()) << keys;
  };
  differ(form, 17);
  form.click(form.mnucreate);
  form.doubleClick(form.ClGrd1);
  differ(form, 14);
  form.click(form.mnualter);
  for (Button* button : {&form.ClGrd1.cmdclients, &form.ClGrd1.cmdcolumns}) {
    form.click(*button);
    differ(*context().desk.active(), 4);
    context().desk.active()->press(keys::Escape);
  }
}

TEST_F(HomeTest, SearchesEveryShownColumnAsOneTypes) {
  exec(
      "insert into TempClTbl (CodeNo,Name,Status,Address,GroupCode,GroupName) "
      "values('P9','Meera Östlund','Individual','12 Hill Road, Pune','G1','Hill Family')");
  third& form = home();
  const auto found = [&](const char* typed) {
    press(form, typed);
    return form.ClGrd1.rows();
  };
  EXPECT_EQ(found(""), 3);
  EXPECT_EQ(found("pune MEER"), 1);
  EXPECT_EQ(form.ClGrd1.TextMatrix(1, 1), "Meera Östlund");
  form.press(keys::Escape);
  EXPECT_EQ(found(""), 3);
  EXPECT_EQ(found("öST"), 1);
  EXPECT_EQ(found("\b\b\b"), 3);
  EXPECT_EQ(form.ClGrd1.TextMatrix(form.ClGrd1.Row(), 0), "P9") << "the cursor stays on its client";

  // A hidden column is not searched; the arrangement is kept between runs.
  host().SaveSettingINI("ClientList", "Columns", "code:9,name:30");
  form.ClGrd1.refresh();
  EXPECT_EQ(found("pune"), 0);
  form.press(keys::Enter);
  EXPECT_TRUE(form.ClGrd1.shown()) << "no client, nothing to choose";
  form.press(keys::Escape);
  form.ClGrd1.setColumnWidth(1, 33);
  form.close();
  EXPECT_EQ(host().GetSettingINI("ClientList", "Columns", ""), "code:9,name:33");
  home().ClGrd1.cbostatus.choose(form.ClGrd1.cbostatus.find("Individual"));
  EXPECT_EQ(form.ClGrd1.rows(), 1);
  form.close();
  EXPECT_EQ(home().ClGrd1.rows(), 1) << "the filter is kept between runs";
}

TEST_F(HomeTest, TenThousandClientsAreSearchedWithoutDelay) {
  std::string values = "('C3','Client')";
  for (int i = 0; i < 10000; ++i) {
    values += ",('" + std::to_string(i) + "','Client " + std::to_string(i * 7919) + "')";
  }
  exec("insert into TempClTbl (CodeNo,Name) values " + values);
  third& form = home();
  statements();
  const auto start = std::chrono::steady_clock::now();
  press(form, "client 79");
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  EXPECT_GT(form.ClGrd1.rows(), 100);
  EXPECT_TRUE(statements().empty()) << "no query for each key";
  EXPECT_LT(taken.count(), 3.0) << "nine keys, perhaps sanitized on a busy machine";
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

  // An editor left open behind proposes what is left.
  addYear("C1", 2008, {{"Bank", "BANKS", 5}});
  frmcrtb& editor = open("C1", 2008);
  exec("insert into mast_part (partid,particular) values (2,'Bank zwo'),(2,'Banque')");
  editor.close();
  editor.show();
  for (const bool failing : {true, false}) {
    if (failing) host().statements().failNext("flush tables");
    form.click(form.mnurefresh);
    EXPECT_EQ(log().size(), failing ? 1U : 0U);
    std::size_t names = 0;
    for (int row = 1; row <= editor.vsfp.rows(); ++row) {
      names += editor.vsfp.cell(row, 0).starts_with("Ban") ? 1 : 0;
    }
    EXPECT_EQ(names, 1U);
    if (failing) exec("insert into mast_part (partid,particular) values (2,'Banco')");
  }
  editor.close();

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
  EXPECT_EQ(frontEnd.topics, (Texts{"2-2"}));
  form.click(form.mnuexit);
  EXPECT_FALSE(form.visible());
}

}  // namespace
}  // namespace quillet::support
