// How the masters are reached from the home form and the editor, and what comes back from them.
#include <gtest/gtest.h>

#include "editor/frmcrtb.h"
#include "home/third.h"
#include "masters/frmgrpRM.h"
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
  // A master over the home form, to which a person went back from the editor.
  template <class Master>
  Master& master(Button third::*command) {
    auto& home = static_cast<third&>(*practice.forms().ObjThird());
    home.show();
    EXPECT_TRUE(home.click(home.*command));
    statements();
    EXPECT_TRUE(context().openForms.active()->modal());
    return dynamic_cast<Master&>(*context().openForms.active());
  }
  frmtbledmas& ledgerMaster() { return master<frmtbledmas>(&third::cmdledmas); }
  frmgrpmas& homesGroupMaster() { return master<frmgrpmas>(&third::cmdgrpmas); }
  frmgrpmas& groupMaster() { return dynamic_cast<frmgrpmas&>(*context().openForms.active()); }
  void renameShop(frmtbledmas& master) {
    pick(master.vsf, 0, "Shop");
    press(master, master.cmdmodify);
    type(master.VTxt1, "store");
    press(master, master.cmdupdate);
  }
  // Ends an entry in the editor.
  void debit(frmcrtb& form, const std::string& amount) {
    type(form.txtamount, amount);
    type(form.txtdrcr, "D");
    form.press(keys::Enter);
  }
  void addGroup(frmgrpmas& master, const std::string& name) {
    press(master, master.cmdadd);
    type(master.Text1, name);
    choose(master.Combo1, "EXPENSES");
    press(master, master.cmdupdate);
  }
};

TEST_F(OpeningTest, ANewGroupGoesIntoTheEntry) {
  frmcrtb& form = editor(2008);
  type(form.txtpart, "Bus tickets");
  press(form, form.mnunewgroup);
  addGroup(groupMaster(), "FARES");
  groupMaster().close();
  EXPECT_EQ(form.txtpart.text(), "Bus tickets");
  EXPECT_EQ(form.txtgroup.text(), "FARES");
  debit(form, "5");
  EXPECT_TRUE(messages().empty()) << "the editor knows the group";
  EXPECT_EQ(shown(form.vsfm)[1], (Texts{"Bus tickets", "FARES", "5.00", "DR"}));
}

TEST_F(OpeningTest, TheEditorShowsGroupsRenamedMeanwhile) {
  frmcrtb& form = editor(2008);
  press(form, form.mnunewgroup);
  frmgrpmas& master = groupMaster();
  pick(master.vsf, 0, "RENT");
  press(master, master.cmdmodify);
  type(master.Text1, "RENT PAID");
  press(master, master.cmdupdate);
  master.close();
  EXPECT_EQ(shown(form.vsfm), (Rows{{"Shop", "RENT PAID", "10.00", "DR"}}));
  EXPECT_EQ(form.txtgroup.text(), "");
}

TEST_F(OpeningTest, AnEmptyYearIsNotOfferedItsImportForANewGroup) {
  addYear("C1", 2010);
  answer({no});
  frmcrtb& form = editor(2010);
  press(form, form.mnunewgroup);
  messages();
  addGroup(groupMaster(), "FARES");
  groupMaster().close();
  EXPECT_EQ(messages(), Texts());
  EXPECT_EQ(form.txtgroup.text(), "FARES");
  frmtbledmas& ledgers = ledgerMaster();
  renameShop(ledgers);
  ledgers.close();
  EXPECT_EQ(messages(), Texts());
}

TEST_F(OpeningTest, ANewGroupCanTakeTheLinesOfTheGroupView) {
  frmcrtb& form = editor(2008);
  ASSERT_TRUE(form.click(form.mnugroup));
  press(form, form.mnunewgroup);
  addGroup(groupMaster(), "FARES");
  groupMaster().close();
  EXPECT_GT(form.cbotgroup.find("FARES"), 0);
}

// --- the editor open behind ---------------------------------------------------------------------

TEST_F(OpeningTest, TheEditorBehindShowsWhatTheLedgerMasterChanged) {
  frmcrtb& form = editor(2008);
  form.vsfm.setCurrent(1);
  ASSERT_TRUE(form.click(form.mnualter));
  frmtbledmas& ledgers = ledgerMaster();
  renameShop(ledgers);
  EXPECT_TRUE(ledgers.close());
  EXPECT_EQ(shown(form.vsfm), (Rows{{"STORE", "RENT", "10.00", "DR"}}));
  EXPECT_EQ(form.txtpart.text(), "") << "the old name is not entered again";
  EXPECT_EQ(form.vsfp.find(0, "Shop"), 0);
  form.vsfm.setCurrent(1);
  ASSERT_TRUE(form.click(form.mnualter));
  debit(form, "15");
  EXPECT_EQ(rows("select Particular from Mast_Part"), (Rows{{"STORE"}}));
  EXPECT_EQ(messages(), Texts());
}

TEST_F(OpeningTest, TheEditorBehindShowsWhatTheGroupMasterChanged) {
  group("FARES", 22);
  frmcrtb& form = editor(2008);
  frmgrpmas& groups = homesGroupMaster();
  press(groups, groups.cmdMerge);
  groups.vsM.tick(groups.vsM.find(0, "RENT"), true);
  pick(groups.vsMW, 0, "FARES");
  press(groups, groups.cmdMergeGroup, {yes});
  EXPECT_TRUE(groups.close());
  EXPECT_EQ(shown(form.vsfm), (Rows{{"Shop", "FARES", "10.00", "DR"}}));
  EXPECT_EQ(shown(form.vsfg), (Rows{{"FARES"}})) << "no line goes into the merged group";
}

TEST_F(OpeningTest, AMasterThatChangedNothingLeavesTheEditorBehindAlone) {
  frmcrtb& form = editor(2008);
  type(form.txtpart, "Sh");
  press(form, form.mnunewgroup);
  statements();
  groupMaster().close();
  EXPECT_EQ(statements(), Texts());
  const Texts clients{"select * from TempClTbl order by Name,CodeNo"};
  ledgerMaster().close();
  EXPECT_EQ(statements(), clients) << "the home form's list";
  homesGroupMaster().close();
  EXPECT_EQ(statements(), clients);
  EXPECT_EQ(form.txtpart.text(), "Sh");
  EXPECT_TRUE(form.close());
  addGroup(homesGroupMaster(), "FARES");
  context().openForms.active()->close();
  EXPECT_EQ(form.vsfm.rows(), 1) << "a closed editor is not loaded";
  EXPECT_TRUE(statementsWith("Select * From TAB_1").empty());
}

// --- the binding --------------------------------------------------------------------------------

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
    Form& binding = *context().openForms.active();
    EXPECT_EQ(binding.caption(),
              "Group Binding (Manufacturing) of Asha Traders for the Period from " +
                  std::string(each.period));
    EXPECT_FALSE(statementsWith(std::string("from ") + each.table + " Where Code_No='C1'").empty());
    answer({yes});
    EXPECT_TRUE(binding.close());
  }
}

}  // namespace
}  // namespace quillet::support
