// How the masters are reached from the home form and the editor, and what comes back from them.
#include <gtest/gtest.h>

#include "editor/frmcrtb.h"
#include "home/third.h"
#include "masters/masters_fixture.h"

namespace quillet::support {
namespace {

class OpeningTest : public MastersTest {
 protected:
  OpeningTest() {
    group("RENT", 22);
    addYear("C1", 2008, {{"Shop", "RENT", 10}});
    addYear("C1", 2009, {{"Shop", "RENT", 20}});
  }
  frmcrtb& editor(int firstYear) {
    select("C1", firstYear);
    auto& form = static_cast<frmcrtb&>(*practice.forms().ObjCreate());
    form.show();
    statements();
    return form;
  }
  frmgrpmas& groupMaster() { return dynamic_cast<frmgrpmas&>(*context().desk.active()); }
  void addGroup(frmgrpmas& master, const std::string& name) {
    press(master, master.cmdadd);
    type(master.Text1, name);
    choose(master.Combo1, "EXPENSES");
    press(master, master.cmdupdate);
  }
};

TEST_F(OpeningTest, TheHomeFormOpensBothMastersOverItself) {
  auto& home = static_cast<third&>(*practice.forms().ObjThird());
  home.show();
  const struct {
    Button& button;
    const char* form;
  } cases[] = {{home.cmdgrpmas, "frmgrpmas"}, {home.cmdledmas, "frmtbledmas"}};
  for (const auto& each : cases) {
    press(home, each.button);
    Form& master = *context().desk.active();
    EXPECT_EQ(master.name(), each.form);
    EXPECT_TRUE(master.modal());
    EXPECT_TRUE(master.close());
    EXPECT_EQ(context().desk.active(), &home);
  }
}

TEST_F(OpeningTest, ANewGroupGoesIntoTheEntry) {
  frmcrtb& form = editor(2008);
  type(form.txtpart, "Bus tickets");
  ASSERT_TRUE(form.click(form.mnunewgroup));
  addGroup(groupMaster(), "FARES");
  groupMaster().close();
  EXPECT_EQ(form.txtpart.text(), "Bus tickets");
  EXPECT_EQ(form.txtgroup.text(), "FARES");
  type(form.txtamount, "5");
  type(form.txtdrcr, "D");
  form.press(keys::Enter);
  EXPECT_TRUE(messages().empty()) << "the editor knows the group";
  EXPECT_EQ(shown(form.vsfm)[1], (Texts{"Bus tickets", "FARES", "5.00", "DR"}));
}

TEST_F(OpeningTest, AMasterThatChangedNothingCostsTheEditorNothing) {
  frmcrtb& form = editor(2008);
  type(form.txtgroup, "RE");
  ASSERT_TRUE(form.click(form.mnunewgroup));
  statements();
  groupMaster().close();
  EXPECT_EQ(statements(), Texts());
  EXPECT_EQ(form.txtgroup.text(), "RE");
}

TEST_F(OpeningTest, TheEditorShowsGroupsRenamedMeanwhile) {
  frmcrtb& form = editor(2008);
  ASSERT_TRUE(form.click(form.mnunewgroup));
  frmgrpmas& master = groupMaster();
  pick(master.vsf, 1, "RENT");
  press(master, master.cmdmodify);
  type(master.Text1, "RENT PAID");
  press(master, master.cmdupdate);
  master.close();
  EXPECT_EQ(shown(form.vsfm), (Rows{{"Shop", "RENT PAID", "10.00", "DR"}}));
  EXPECT_EQ(form.txtgroup.text(), "");
}

TEST_F(OpeningTest, TheBindingIsThatOfTheYearInView) {
  frmcrtb& form = editor(2009);
  const struct {
    int view;
    const char* period;
    const char* table;
  } cases[] = {{0, "01/04/2009 to 31/03/2010", "RMGRP_2"},
               {1, "01/04/2008 to 31/03/2009", "RMGRP_1"}};
  for (const auto& each : cases) {
    ASSERT_TRUE(form.click(form.mnuyrs[each.view]));
    statements();
    ASSERT_TRUE(form.click(form.cmdgrpmanf));
    Form& binding = *context().desk.active();
    EXPECT_EQ(binding.caption(),
              "Group Binding (Manufacturing) of Asha Traders for the Period from " +
                  std::string(each.period));
    EXPECT_FALSE(statementsWith(std::string("from ") + each.table + " Where Code_No='C1'").empty());
    dialogs.queueAnswer(Answer::Yes);
    EXPECT_TRUE(binding.close());
  }
}

}  // namespace
}  // namespace quillet::support
