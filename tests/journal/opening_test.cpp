// The journal opened from the editor.
#include "editor/frmcrtb.h"
#include "journal_fixture.h"

namespace quillet::support {
namespace {

class JournalOpening : public JournalTest {
 protected:
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

// Whatever client and year the home form has gone on to meanwhile. The group view stands beside
// lines that a voucher renumbers.
TEST_F(JournalOpening, StaysWithTheEditorsClientAndTheYearInView) {
  addYear("C1", 2008, {{"Cash", "BANKS", 500}});
  exec("update master set count=1");
  addYear("C1", 2009, {{"Cash", "BANKS", 900}});
  addYear("C2", 2010, {{"Cash", "BANKS", 70}});
  ledger("Petty Cash");
  select("C1", 2009);
  auto& editor = static_cast<frmcrtb&>(*practice.forms().ObjCreate());
  editor.show();
  const struct {
    int view;
    const char *date, *period, *journal;
    const char* total;  // of the editor's debits afterwards
  } cases[] = {
      {0, "01/04/2009", "Period: 01/04/2009 - 31/03/2010", "JRNL_2", "901.00"},
      {1, "01/04/2008", "Period: 01/04/2008 - 31/03/2009", "JRNL_1", "501.00"},
  };
  editor.click(editor.mnugroup);
  editor.cbogroup.choose(editor.cbogroup.find("BANKS"));
  for (const auto& c : cases) {
    SCOPED_TRACE(c.journal);
    editor.click(editor.mnuyrs[c.view]);
    select("C2", 2010);
    statements();
    editor.click(editor.mnujournal);
    auto& form = dynamic_cast<frmjrnl&>(*context().openForms.active());
    EXPECT_TRUE(form.modal());
    EXPECT_EQ(form.lblperiod.caption(), c.period);
    EXPECT_EQ(form.lblsubject.caption(), editor.subject());
    EXPECT_NE(statements().back().find(c.journal), std::string::npos);
    passCashAndClose(form, c.date);
    EXPECT_EQ(context().openForms.active(), &editor);
    EXPECT_EQ(editor.txttotdeb[c.view].text(), c.total);
    EXPECT_EQ(rows(std::string("select distinct code_no from ") + c.journal), (Rows{{"C1"}}));
    if (c.view != 0) continue;
    // Whose number is moved is the line that has it now.
    EXPECT_EQ(shown(editor.vsf3).size(), 2U);
    editor.cbotgroup.choose(editor.cbotgroup.find("CAPITAL"));
    yes();
    editor.click(editor.cmdupdate);
    EXPECT_EQ(rows("select particular,amt from TAB_2 t join Mast_Part p on p.partid=t.partid where "
                   "allid=2 order by amt"),
              (Rows{{"Petty Cash", "1"}, {"Cash", "901"}}));
    messages();
  }
  EXPECT_EQ(value("select sum(amt) from TAB_1 where code_no='C2'"), "70");
  editor.close();
}

}  // namespace
}  // namespace quillet::support
