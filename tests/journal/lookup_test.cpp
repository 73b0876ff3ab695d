// Ledgers and groups of a voucher's lines: looked up while they are typed, and ledgers created.
#include "entry_fixture.h"

namespace quillet::support {
namespace {

using JournalLookup = JournalEntry;

TEST_F(JournalLookup, ListFollowsWhatIsTyped) {
  frmjrnl& form = journal();
  const struct {
    const char* typed;
    Rows list;
    int current;
  } cases[] = {
      {"bank", {{"Bank Charges"}, {"Banking Fee"}, {"Axis Bank"}}, 1},
      {"CASH", {{"Cash"}, {"Petty Cash"}}, 1},
      {"fee", {{"Banking Fee"}}, 0},
      {"ank", {}, 0},
      {"bank ", {{"Bank Charges"}}, 1},
  };
  for (const auto& c : cases) {
    form.txtledger[0].setText("");
    form.focus(form.cboside[0]);
    EXPECT_FALSE(form.VSF3.visible());
    type(form.txtledger[0], c.typed);
    EXPECT_EQ(shown(form.VSF3), c.list) << c.typed;
    EXPECT_EQ(form.VSF3.current(), c.current) << c.typed;
    EXPECT_TRUE(form.VSF3.visible());
    EXPECT_EQ(form.VSF3.dropOf(), &form.txtledger[0]);
    form.txtledger[0].setText("");
  }
  // Enter takes the proposal, the arrows the rest, a click any.
  enterLedger("bank", keys::Enter);
  EXPECT_EQ(form.txtledger[0].text(), "Bank Charges");
  type(form.txtledger[0], "bank");
  EXPECT_NE(form.lblhint.caption(), "");
  form.press(keys::Down);
  form.press(keys::Down);
  EXPECT_EQ(form.txtledger[0].text(), "Axis Bank");
  EXPECT_EQ(form.lblhint.caption(), "") << "it named the ledger proposed before";
  form.press(keys::Enter);
  EXPECT_EQ(form.txtledger[0].text(), "Axis Bank");
  EXPECT_EQ(active(), "txtgroup0");
  type(form.txtledger[0], "cash");
  form.VSF3.setCurrent(2);
  form.doubleClick(form.VSF3);
  EXPECT_EQ(form.txtledger[0].text(), "Petty Cash");
  EXPECT_EQ(active(), "txtgroup0");
  // Without anything typed the arrows walk through all names, from where the box stands.
  form.focus(form.txtledger[0]);
  form.press(keys::Up);
  EXPECT_EQ(form.txtledger[0].text(), "Cash");
  EXPECT_EQ(form.VSF3.rows(), 6);
  // Groups are not made here: the beginning of a name is enough.
  type(form.txtgroup[0], "cap");
  form.press(keys::Tab);
  EXPECT_EQ(form.txtgroup[0].text(), "CAPITAL");
  EXPECT_EQ(messages(), Texts{});
}

TEST_F(JournalLookup, AnotherLedgerDoesNotKeepTheGroupProposedForTheFirst) {
  frmjrnl& form = journal();
  const auto groupOf = [&](const char* name) {
    enterLedger(name, keys::Enter);
    return form.txtgroup[0].text();
  };
  EXPECT_EQ(groupOf("Cash"), "BANKS");
  EXPECT_EQ(groupOf("Petty Cash"), "");
  type(form.txtdramt[0], "5");
  form.click(form.cmdupdate);
  EXPECT_EQ(messages(), Texts{"Please select a Group."});
  // A group that a person chose stays until a ledger proposes its own.
  type(form.txtgroup[0], "CAPITAL");
  form.press(keys::Enter);
  EXPECT_EQ(groupOf("Axis Bank"), "CAPITAL");
  EXPECT_EQ(groupOf("Rent Payable"), "RENT");
  EXPECT_EQ(groupOf("Axis Bank"), "");
}

TEST_F(JournalLookup, CreatesALedgerWhenToldTo) {
  frmjrnl& form = journal();
  const std::string question = "Do you want to Create New Ledger 'Rent'?";
  type(form.txtledger[0], " Rent ");
  statements();
  no();
  form.press(keys::Tab);
  EXPECT_EQ(messages(), Texts{question});
  EXPECT_EQ(statements(), Texts{"Select * From Mast_Part Where Particular='RENT'"});
  EXPECT_EQ(form.txtledger[0].text(), "");
  EXPECT_EQ(active(), "txtledger0");

  yes();
  enterLedger("Rent");
  EXPECT_EQ(messages(), Texts{question});
  EXPECT_EQ(active(), "txtgroup0");
  EXPECT_EQ(value("select count(*) from Mast_Part where Particular='Rent'"), "1");
  // It is in the list from now on.
  type(form.txtledger[0], "ren");
  EXPECT_EQ(shown(form.VSF3), (Rows{{"Rent"}, {"Rent Payable"}}));

  // Known to the ledger master, though not to the list.
  exec("insert into Mast_Part values(900,'Elsewhere')");
  enterLedger("ELSEWHERE", keys::Enter);
  EXPECT_EQ(form.txtledger[0].text(), "Elsewhere");
  EXPECT_EQ(messages(), Texts{});

  // Names that are looked up late: the focus left for "Cancel", which was then not meant.
  type(form.txtledger[0], "Cash");
  form.focus(form.cmdcancel);
  no();
  form.click(form.cmdcancel);
  form.click(form.cmdupdate);
  EXPECT_EQ(messages().back(), "Please select a Group.");

  exec(
      "create trigger refuses before insert on mast_part for each row signal sqlstate '45000' set "
      "message_text='refused'");
  yes();
  enterLedger("Nobody");
  EXPECT_EQ(messages().back(), "Failed to Create Master [Nobody].");
  EXPECT_EQ(form.txtledger[0].text(), "");
  EXPECT_EQ(active(), "txtledger0");
  exec("drop trigger refuses");
  log();

  host().statements().failNext("Select * From Mast_Part");
  enterLedger("Unreachable");
  EXPECT_EQ(form.txtledger[0].text(), "Unreachable") << "for another attempt";
  EXPECT_EQ(active(), "txtledger0");
  EXPECT_NE(form.lblhint.caption().find("could not be looked up"), std::string::npos);
  EXPECT_EQ(trapped(), Texts{"frmjrnl\tCHECKLEDGER"});
}

TEST_F(JournalLookup, ANameThatTheDatabaseTakesForAnotherIsAskedAbout) {
  frmjrnl& form = journal();
  exec("insert into Mast_Part values(900,'m²')");
  const std::string question =
      "There is 'm²', and the database cannot tell 'M2' from it.\r\n\r\nDo you mean 'm²'?";
  no();
  enterLedger("\u200B M2");
  EXPECT_EQ(messages(), Texts{question});
  EXPECT_EQ(active(), "txtledger0");
  EXPECT_EQ(form.txtledger[0].text(), "\u200B M2") << "to be changed";
  EXPECT_NE(form.lblhint.caption().find("Choose a name"), std::string::npos);
  yes();
  form.press(keys::Enter);
  EXPECT_EQ(messages(), Texts{question});
  EXPECT_EQ(form.txtledger[0].text(), "m²");
  EXPECT_EQ(active(), "txtgroup0");
  enterLedger("\u200B");
  EXPECT_EQ(messages(), Texts()) << "no name at all";
  // Typed plainly, a name that was stored otherwise is that name.
  exec("insert into Mast_Part values(901,'Old\u200B Rent')");
  enterLedger("old\u00A0 rent");
  EXPECT_EQ(form.txtledger[0].text(), "Old\u200B Rent");
  EXPECT_EQ(messages(), Texts());
  yes();
  enterLedger("New\u00A0\u00A0Fees\uFEFF");
  EXPECT_EQ(messages(), Texts{"Do you want to Create New Ledger 'New Fees'?"});
  EXPECT_EQ(value("select hex(Particular) from Mast_Part where Particular='New Fees'"),
            "4E65772046656573");
}

TEST_F(JournalLookup, ProposesTheFirstGroupAsTheListIsOrdered) {
  // Byte by byte "CAPITAL" would come before "bank overdraft". A group that is gone proposes
  // nothing.
  addYear("C1", 2010,
          {{"Overdraft", "CAPITAL", 1}, {"Overdraft", "bank overdraft", 1}, {"Loan", "SALES", 1}});
  exec("insert into JRNL_2 values('C1',1,1,'2010-06-02'," + std::to_string(ledger("Loan")) +
       ",999,5,''),('C1',1,2,'2010-06-02'," + std::to_string(ledger("Overdraft")) + ",999,-5,'')");
  frmjrnl& form = open("C1", 2010);
  form.click(form.cmdadd);
  type(form.txtdt, "02062010");
  for (const auto& [name, proposed] :
       {std::pair{"Overdraft", "bank overdraft"}, std::pair{"Loan", "SALES"}}) {
    enterLedger(name, keys::Enter);
    EXPECT_EQ(form.txtgroup[0].text(), proposed);
  }
  // A voucher on a group that is gone is shown with what is left of it, refused as it is, and can
  // be taken out.
  giveUp();
  modifyFirst();
  EXPECT_EQ(form.txtledger[0].text(), "Loan");
  EXPECT_EQ(form.txtgroup[0].text(), "");
  form.click(form.cmdupdate);
  EXPECT_EQ(messages().back(), "Please select a Group.");
  giveUp();
  pick(1);
  yes();
  form.press(keys::Delete);
  EXPECT_EQ(form.vsf.rows(), 0);
  EXPECT_EQ(rows("select amt,nid from TAB_2 where allid=999 order by nid"),
            (Rows{{"5", "1"}, {"5", "2"}}))
      << "the posting is reversed on the group it was made on";
  messages();
}

// The arrows choose between them, and a voucher that is modified stays with the one it was passed
// on.
TEST_F(JournalLookup, LedgersOfOneNameStayApart) {
  exec("insert into Mast_Part values(950,'Cash'),(951,'Cash'),(901,' Owner\\'s Share ')");
  frmjrnl& form = open("C1", 2008);
  form.click(form.cmdadd);
  enterLedger("own", keys::Enter);
  EXPECT_EQ(form.txtledger[0].text(), "Owner's Share");
  type(form.txtledger[0], "cash");
  form.press(keys::Down);
  form.press(keys::Down);
  form.press(keys::Tab);
  type(form.txtgroup[0], "BANKS");
  type(form.txtdramt[0], "5");
  form.press(keys::Enter);
  fillLine(1, {"Cash", "BANKS", "5", false});
  form.click(form.cmdupdate);
  exec("update JRNL_1 set PartId=950 where LSrNo=2");
  modifyFirst();
  type(form.txtnarr, "seen");
  form.focus(form.txtledger[0]);
  form.click(form.cmdupdate);
  EXPECT_EQ(rows("select PartId,Amount,VNar from JRNL_1 order by LSrNo"),
            (Rows{{"951", "5", "seen"}, {"950", "-5", "seen"}}));
}

}  // namespace
}  // namespace quillet::support
