// The suite's commands on the home form: clients entered, altered and deleted.
#include "suite/client_form.h"

#include <gtest/gtest.h>

#include "data/errors.h"
#include "home/third.h"
#include "suite/passwords.h"
#include "suite/practice_commands.h"
#include "support/practice.h"

namespace quillet::suite {
namespace {

class ClientFormTest : public support::PracticeTest {
 protected:
  ClientFormTest() : home(static_cast<third&>(*practice.forms().ObjThird())) {}

  template <class F = frmClient>
  F& command(const char* name) {
    home.click(*home.find(name));
    return dynamic_cast<F&>(*context().openForms.active());
  }
  frmClient& typeNew(const std::string& code, const std::string& name) {
    auto& form = command("mnunewclient");
    type(form.txtcode, code);
    type(form.txtname, name);
    return form;
  }
  void tickPassword(frmClient& form, const std::string& password) {
    form.click(form.chkpassword);
    type(form.txtpassword, password);
    type(form.txtagain, password);
  }
  // Tables in which the code stands, each with how often.
  std::string rowsOf(const std::string& code) {
    std::string found;
    for (const auto& [table, column] : {std::pair{"Main_Info1", "code_no"},
                                        {"owner1", "code"},
                                        {"TempClTbl", "CodeNo"},
                                        {"AllGrp_Map", "Code_No"},
                                        {"SuitePassword", "Code"}}) {
      found += value(std::string("select count(*) from ") + table + " where " + column + "='" +
                     code + '\'');
    }
    return found;
  }
  std::string currentClient() { return home.ClGrd1.TextMatrix(home.ClGrd1.current(), 1); }

  third& home;
};

TEST_F(ClientFormTest, WhatCouldNotBeStoredStaysTyped) {
  home.show();
  auto& form = typeNew("A1", "Asha");
  tickPassword(form, "secret");
  const std::function<void()> breaks[] = {
      [&] {
        exec("rename table SuitePassword to Elsewhere");
        form.click(form.cmdsave);
        exec("rename table Elsewhere to SuitePassword");
      },
      [&] {
        const Act running(context().openForms.acts);
        EXPECT_THROW(exec("kill " + value("select connection_id()")), RunTimeError);
        form.click(form.cmdsave);
      },
  };
  for (const auto& each : breaks) {
    each();
    ASSERT_TRUE(form.visible());
    EXPECT_EQ(rowsOf("A1"), "00000");
    EXPECT_EQ(form.txtname.text() + form.txtpassword.text(), "Ashasecret");
    EXPECT_NE(form.lblhint.caption(), "");
    EXPECT_FALSE(frontEnd.notices().open().empty());
    frontEnd.notices().close();
    log();
  }
  form.click(form.cmdsave);
  EXPECT_FALSE(form.visible());
  EXPECT_EQ(rowsOf("A1"), "10101");
  EXPECT_EQ(currentClient(), "Asha");
}

TEST_F(ClientFormTest, ANewClientIsCurrentWhateverTheListWasKeptTo) {
  Client first;
  first.code = "C1", first.name = "Asha", first.status = "Firm";
  suite::addClient(practice.database(), first);
  practice.settings().set("ClientList", "Status", "Firm");
  home.show();
  home.ClGrd1.search("asha");
  auto& form = typeNew("Z9", "Zoya");
  form.click(form.cmdsave);
  EXPECT_EQ(currentClient(), "Zoya");
  // Years of another client in view give way to the list.
  form.close();
  home.ClGrd1.setCurrent(1);
  home.doubleClick(home.ClGrd1);
  ASSERT_TRUE(home.Frame1.visible());
  messages();
  auto& next = typeNew("B2", "Bina");
  next.click(next.cmdsave);
  EXPECT_FALSE(home.Frame1.visible());
  EXPECT_EQ(currentClient(), "Bina");
}

TEST_F(ClientFormTest, ACodeIsAlteredWithAllThatStandsUnderIt) {
  addClient("C1", "Asha");
  exec("insert into AllGrp_Map(Code_No,AllId) values('C1',1)");
  exec("insert into owner1(code,f_nm,l_nm) values('C1','Asha','Rao')");
  Passwords::set(practice.database(), PasswordKind::client, "C1", "secret");
  home.show();
  dialogs.queuePassword("secret");
  auto& form = command("mnualterclient");
  EXPECT_TRUE(form.optperson.checked());
  type(form.txtcode, "c2");
  form.click(form.optfirm);
  type(form.txtname, "Asha & Co");
  form.click(form.cmdsave);
  EXPECT_EQ(rowsOf("C1"), "00000");
  EXPECT_EQ(rowsOf("c2"), "10111") << "the password stays, the owner's name goes";
  EXPECT_EQ(currentClient(), "Asha & Co");

  // Deleted, nothing of it is left to the next client of that code.
  dialogs.queuePassword("secret");
  dialogs.queueAnswer(Answer::Yes);
  home.click(*home.find("mnudeleteclient"));
  EXPECT_EQ(rowsOf("c2"), "00000");
  EXPECT_EQ(home.ClGrd1.rows(), 0);
}

TEST_F(ClientFormTest, BooksKeepTheirClient) {
  const std::pair<std::string, const char*> cases[] = {
      {addYear("C1", 2008), "2008-2009"},
      {"insert into JRNL_2(code_no,VID) values('C2',1)", "Lines of it stand in JRNL_2"}};
  addClient("C1", "Asha");
  addClient("C2", "Bina");
  exec(cases[1].first);
  home.show();
  for (int row = 1; row <= 2; ++row) {
    home.ClGrd1.setCurrent(row);
    home.click(*home.find("mnudeleteclient"));
    const Texts told = messages();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_NE(told[0].find(cases[row - 1].second), std::string::npos) << told[0];
    auto& form = command("mnualterclient");
    EXPECT_TRUE(form.txtcode.locked());
    type(form.txtname, "Altered");
    // Deleted by somebody else meanwhile.
    if (row == 2) exec("delete from Main_Info1 where code_no='C2'");
    form.click(form.cmdsave);
    EXPECT_EQ(form.visible(), row == 2);
    EXPECT_EQ(messages().size(), row == 2 ? 1U : 0U);
  }
  EXPECT_EQ(rowsOf("C1"), "10100");
}

// Asked by the window that starts, while there is no name.
TEST_F(ClientFormTest, TheFirmIsAskedForUntilItHasAName) {
  const auto asked = [&] {
    practice.commands().askForFirm();
    return dynamic_cast<frmFirm*>(context().openForms.active());
  };
  home.show();
  EXPECT_EQ(asked(), nullptr);
  practice.settings().setCompanyName("");
  ASSERT_NE(asked(), nullptr);
  context().openForms.active()->press(keys::Escape);
  frmFirm* form = asked();
  ASSERT_NE(form, nullptr);
  type(form->txtfirm, std::string(101, 'x'));
  form->press(keys::Enter);
  EXPECT_EQ(messages().size(), 1U);
  EXPECT_TRUE(form->visible());
  type(form->txtfirm, " Rao  & Co ");
  form->press(keys::Enter);
  EXPECT_EQ(host().COMPANY_NAME(), "Rao & Co");
  EXPECT_EQ(asked(), nullptr);
}

}  // namespace
}  // namespace quillet::suite
