#include "server/deeds.h"

#include "home/third.h"
#include "journal/frmjrnl.h"

namespace quillet::support {
namespace {

frmjrnl& journalOf(Station& station) {
  return dynamic_cast<frmjrnl&>(*station.context().openForms.find("frmjrnl"));
}

third& homeOf(Station& station) {
  return static_cast<third&>(*station.practice().forms().ObjThird());
}

}  // namespace

Deed aLine() {
  return {"a line",
          [](Station& s) {
            s.open("A1", 2008);
            Station::type(s.editor().txtpart, "New Ledger\r");
            Station::type(s.editor().txtgroup, "RENT\r");
            Station::type(s.editor().txtamount, "100\r");
          },
          [](Station& s) { Station::type(s.editor().txtdrcr, "D\r"); },
          [](Station& s) {
            return s.editor().txtpart.text() == "New Ledger" &&
                   s.editor().txtamount.text() == "100.00";
          },
          [](Station& s) { s.leave(); },
          "select round(coalesce(sum(amt),0)/100) from quillet.TAB_2 where code_no='A1' and"
          " partid=(select PartId from quillet.Mast_Part where Particular='New Ledger')"};
}

Deed aVoucher() {
  return {"a voucher",
          [](Station& s) {
            frmcrtb& editor = s.open("A1", 2008);
            editor.click(editor.mnujournal);
            frmjrnl& journal = journalOf(s);
            journal.click(journal.cmdadd);
            for (int i = 0; i < 2; ++i) {
              if (i > 0) journal.press(keys::Down);
              journal.focus(journal.cboside[i]);
              journal.press(i == 0 ? U'B' : U'T');
              Station::type(journal.txtledger[i], "Of Voucher " + std::to_string(i));
              journal.press(keys::Tab);
              Station::type(journal.txtgroup[i], "RENT");
              journal.press(keys::Tab);
              Station::type(i == 0 ? journal.txtdramt[i] : journal.txtcramt[i], "100");
            }
          },
          [](Station& s) { journalOf(s).click(journalOf(s).cmdupdate); },
          [](Station& s) { return journalOf(s).txtledger[0].text() == "Of Voucher 0"; },
          [](Station& s) {
            journalOf(s).close();
            s.leave();
          },
          "select count(distinct VID) from quillet.JRNL_2 where code_no='A1'"};
}

Deed aYear() {
  return {"a year",
          [](Station& s) {
            third& home = homeOf(s);
            home.show();
            home.press(keys::Escape);
            home.click(home.mnucreate);
            home.ClGrd1.setCurrent(1);
            home.doubleClick(home.ClGrd1);
            home.focus(home.MaskEdBox1);
            home.MaskEdBox1.clear();
            home.MaskEdBox1.setCaret(0);
            for (const char32_t c : {U'0', U'1', U'0', U'4', U'2', U'0', U'0', U'9'}) home.press(c);
            home.press(keys::Enter);
          },
          [](Station& s) {
            homeOf(s).focus(homeOf(s).MaskEdBox2);
            homeOf(s).press(keys::Enter);
          },
          [](Station& s) { return homeOf(s).MaskEdBox1.text() == "01/04/2009"; },
          [](Station& s) { homeOf(s).press(keys::Escape); },
          "select count(*) from quillet.master where s_yr='31032010'"};
}

}  // namespace quillet::support
