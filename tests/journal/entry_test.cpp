// Typing a voucher: where the keys lead, names and dates, sides and balances, lines made, removed
// and scrolled.
#include "editor/frmcrtb.h"
#include "journal_fixture.h"

namespace quillet::support {
namespace {

class JournalEntry : public JournalTest {
 protected:
  JournalEntry() {
    addYear("C1", 2008, {{"Cash", "BANKS", 500}, {"Rent Payable", "RENT", -40}});
    for (const char* name : {"Axis Bank", "Bank Charges", "Banking Fee", "Petty Cash"}) {
      ledger(name);
    }
    clock.set({2008, 6, 15});
    open("C1", 2008).click(journal().cmdadd);
  }
  std::string active() {
    const Control* control = journal().active();
    if (!control) return "nothing";
    return control->name() + (control->index() < 0 ? "" : std::to_string(control->index()));
  }
  // Into the first line, and on.
  void enterLedger(const std::string& name, const Key& key = keys::Tab) {
    type(journal().txtledger[0], name);
    journal().press(key);
  }
  frmcrtb& openEditor(int firstYear) {
    select("C1", firstYear);
    auto& editor = static_cast<frmcrtb&>(*practice.forms().ObjCreate());
    editor.show();
    return editor;
  }
  frmjrnl& openFrom(frmcrtb& editor) {
    editor.click(editor.mnujournal);
    return dynamic_cast<frmjrnl&>(*context().desk.active());
  }
  void passCashAndClose(frmjrnl& form, const char* date) {
    form.click(form.cmdadd);
    form.txtdt.setText(date);
    form.LOADCONTROLS();
    form.cboside[1].choose(1);
    for (const int line : {0, 1}) {
      type(form.txtledger[line], line == 0 ? "Cash" : "Petty Cash");
      type(form.txtgroup[line], "BANKS");
      type(line == 0 ? form.txtdramt[line] : form.txtcramt[line], "1");
    }
    form.click(form.cmdupdate);
    yes();
    EXPECT_TRUE(form.close());
    messages();
  }
};

TEST_F(JournalEntry, EnterLeadsFromBoxToBox) {
  frmjrnl& form = journal();
  Texts way{active()};
  const auto enter = [&](const std::string& typed = {}) {
    for (const char32_t c : charactersOf(typed)) form.press(c);
    form.press(keys::Enter);
    way.push_back(active());
  };
  for (const char* typed : {"", "", "Cash", "", "12.5"}) enter(typed);
  EXPECT_EQ(form.txtledger[0].text(), "Cash");
  EXPECT_EQ(form.txtgroup[0].text(), "BANKS");
  EXPECT_EQ(form.txtdramt[0].text(), "12.50");
  EXPECT_EQ(form.txtcurbal[0].text(), "512.50Dr");
  EXPECT_EQ(form.cboside[1].text(), "To");
  for (const char* typed : {"", "rent payable", "", "12.5"}) enter(typed);
  EXPECT_EQ(form.txtcurbal[1].text(), "52.50Cr");
  form.press(keys::Tab);
  way.push_back(active());
  for (const char* typed : {"June", ""}) enter(typed);
  EXPECT_EQ(way, (Texts{"txtdt", "cboside0", "txtledger0", "txtgroup0", "txtdramt0", "cboside1",
                        "txtledger1", "txtgroup1", "txtcramt1", "cboside2", "txtnarr", "cmdupdate",
                        "vsf"}));
  EXPECT_EQ(
      rows("select VID,LSrNo,VDate,Amount,VNar from JRNL_1 order by LSrNo"),
      (Rows{{"1", "1", "2008-06-15", "12.5", "June"}, {"1", "2", "2008-06-15", "-12.5", "June"}}));
}

TEST_F(JournalEntry, TabGoesOnInTheOrderShown) {
  Texts way{active()};
  for (const auto& key : {keys::Tab, keys::Tab, keys::Tab, keys::Tab, keys::Tab, keys::BackTab}) {
    journal().press(key);
    way.push_back(active());
  }
  EXPECT_EQ(way, (Texts{"txtdt", "cboside0", "txtledger0", "txtgroup0", "txtdramt0", "txtnarr",
                        "txtdramt0"}));
}

TEST_F(JournalEntry, TakesAGoodDateOnly) {
  frmjrnl& form = journal();
  EXPECT_EQ(form.txtdt.text(), "15/06/2008");
  const Texts valid{"Please Specify a Valid Date."};
  const Texts between{"Please Specify a Valid Date between 01/04/2008 and 31/03/2009."};
  for (const auto& [typed, told] : {std::pair{"", valid},
                                    {"010", valid},
                                    {"31042008", valid},
                                    {"29022009", valid},
                                    {"31032008", between},
                                    {"01042009", between},
                                    {"01042008", {}},
                                    {"31032009", {}}}) {
    type(form.txtdt, typed);
    form.press(keys::Enter);
    EXPECT_EQ(messages(), told) << typed;
    EXPECT_EQ(active(), told.empty() ? "cboside0" : "txtdt") << typed;
  }
  // Backwards the order goes round to "Cancel", which does not ask for a date when it is clicked.
  for (const auto& [typed, told] : {std::pair{"31022008", valid}, {"02062008", {}}}) {
    type(form.txtdt, typed);
    form.press(keys::BackTab);
    EXPECT_EQ(messages(), told) << typed;
    EXPECT_EQ(active(), told.empty() ? "cmdcancel" : "txtdt") << typed;
  }
}

TEST_F(JournalEntry, AnotherLedgerDoesNotKeepTheGroupProposedForTheFirst) {
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

TEST_F(JournalEntry, ProposesTodayWithinTheYearOnly) {
  frmjrnl& form = journal();
  for (const auto& [today, proposed] : {std::pair{Date{2008, 3, 31}, "__/__/____"},
                                        {Date{2008, 4, 1}, "01/04/2008"},
                                        {Date{2009, 3, 31}, "31/03/2009"},
                                        {Date{2009, 4, 1}, "__/__/____"}}) {
    giveUp();
    clock.set(today);
    form.click(form.cmdadd);
    EXPECT_EQ(form.txtdt.text(), proposed);
    EXPECT_EQ(active(), "txtdt");
  }
}

TEST_F(JournalEntry, ListFollowsWhatIsTyped) {
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
    EXPECT_EQ(form.VSF3.dropOf, &form.txtledger[0]);
    form.txtledger[0].setText("");
  }
  // Enter takes the proposal, the arrows the rest, a click any.
  enterLedger("bank", keys::Enter);
  EXPECT_EQ(form.txtledger[0].text(), "Bank Charges");
  type(form.txtledger[0], "bank");
  form.press(keys::Down);
  form.press(keys::Down);
  EXPECT_EQ(form.txtledger[0].text(), "Axis Bank");
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

TEST_F(JournalEntry, CreatesALedgerWhenToldTo) {
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

TEST_F(JournalEntry, ANameThatTheDatabaseTakesForAnotherIsAskedAbout) {
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

TEST_F(JournalEntry, ChoosesALedgerThatHasAnApostrophe) {
  exec("insert into Mast_Part values(901,' Owner\\'s Share ')");
  open("C1", 2008).click(journal().cmdadd);
  enterLedger("own", keys::Enter);
  EXPECT_EQ(journal().txtledger[0].text(), "Owner's Share");
  EXPECT_EQ(messages(), Texts{});
}

TEST_F(JournalEntry, ProposesTheFirstGroupAsTheListIsOrdered) {
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
TEST_F(JournalEntry, LedgersOfOneNameStayApart) {
  exec("insert into Mast_Part values(950,'Cash'),(951,'Cash')");
  frmjrnl& form = open("C1", 2008);
  form.click(form.cmdadd);
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

TEST_F(JournalEntry, ShowsBalancesWhileAVoucherIsTyped) {
  frmjrnl& form = journal();
  form.press(keys::Enter);
  form.LOADCONTROLS();
  form.LOADCONTROLS();
  fillLine(0, {"Cash", "", "100"});
  EXPECT_EQ(form.txtcurbal[0].text(), "600.00Dr");
  // Each line of a pair shows what all of them make of it.
  fillLine(1, {"Cash", "", "650", false});
  EXPECT_EQ(form.txtcurbal[0].text(), "50.00Cr");
  EXPECT_EQ(form.txtcurbal[1].text(), "50.00Cr");
  fillLine(2, {"Cash", "CAPITAL", "5"});
  EXPECT_EQ(form.txtcurbal[2].text(), "0.00") << "a pair that is not known";
  type(form.txtcramt[1], "600");
  EXPECT_EQ(form.txtcurbal[0].text(), "0.00");
  EXPECT_EQ(shown(form.vsf1), (Rows{{"Total", "105.00", "600.00"}}));
  EXPECT_EQ(form.lbldiff.caption(), "Difference 495.00 Cr");
  // The other side takes the amount over.
  form.focus(form.cboside[1]);
  form.press(U'b');
  EXPECT_EQ(form.txtdramt[1].text(), "600.00");
  EXPECT_EQ(form.txtcramt[1].text(), "");
  EXPECT_FALSE(form.txtcramt[1].enabled());
  EXPECT_EQ(form.txtcurbal[0].text(), "1,200.00Dr");
  type(form.txtledger[1], "Rent Payable");
  EXPECT_EQ(form.txtcurbal[0].text(), "600.00Dr") << "nobody's while its name is typed";
  form.press(keys::Enter);
  EXPECT_EQ(form.txtgroup[1].text(), "RENT");
  EXPECT_EQ(form.txtcurbal[1].text(), "560.00Dr");
}

TEST_F(JournalEntry, RefusesANegativeAmount) {
  frmjrnl& form = journal();
  fillLine(0, {"Cash", "", "-5"});
  form.press(keys::Enter);
  const Texts refusal{"An Amount cannot be Negative. Choose \"By\" or \"To\" instead."};
  EXPECT_EQ(messages(), refusal);
  EXPECT_EQ(active(), "txtdramt0");
  EXPECT_EQ(form.GETROWS(), 1);
  form.click(form.cmdupdate);
  EXPECT_EQ(messages(), refusal);
  type(form.txtdramt[0], "12abc");
  form.press(keys::Tab);
  EXPECT_NE(form.lblhint.caption(), "");
}

TEST_F(JournalEntry, RemovesALine) {
  frmjrnl& form = journal();
  fillVoucher("02062008", {{"Cash", "", "1"}, {"Rent Payable", "", "2", false}, {"Cash", "", "3"}});
  form.focus(form.txtledger[1]);
  form.click(form.cmdremove);
  EXPECT_EQ(form.GETROWS(), 2);
  EXPECT_EQ(form.txtledger[1].text(), "Cash");
  EXPECT_EQ(form.cboside[1].text(), "By");
  EXPECT_EQ(form.txtdramt[1].text(), "3.00");
  EXPECT_EQ(form.txtcurbal[1].text(), "504.00Dr");
  EXPECT_EQ(active(), "cboside1");
  form.click(form.cmdremove);
  form.click(form.cmdremove);
  EXPECT_EQ(form.GETROWS(), 1);
  EXPECT_EQ(form.txtledger[0].text(), "");
  EXPECT_EQ(shown(form.vsf1), (Rows{{"Total", "0.00", "0.00"}}));
}

TEST_F(JournalEntry, ScrollsALongVoucher) {
  for (int line = 1; line <= 200; ++line) put(1, line, "Cash", "BANKS", line % 2 ? 1 : -1);
  frmjrnl& form = open("C1", 2008);
  modifyFirst();
  EXPECT_EQ(form.GETROWS(), 200);
  EXPECT_EQ(form.lblrows.caption(), "200 lines");
  // Where the focus is, which lines have a place in the arrangement, and the marks of more.
  const auto view = [&] {
    std::vector<int> lines;
    const std::function<void(const Node&)> walk = [&](const Node& node) {
      if (node.control && node.control->name() == "cboside") lines.push_back(node.control->index());
      for (const Node& child : node.children) walk(child);
    };
    walk(form.arrangement());
    return active() + (form.lblmore.visible() ? " ..." : " ") + std::to_string(lines.front()) +
           '-' + std::to_string(lines.back()) + (form.lbldots.visible() ? "..." : "");
  };
  form.focus(form.txtledger[0]);
  EXPECT_EQ(view(), "txtledger0 0-9...");
  form.press(keys::PageDown);
  EXPECT_EQ(view(), "txtledger10 ...1-10...");
  for (int page = 0; page < 30; ++page) form.press(keys::PageDown);
  EXPECT_EQ(view(), "txtledger199 ...190-199");
  form.focus(form.txtcramt[199]);
  form.press(keys::Up);
  EXPECT_EQ(active(), "txtdramt198");
  // Tab goes on below what is in view, and a line out of view can be gone to.
  form.focus(form.txtdramt[100]);
  EXPECT_EQ(view(), "txtdramt100 ...100-109...");
  form.focus(form.txtcramt[109]);
  form.press(keys::Tab);
  EXPECT_EQ(view(), "cboside110 ...101-110...");
  form.focus(form.txtdt);
  EXPECT_EQ(view(), "txtdt 0-9...");
  form.focus(form.txtcramt[199]);
  form.press(keys::Enter);
  EXPECT_EQ(form.GETROWS(), 201);
  EXPECT_EQ(view(), "cboside200 ...191-200");
}

TEST_F(JournalEntry, AsksBeforeItGivesUp) {
  frmjrnl& form = journal();
  const auto escape = [&](Answer answer, const char* question) {
    dialogs.queueAnswer(answer);
    form.press(keys::Escape);
    EXPECT_EQ(asked(), (Rows{{question, "YesNo", "question", "Yes"}}));
  };
  type(form.txtdt, "99");
  escape(Answer::No, "Do you want to Cancel Entry?");
  EXPECT_TRUE(form.Frame2.visible());
  statements();
  escape(Answer::Yes, "Do you want to Cancel Entry?");
  EXPECT_TRUE(form.Frame1.visible());
  EXPECT_EQ(active(), "vsf");
  EXPECT_EQ(statements(), Texts{});

  // A half-typed period is looked at before anything else.
  type(form.txtdt1[0], "31022008");
  form.press(keys::Tab);
  EXPECT_EQ(messages(), Texts{"Please Specify a Valid Date."});
  EXPECT_EQ(active(), "txtdt10");

  escape(Answer::No, "Do you want to Exit?");
  EXPECT_TRUE(form.visible());
  escape(Answer::Yes, "Do you want to Exit?");
  EXPECT_FALSE(form.visible());
}

TEST_F(JournalEntry, OpensFromTheEditorOnTheYearInView) {
  close();
  exec("update master set count=1");
  addYear("C1", 2009, {{"Cash", "BANKS", 900}});
  frmcrtb& editor = openEditor(2009);
  const struct {
    int view;
    const char *date, *period, *journal;
    const char* total;  // of the editor's debits afterwards
  } cases[] = {
      {0, "01/04/2009", "Period: 01/04/2009 - 31/03/2010", "JRNL_2", "901.00"},
      {1, "01/04/2008", "Period: 01/04/2008 - 31/03/2009", "JRNL_1", "501.00"},
  };
  for (const auto& c : cases) {
    editor.click(editor.mnuyrs[c.view]);
    statements();
    frmjrnl& form = openFrom(editor);
    EXPECT_TRUE(form.modal());
    EXPECT_EQ(form.lblperiod.caption(), c.period);
    EXPECT_NE(statements().back().find(c.journal), std::string::npos);
    passCashAndClose(form, c.date);
    EXPECT_EQ(context().desk.active(), &editor);
    EXPECT_EQ(editor.txttotdeb[c.view].text(), c.total);
  }
  editor.close();
}

// The home form has gone on to another client and another year while the editor stayed open.
TEST_F(JournalEntry, StaysWithTheEditorsClientAndYear) {
  close();
  addYear("C2", 2009, {{"Cash", "BANKS", 70}});
  frmcrtb& editor = openEditor(2008);
  // The group view stands beside lines that a voucher renumbers.
  editor.click(editor.mnugroup);
  editor.cbogroup.choose(editor.cbogroup.find("BANKS"));
  select("C2", 2009);
  frmjrnl& form = openFrom(editor);
  EXPECT_EQ(form.lblperiod.caption(), "Period: 01/04/2008 - 31/03/2009");
  passCashAndClose(form, "01/04/2008");
  EXPECT_EQ(rows("select distinct code_no from JRNL_1"), (Rows{{"C1"}}));
  EXPECT_EQ(value("select sum(amt) from TAB_1 where code_no='C2'"), "70");
  // Whose number is moved is the line that has it now.
  EXPECT_EQ(shown(editor.vsf3).size(), 2U);
  editor.cbotgroup.choose(editor.cbotgroup.find("CAPITAL"));
  yes();
  editor.click(editor.cmdupdate);
  EXPECT_EQ(rows("select particular,amt from TAB_1 t join Mast_Part p on p.partid=t.partid where "
                 "allid=2 order by amt"),
            (Rows{{"Petty Cash", "1"}, {"Cash", "501"}}));
  messages();
  editor.close();
}

}  // namespace
}  // namespace quillet::support
