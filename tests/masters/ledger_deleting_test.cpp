// The ledger master through its form: deleting, linking, and what failures leave on the screen.
#include <gtest/gtest.h>

#include "masters/masters_fixture.h"

namespace quillet::support {
namespace {

TEST_F(LedgerMasterTest, DeletesOnlyWhatNothingUses) {
  const std::string refusal =
      "Particulars already in use. You can not delete this Particulars.\r\n\r\n"
      "Do you want to view the list of Client/F.Y. using the Particulars?";
  open();
  EXPECT_EQ(said(form.cmddelete), told("Please Select a Particulars."));
  for (const char* used : {"RENT", "ALPHA", "BETA"}) {
    pickLedger(used);
    EXPECT_EQ(said(form.cmddelete, {no}), asked(refusal)) << used;
    EXPECT_TRUE(form.vsf.shown());
  }
  press(form.cmddelete, {yes});
  EXPECT_EQ(form.lblheadC.caption(), "List of Clients/F.Y. using Particulars \"BETA\"");
  EXPECT_EQ(shown(form.vsfC), (Rows{{"Neighbour & Co", "01042008-31032009", "Closing Stock"}}));
  press(form.cmdbackC);
  pickLedger("GAMMA");
  messages();
  EXPECT_EQ(said(form.cmddelete, {no}),
            asked("Do you want to delele the Particulars [GAMMA] ?", "Delete Confirmation"));
  EXPECT_EQ(changes(), Texts());
  const std::string gamma = id("GAMMA");
  press(form.cmddelete, {yes});
  EXPECT_EQ(changes(), (Texts{"Delete from Mast_Part Where PartId=" + gamma, "Flush Tables"}));
  EXPECT_EQ(listed(), (Texts{"ALPHA", "BETA", "CASH", "RENT"}));
}

TEST_F(LedgerMasterTest, DeletesEverythingNotInUseAtOnce) {
  ledger("OMEGA");
  open();
  choose(notInUse);
  EXPECT_EQ(listed(), (Texts{"GAMMA", "OMEGA"}));
  EXPECT_EQ(form.lblcount.caption(), "2 of 6");
  for (Button* senseless : {&form.cmdadd, &form.cmdmodify, &form.cmdView}) {
    EXPECT_FALSE(senseless->enabled()) << senseless->name();
  }
  use("JRNL_1", id("OMEGA"), "1");  // somebody passed an entry meanwhile
  EXPECT_EQ(said(form.cmddelete, {yes}),
            asked("Particulars already in use. You can not delete these Particulars.\r\n\r\n"
                  "Do you want to view the list of Client/F.Y. using the Particulars?"));
  EXPECT_EQ(form.lblheadC.caption(), "List of Clients/F.Y. using Particulars");
  EXPECT_EQ(shown(form.vsfC), (Rows{{"Asha Traders", "01042008-31032009", "Adj. Entries"}}));
  press(form.cmdbackC);
  EXPECT_EQ(listed(), (Texts{"GAMMA"})) << "what is used meanwhile is listed no more";
  ledger("PI");
  exec("delete from JRNL_1");
  press(form.cmdback);
  open();
  choose(notInUse);
  const std::string ids = id("GAMMA") + "," + id("OMEGA") + "," + id("PI");
  EXPECT_EQ(said(form.cmddelete, {yes}),
            asked("Do you really want to Delete 3 Ledger Masters Not in Use ?"));
  EXPECT_EQ(changes(),
            (Texts{"Delete From Mast_Part Where PartId In (" + ids + ")", "Flush Tables"}));
  EXPECT_EQ(listed(), Texts());
  EXPECT_EQ(said(form.cmddelete), told("Please select a Particulars."));
  choose(everything);
  EXPECT_EQ(listed(), (Texts{"ALPHA", "BETA", "CASH", "RENT"}));
}

TEST_F(LedgerMasterTest, TheSearchNarrowsWhatIsListedAndWhatIsDeleted) {
  ledger("GAMMA RAY");
  open();
  form.focus(form.vsf);
  for (const char key : std::string("ray g")) form.press(static_cast<Key>(key));
  EXPECT_EQ(form.txtfind.text(), "ray g");
  EXPECT_EQ(listed(), (Texts{"GAMMA RAY"}));
  choose(notInUse);
  press(form.cmddelete, {yes});
  EXPECT_EQ(messages().size(), 1U);
  EXPECT_EQ(names(), (Texts{"RENT", "CASH", "ALPHA", "BETA", "GAMMA"}));
  form.press(keys::Escape);
  EXPECT_EQ(listed(), (Texts{"GAMMA"}));
  choose(inUse);
  EXPECT_EQ(listed(), (Texts{"ALPHA", "BETA", "CASH", "RENT"}));
  EXPECT_FALSE(form.cmdadd.enabled());
  EXPECT_TRUE(form.cmdmodify.enabled());
}

TEST_F(LedgerMasterTest, TheSelectionStaysAmongTheRowsShown) {
  for (const char* name : {"GAMMA RAY", "GREY", "X RAY"}) ledger(name);
  open();
  // A ledger is deleted in the list narrowed to those with the word.
  const struct {
    const char *word, *name, *next, *what;
  } cases[] = {{"ray", "GAMMA RAY", "X RAY", "the next one"},
               {"g", "GREY", "GAMMA", "or the last"},
               {"ray", "X RAY", "", "or none, when none is listed"}};
  for (const auto& each : cases) {
    type(form.txtfind, each.word);
    pickLedger(each.name);
    press(form.cmddelete, {yes});
    EXPECT_EQ(current(), each.next) << each.what;
    EXPECT_EQ(form.VTxt1.text(), each.next) << "the fields follow";
  }
  EXPECT_EQ(form.lblcount.caption(), "0 of 5");

  type(form.txtfind, "");
  link("BETA");
  type(form.txtfind, "alpha");
  tick("ALPHA");
  press(form.cmdlink, {yes});
  EXPECT_EQ(current(), "") << "what the ledgers became is not listed";
  type(form.txtfind, "rent");
  modify("RENT");
  enter("cash", {yes, yes});
  EXPECT_EQ(form.lblcount.caption() + current(), "3 of 3CASH") << "the search led to its choice";
  type(form.txtfind, "rent");
  EXPECT_EQ(said(form.cmdmodify), told("Please Select a Particulars."));
  add("omega");
  EXPECT_EQ(form.lblcount.caption() + current(), "4 of 4OMEGA") << "whatever was searched for";
}

// --- linking ------------------------------------------------------------------------------------

TEST_F(LedgerMasterTest, LinksSeveralToOneEverywhere) {
  for (const char* name : {"ALPHA", "GAMMA"}) use("TAB_2", id(name), "1");
  open();
  EXPECT_EQ(said(form.cmdlink), told("Please Select a Paritculars."));
  EXPECT_FALSE(form.lbllink.shown());
  link("GAMMA");
  EXPECT_EQ(form.lbllink.caption(),
            "Particulars selected below will be deleted & will be replaced with 'GAMMA'");
  EXPECT_EQ(shown(form.vsf)[0], (Texts{"ALPHA", "Y", ""}));
  EXPECT_EQ(listed(), (Texts{"ALPHA", "BETA", "CASH", "RENT"})) << "the target is not among them";
  tick("GAMMA");
  EXPECT_EQ(said(form.cmdlink), told("Please select a Partiuclar."));
  form.vsf.setCurrent(form.vsf.find(0, "ALPHA"));
  form.focus(form.vsf);
  form.press(keys::Space);
  tick("BETA");
  EXPECT_EQ(said(form.cmdlink, {no}),
            asked("Do you really want to Replace ?\r\n\r\n'ALPHA'\r\n'BETA'\r\nwith 'GAMMA'\r\n\r\n"
                  "Click 'Yes' only if you are sure about use of this facility.\r\n\r\n"
                  "Confirm ?"));
  EXPECT_EQ(changes(), Texts());
  const std::string list = " In (" + id("ALPHA") + "," + id("BETA") + ")";
  EXPECT_EQ(progressOf([&] { press(form.cmdlink, {yes}); }), "Replacing Ledgers.... 3 of 3 moving");
  EXPECT_EQ(changes(), updates(" Set PartId=" + id("GAMMA") + " Where PartId" + list,
                               {"Delete From Mast_Part Where PartId" + list, "Flush Tables"}));
  EXPECT_EQ(shown(form.vsf), (Rows{{"CASH", "Y"}, {"GAMMA", "Y"}, {"RENT", "Y"}}));
  EXPECT_EQ(rows("select PartId from TAB_2 union all select PartId from JRNL_2 union all select "
                 "partid from TRADE_1"),
            Rows(4, {id("GAMMA")}))
      << "two rows of one pair stay two until the pair is saved again";
}

TEST_F(LedgerMasterTest, LinkViewIsLeftWithoutAChange) {
  open();
  const Rows before = shown(form.vsf);
  const Act leaves[] = {[&] { press(form.cmdback); }, [&] { press(form.cmdcancel); },
                        [&] { EXPECT_NE(said(keys::Escape, {yes}), ""); }};
  for (const Act& leave : leaves) {
    link("CASH", {"RENT"});
    EXPECT_EQ(form.lblcount.caption(), "4 of 5, 1 ticked");
    leave();
    EXPECT_TRUE(form.visible());
    EXPECT_FALSE(form.lbllink.shown());
    EXPECT_EQ(form.lbllink.caption(), "All the Linked");
    EXPECT_EQ(shown(form.vsf), before);
    EXPECT_EQ(form.lblcount.caption(), "5 of 5");
    EXPECT_EQ(form.VTxt1.text(), "CASH") << "the target is selected again";
  }
  link("BETA");
  EXPECT_EQ(said(form.cmdupdate), told("Please select a Partiuclar.")) << "old ticks are forgotten";
  EXPECT_EQ(said(keys::Escape), "") << "nothing is ticked";
  EXPECT_FALSE(form.lbllink.shown());
  link("CASH", {"RENT"});
  type(form.txtfind, "rent");
  EXPECT_EQ(said(keys::Escape), "");
  EXPECT_EQ(form.txtfind.text(), "") << "the search first";
  for (const Act& stay : {Act([&] { form.press(keys::Escape); }), Act([&] { form.close(); })}) {
    answer({no});
    stay();
    EXPECT_EQ(onlyMessage(), asked("Do you want to Cancel this Entry?"));
    EXPECT_TRUE(form.lbllink.shown());
  }
  answer({yes});
  EXPECT_TRUE(form.close());
  EXPECT_EQ(changes(), Texts());
}

TEST_F(LedgerMasterTest, ALinkIsReadInFullAndCountedBeforeItIsConfirmed) {
  std::string names;
  for (int i = 101; i <= 130; ++i) {
    ledger("LEDGER " + std::to_string(i));
    names += "'LEDGER " + std::to_string(i) + "'\r\n";
  }
  open();
  link("CASH");
  type(form.txtfind, "ledger");
  for (const std::string& name : listed()) tick(name);
  EXPECT_EQ(form.lblcount.caption(), "30 of 35, 30 ticked");
  type(form.txtfind, "beta");
  EXPECT_EQ(form.lblcount.caption(), "1 of 35, 30 ticked (30 not listed)");
  EXPECT_EQ(said(form.cmdlink, {no}),
            asked("Do you really want to Replace ?\r\n\r\n" + names +
                  "with 'CASH'\r\n\r\nClick 'Yes' only if you are sure about use of this "
                  "facility.\r\n\r\nConfirm ?"));
  leave(form);
}

// --- failures -----------------------------------------------------------------------------------

TEST_F(LedgerMasterTest, NothingGoesIntoALedgerDeletedMeanwhile) {
  open();
  link("GAMMA", {"RENT"});
  exec("delete from Mast_Part where Particular='GAMMA'");
  press(form.cmdlink, {yes});
  EXPECT_EQ(messages().back(), "'GAMMA' is there no more: somebody has deleted it.");
  EXPECT_EQ(listed(), (Texts{"ALPHA", "BETA", "CASH", "RENT"}));
  EXPECT_FALSE(form.lbllink.shown());
  modify("BETA");
  exec("delete from Mast_Part where Particular='BETA'");
  enter("BET");
  EXPECT_EQ(listed(), (Texts{"ALPHA", "CASH", "RENT"}));
  EXPECT_EQ(status(), "It is there no more: somebody has deleted it.");
  exec("delete from Mast_Part where Particular='CASH'");
  modify("RENT");
  EXPECT_EQ(enter("cash"), "") << "a name that is gone is free";
  EXPECT_EQ(names(), (Texts{"CASH", "ALPHA"}));
}

TEST_F(LedgerMasterTest, AListThatCouldNotBeReadIsNotShownInPart) {
  fail("Select * From Mast_Part");
  open();
  EXPECT_EQ(listed(), Texts());
  add("OMEGA");
  EXPECT_EQ(listed(), (Texts{"ALPHA", "BETA", "CASH", "GAMMA", "OMEGA", "RENT"}));
  choose(notInUse);
  EXPECT_EQ(listed(), (Texts{"GAMMA", "OMEGA"}));
  choose(everything);
  type(form.txtfind, "rent");
  modify("RENT");
  exec("update Mast_Part set Particular='LEASE' where Particular='RENT'");
  fail("Update Mast_Part");
  enter("hire");
  press(form.cmdupdate);
  EXPECT_EQ(names()[0], "HIRE") << "what is modified stays in sight, whatever it is called by now";
}

// The grid shows what is stored after a failure.
TEST_F(LedgerMasterTest, AfterAFailureTheGridShowsWhatIsStored) {
  const auto adding = [&] {
    press(form.cmdadd);
    type(form.VTxt1, "A NEW ONE");
  };
  const auto renaming = [&](const char* name) {
    modify("RENT");
    type(form.VTxt1, name);
  };
  const auto stands = [&](const char* name) { return form.vsf.find(0, name) > 0; };
  const auto replaceAgain = [&](const Act& act) {
    if (!form.cmdmodify.enabled()) return act();
    if (!stands("RENT")) return;
    if (useOf("RENT") == "Y") {
      renaming("CASH");
      return act();
    }
    // What nothing uses any more is not replaced but deleted.
    pickLedger("RENT");
    press(form.cmddelete, {yes});
    pickLedger("CASH");
  };
  const auto linking = [&] { link("CASH", {"RENT", "ALPHA"}); };
  const auto linkAgain = [&](const Act& act) {
    if (stands("RENT")) return act();
    if (form.lbllink.shown()) press(form.cmdback);
  };
  const auto deleteAgain = [&](const Act& act) {
    if (stands("GAMMA")) act();
  };
  const Deed deeds[] = {
      {"adding", adding, form.cmdupdate, 0},
      {"renaming", [&] { renaming("A RENT"); }, form.cmdupdate, 0},
      {"replacing", [&] { renaming("CASH"); }, form.cmdupdate, 2, 0, replaceAgain},
      {"linking", linking, form.cmdlink, 1, 0, linkAgain},
      {"deleting", [&] { pickLedger("GAMMA"); }, form.cmddelete, 1, 0, deleteAgain},
      {"deleting all", [&] { choose(notInUse); }, form.cmddelete},
  };
  const auto result = [&] {
    Rows all = rows(
        "select PartId,Particular from Mast_Part union all select partid,1 from TAB_1 "
        "union all select PartId,2 from JRNL_2 union all select partid,3 from TRADE_1 "
        "order by 1,2");
    for (auto& row : shown(form.vsf)) all.push_back(row);
    all.push_back({form.cmdcancel.enabled() ? "editing" : "browsing", form.lblcount.caption()});
    return all;
  };
  ledger("OMEGA");
  keep({"Mast_Part", "TAB_1", "JRNL_2", "TRADE_1"});
  for (const Deed& deed : deeds) {
    failEach(deed, result, [&] {
      Rows all;
      for (int row = 1; row <= form.vsf.rows(); ++row) all.push_back({form.vsf.cell(row, 0)});
      EXPECT_EQ(all, rows("select Particular from Mast_Part order by 1"));
      if (form.cmdupdate.enabled() && form.lbllink.shown()) {
        EXPECT_TRUE(!stands("RENT") || form.vsf.ticked(form.vsf.find(0, "RENT"))) << "ticks stay";
      } else if (form.cmdupdate.enabled() && deed.questions == 0) {
        EXPECT_EQ(form.VTxt1.text().substr(0, 2), "A ") << "what was typed stays";
        EXPECT_NE(status(), "");
      }
    });
  }
}

}  // namespace
}  // namespace quillet::support
