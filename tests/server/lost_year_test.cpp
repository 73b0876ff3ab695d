// A year that a station loses while its forms are open on it: what was typed stays and is told of
// once, it is stored when the year can be written in again, and a year that is gone shows nothing.
#include <algorithm>

#include "masters/frmgrpRM.h"
#include "server/stations_fixture.h"
#include "suite/stock_form.h"

namespace quillet::support {
namespace {

class LostYearTest : public StationsTest {
 protected:
  static constexpr const char* lastDate = "31032009";

  static void look() { anna().practice().environment().lookAround(); }
  // Ben has the year until he leaves.
  static void benTakesOver(const std::string& client) {
    ben().dialogs.queueAnswer(Answer::Yes);
    ben().open(client, 2008);
  }
  // What stands on the entry frame, "" for the list.
  static std::string shown(frmjrnl& journal) {
    std::string all;
    for (int line = 0; line < journal.txtledger.size() && journal.Frame2.visible(); ++line) {
      for (const auto boxes :
           {&frmjrnl::txtledger, &frmjrnl::txtgroup, &frmjrnl::txtdramt, &frmjrnl::txtcramt}) {
        all += (journal.*boxes)[line].text() + '|';
      }
    }
    return all.empty() ? "" : all + journal.txtdt.text() + '|' + journal.txtnarr.text();
  }
  // The one notice there is.
  static std::string told() {
    const auto notices = anna().notices();
    EXPECT_EQ(notices.size(), 1U) << ::testing::PrintToString(notices);
    return notices.empty() ? "" : notices.front();
  }
  static bool tells(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
  }
  static std::string vouchers(const std::string& client) {
    return anna().value(
        "select group_concat(distinct concat(VNar,' ',round(abs(Amount)))) from JRNL_2 where"
        " code_no='" +
        client + '\'');
  }
  // A year that Ben registers under other dates, with its rows.
  static void makeGone(const std::string& client) {
    takeOver(client, lastDate, [&] {
      ben().change("update master set f_yr='01042010',s_yr='31032011' where code_no='" + client +
                   '\'');
    });
  }
  static void leave(Form& form) {
    anna().dialogs.answering = [](const Message&) { return Answer::Yes; };
    form.close();
    anna().dialogs.takeMessages();
  }
};

TEST_F(LostYearTest, AVoucherThatIsBeingTyped) {
  enum class Ends { unchanged, changed, gone };
  const struct {
    const char* client;
    bool modified;
    bool updates;  // sees it when it saves, not in between
    Ends ends;
  } cases[] = {{"LV1", false, false, Ends::unchanged}, {"LV2", false, true, Ends::unchanged},
               {"LV3", true, false, Ends::unchanged},  {"LV4", true, true, Ends::unchanged},
               {"LV5", true, false, Ends::changed},    {"LV6", false, false, Ends::gone},
               {"LV7", true, true, Ends::gone}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.client);
    const std::string of = std::string(" where code_no='") + each.client + "'";
    anna().addYear(each.client, 2008);
    anna().open(each.client, 2008);
    frmjrnl& journal = anna().openJournal();
    anna().pass(journal, 2);
    if (each.modified) {
      Station::type(journal.txtnarr, "Before");
      journal.click(journal.cmdupdate);
      journal.vsf.setCurrent(1);
      journal.doubleClick(journal.vsf);
    }
    Station::type(journal.txtnarr, "Typed");
    const std::string typed = shown(journal);
    const std::string before = vouchers(each.client);
    if (each.ends == Ends::gone) {
      makeGone(each.client);
    } else {
      benTakesOver(each.client);
    }
    anna().dialogs.takeMessages();
    if (each.updates) {
      journal.click(journal.cmdupdate);
      EXPECT_EQ(anna().dialogs.takeMessages().size(), 1U);
    } else {
      look();
    }
    EXPECT_EQ(shown(journal), typed);
    EXPECT_EQ(vouchers(each.client), before);
    const std::string notice = told();
    EXPECT_TRUE(tells(notice, each.ends == Ends::gone ? "has deleted it" : "by ben, ")) << notice;
    EXPECT_TRUE(tells(notice, "What was typed is not stored. It stays")) << notice;
    // Whoever goes on typing alters nothing and is asked nothing; "Update" says why.
    for (int i = 0; i < 10; ++i) {
      journal.focusNext();
      journal.press(U'z');
    }
    EXPECT_TRUE(anna().dialogs.takeMessages().empty());
    journal.click(journal.cmdupdate);
    EXPECT_EQ(anna().dialogs.takeMessages().size(), 1U);
    EXPECT_EQ(shown(journal), typed);
    look();
    EXPECT_TRUE(anna().notices().empty()) << "told again";
    if (each.ends == Ends::gone) {
      EXPECT_EQ(journal.vsf.rows(), 0) << "they may be another year's";
      leave(journal);
      continue;
    }
    if (each.ends == Ends::changed) ben().change("update JRNL_2 set VNar='Of Ben'" + of);
    ben().leave();
    look();
    EXPECT_EQ(shown(journal), typed);
    EXPECT_TRUE(anna().notices().empty());
    anna().dialogs.takeMessages();
    journal.click(journal.cmdupdate);
    const auto messages = anna().dialogs.takeMessages();
    if (each.ends == Ends::changed) {
      ASSERT_EQ(messages.size(), 1U);
      EXPECT_TRUE(tells(messages[0].message.text, "stays to be read"));
      EXPECT_EQ(shown(journal), typed);
      EXPECT_TRUE(journal.txtnarr.locked());
      EXPECT_EQ(vouchers(each.client), "Of Ben 100");
      journal.click(journal.cmdcancel);
    } else {
      EXPECT_TRUE(messages.empty()) << messages[0].message.text;
      EXPECT_EQ(vouchers(each.client), "Typed 100");
    }
    EXPECT_TRUE(journal.Frame1.visible());
    leave(journal);
  }
}

TEST_F(LostYearTest, WhoIsTypingInTheEditorIsToldOnce) {
  for (const bool typed : {true, false}) {
    SCOPED_TRACE(typed);
    const std::string client = typed ? "LN1" : "LN2";
    anna().addYear(client, 2008);
    frmcrtb& editor = anna().open(client, 2008);
    anna().enter("Before", "RENT", "1");
    if (typed) {
      Station::type(editor.txtpart, "Typed\r");
      Station::type(editor.txtgroup, "RENT\r");
      Station::type(editor.txtamount, "12\r");
    }
    for (int times = 0; times < 2; ++times) {
      benTakesOver(client);
      look();
      const std::string notice = told();
      EXPECT_TRUE(tells(notice, "by ben, ")) << notice;
      EXPECT_EQ(tells(notice, "What was typed is not stored. It stays"), typed) << notice;
      for (int i = 0; i < 3; ++i) look();
      EXPECT_TRUE(anna().notices().empty());
      // Enter would go on in the list, whose lines cannot be altered.
      anna().dialogs.takeMessages();
      editor.vsfm.setCurrent(1);
      editor.press(keys::Enter);
      EXPECT_EQ(anna().dialogs.takeMessages().size(), 1U);
      EXPECT_EQ(editor.txtpart.text(), typed ? "Typed" : "");
      ben().leave();
      look();
      EXPECT_TRUE(anna().notices().empty());
    }
    if (typed) {
      Station::type(editor.txtdrcr, "D\r");
      EXPECT_EQ(balance(client, "Typed"), "12");
    }
    anna().leave();
  }
}

// Behind another form only what is typed is worth a word; who saves is told once, too.
TEST_F(LostYearTest, WhatIsToldFromBehind) {
  anna().addYear("LN3", 2008);
  frmcrtb& editor = anna().open("LN3", 2008);
  frmjrnl& journal = anna().openJournal();
  benTakesOver("LN3");
  look();
  EXPECT_FALSE(tells(told(), "typed")) << "once, for both forms";
  ben().leave();
  look();
  leave(journal);
  Station::type(editor.txtpart, "Typed\r");
  Station::type(editor.txtgroup, "RENT\r");
  Station::type(editor.txtamount, "12\r");
  benTakesOver("LN3");
  Station::type(editor.txtdrcr, "D\r");
  EXPECT_TRUE(tells(told(), "What was typed is not stored."));
  EXPECT_EQ(editor.txtpart.text(), "Typed");
}

TEST_F(LostYearTest, AClosingStockAndABinding) {
  anna().addYear("LT", 2008);
  const std::string group = anna().value("select min(ALLID) from Mast_AllGrp where GID=7");
  anna().change("insert into Mast_Part values(990,'Steel')");
  anna().change("insert into TRADE_2(code_no,partid,allid,amt) values('LT',990," + group + ",100)");
  const std::string purchases = anna().value("select min(ALLID) from Mast_AllGrp where GID=18");
  anna().change("insert into RMGRP_2 values('LT',1,1," + purchases + ",0,0,0,1)");
  frmgrpRM binding(anna().context());
  binding.INITDATA({"LT", "Client LT", "TAB_2", "01042008", lastDate});
  binding.showModal();
  const auto stocks = anna().practice().environment().createStockForms(anna().context().openForms);
  StockForm& opened = stocks->ObjTrade();
  opened.LoadData(*anna().context().host, "LT", "TRADE_2");
  opened.Show(0, {});
  auto& stock = dynamic_cast<suite::frmTrade&>(opened);
  EXPECT_EQ(stock.vsf.rows(), 1);
  EXPECT_EQ(binding.vsfM.rows(), 1);

  // Typed over a line that Ben alters: it is not stored over it, and still to be read.
  stock.vsf.setCurrent(1);
  stock.doubleClick(stock.vsf);
  Station::type(stock.txtamount, "150");
  benTakesOver("LT");
  ben().change("update TRADE_2 set amt=70 where code_no='LT'");
  look();
  EXPECT_TRUE(tells(told(), "What was typed is not stored."));
  EXPECT_EQ(stock.txtamount.text(), "150");
  EXPECT_EQ(stock.active(), &stock.vsf);
  ben().leave();
  look();
  EXPECT_TRUE(tells(stock.lblhint.caption(), "150")) << stock.lblhint.caption();
  EXPECT_TRUE(stock.txtamount.enabled());
  EXPECT_EQ(anna().value("select round(amt) from TRADE_2 where code_no='LT'"), "70");

  binding.click(binding.cmdaddM);
  binding.cbohead.choose(2);
  makeGone("LT");
  look();
  const auto notices = anna().notices();
  ASSERT_EQ(notices.size(), 2U) << "the stock form's, which is in front, and that of what is typed";
  EXPECT_TRUE(tells(notices[0] + notices[1], "It stays in the fields to be read."));
  EXPECT_EQ(stock.vsf.rows(), 0);
  EXPECT_EQ(stock.txttotal.text(), "0.00");
  EXPECT_EQ(binding.vsfM.rows(), 0);
  EXPECT_EQ(binding.cbohead.chosenData(), 2);
  for (const Label* label : {&stock.lbllock, &binding.lbllock}) {
    EXPECT_TRUE(tells(label->caption(), "has deleted the year")) << label->caption();
  }
  binding.click(binding.cmdupdateM);
  EXPECT_EQ(anna().value("select count(*) from RMGRP_2 where Code_No='LT'"), "1");
  anna().dialogs.takeMessages();
  stock.close();
  leave(binding);
}

}  // namespace
}  // namespace quillet::support
