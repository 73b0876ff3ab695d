// Typing a voucher: where the keys lead, dates, sides and balances, lines made, removed and
// scrolled.
#include "entry_fixture.h"

namespace quillet::support {
namespace {

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
  for (const char* typed : {"", "rent payable", ""}) enter(typed);
  // What the voucher lacks is proposed.
  EXPECT_EQ(form.txtcramt[1].text(), "12.50");
  EXPECT_EQ(form.txtcramt[1].selLength(), 5U);
  EXPECT_EQ(form.txtcurbal[1].text(), "52.50Cr");
  for (const char* typed : {"2.5", "", "Cash", "", ""}) enter(typed);
  EXPECT_EQ(form.txtcramt[2].text(), "10.00");
  for (const char* typed : {"June", ""}) enter(typed);
  EXPECT_EQ(way, (Texts{"txtdt", "cboside0", "txtledger0", "txtgroup0", "txtdramt0", "cboside1",
                        "txtledger1", "txtgroup1", "txtcramt1", "cboside2", "txtledger2",
                        "txtgroup2", "txtcramt2", "txtnarr", "cmdupdate", "vsf"}));
  EXPECT_EQ(rows("select VID,LSrNo,VDate,Amount,VNar from JRNL_1 order by LSrNo"),
            (Rows{{"1", "1", "2008-06-15", "12.5", "June"},
                  {"1", "2", "2008-06-15", "-2.5", "June"},
                  {"1", "3", "2008-06-15", "-10", "June"}}));
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
  type(form.txtdt, "31042008");
  form.press(keys::Enter);
  for (const char32_t digit : charactersOf("30")) form.press(digit);
  EXPECT_EQ(form.txtdt.text(), "30/04/2008") << "what is refused is typed over";
  messages();
  // Backwards the order goes round to "Cancel", which does not ask for a date when it is clicked.
  for (const auto& [typed, told] : {std::pair{"31022008", valid}, {"02062008", {}}}) {
    type(form.txtdt, typed);
    form.press(keys::BackTab);
    EXPECT_EQ(messages(), told) << typed;
    EXPECT_EQ(active(), told.empty() ? "cmdcancel" : "txtdt") << typed;
  }
}

TEST_F(JournalEntry, ProposesTheAmountThatIsLackingAndNoOther) {
  frmjrnl& form = journal();
  fillVoucher("02062008", {{"Cash", "", "1000"}});
  form.press(keys::Enter);
  form.focus(form.txtcramt[1]);
  EXPECT_EQ(form.txtcramt[1].text(), "") << "the line names no ledger";
  fillLine(1, {"Rent Payable", "", "400", false});
  form.press(keys::Enter);
  // The side that is not short is left alone, and so is an amount that stands.
  form.press(U'b');
  type(form.txtledger[2], "Cash");
  form.focus(form.txtdramt[2]);
  EXPECT_EQ(form.txtdramt[2].text(), "");
  form.focus(form.cboside[2]);
  form.press(keys::Up);
  form.focus(form.txtcramt[1]);
  EXPECT_EQ(form.txtcramt[1].text(), "400.00");
  form.focus(form.txtcramt[2]);
  EXPECT_EQ(form.txtcramt[2].text(), "600.00");
  // Down adds a line to what balances, and Enter leads past it while it is blank.
  form.press(keys::Down);
  EXPECT_EQ(active(), "cboside3");
  form.focus(form.txtcramt[2]);
  form.press(keys::Enter);
  EXPECT_EQ(active(), "txtnarr");
  EXPECT_NE(form.lblhint.caption(), "");
  form.press(keys::Enter);
  EXPECT_EQ(form.lblhint.caption(), "");
}

TEST_F(JournalEntry, ProposesTodayOrTheDateUsedLast) {
  frmjrnl& form = journal();
  const auto expectProposed = [&](Date today, const char* proposed) {
    giveUp();
    clock.set(today);
    form.click(form.cmdadd);
    EXPECT_EQ(form.txtdt.text(), proposed);
    EXPECT_EQ(active(), "txtdt");
  };
  for (const auto& [today, proposed] : {std::pair{Date{2008, 3, 31}, "31/03/2009"},
                                        {Date{2008, 4, 1}, "01/04/2008"},
                                        {Date{2009, 3, 31}, "31/03/2009"},
                                        {Date{2009, 4, 1}, "31/03/2009"}}) {
    expectProposed(today, proposed);
  }
  giveUp();
  for (const char* date : {"05092008", "01072008"}) {
    pass(date, {{"Cash", "", "1"}, {"Rent Payable", "", "1", false}});
  }
  form.click(form.cmdadd);
  expectProposed({2009, 4, 1}, "01/07/2008");
  expectProposed({2008, 4, 2}, "02/04/2008");
  for (const char32_t digit : charactersOf("1607")) form.press(digit);
  EXPECT_EQ(form.txtdt.text(), "16/07/2008") << "typing replaces it";
}

TEST_F(JournalEntry, CopiesAndReversesAVoucher) {
  frmjrnl& form = journal();
  fillVoucher("02062008", {{"Cash", "", "1234.5"}, {"Rent Payable", "", "1234.5", false}}, "June");
  form.click(form.cmdupdate);
  const auto balances = [&] { return rows("select amt,nid from TAB_1 order by srno"); };
  const Rows passed = balances();
  pick(1);
  statements();
  form.click(form.cmdcopy);
  EXPECT_EQ(statements(), (Texts{"Select * from JRNL_1 where VID=1 Order by LSrNo"}));
  EXPECT_EQ(form.txtdt.text(), "15/06/2008");
  EXPECT_EQ(form.txtnarr.text(), "June");
  EXPECT_EQ(form.txtcurbal[0].text(), "2,969.00Dr") << "it counts beside the one copied";
  giveUp();
  EXPECT_EQ(balances(), passed);

  form.click(form.cmdcopy);
  form.click(form.cmdupdate);
  form.click(form.cmdreverse);
  EXPECT_EQ(form.cboside[0].text() + form.txtcramt[0].text() + form.txtdramt[0].text(),
            "To1,234.50");
  EXPECT_EQ(form.txtcurbal[1].text(), "1,274.50Cr");
  form.click(form.cmdupdate);
  EXPECT_EQ(balances(), passed);
  const std::string reversal = "Reversal of the voucher of 15/06/2008 for 1,234.50: June";
  EXPECT_EQ(rows("select VID,VDate,Amount,VNar from JRNL_1 where LSrNo=1 order by VID"),
            (Rows{{"1", "2008-06-02", "1234.5", "June"},
                  {"2", "2008-06-15", "1234.5", "June"},
                  {"3", "2008-06-15", "-1234.5", reversal}}));
  // Commands lead back to the list, and a row is asked for.
  EXPECT_EQ(active(), "vsf");
  form.vsf.setCurrent(0);
  messages();
  for (Button* button : {&form.cmdcopy, &form.cmdreverse}) {
    form.click(*button);
    EXPECT_EQ(messages(), Texts{"Please select a Item."});
    EXPECT_EQ(active(), "vsf");
  }
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
    const std::function<void(const LayoutItem&)> walk = [&](const LayoutItem& node) {
      if (node.control && node.control->name() == "cboside") lines.push_back(node.control->index());
      for (const LayoutItem& child : node.children) walk(child);
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
  form.press(keys::Down);
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

}  // namespace
}  // namespace quillet::support
