// What the forms do about a locked year: each says why it takes nothing.
#include <gtest/gtest.h>

#include <functional>

#include "data/year.h"
#include "review/frmimport.h"
#include "review/frmvchimport.h"
#include "suite/history/instant.h"
#include "years/year_locks_fixture.h"

namespace quillet::support {
namespace {

// Everything that a person can do to a year. None changes anything; each says whose year is locked,
// and why.
TEST_F(YearLocksTest, EachDeedOnALockedYearIsRefused) {
  lock();
  const Rows before = books();
  const struct {
    const char* deed;
    std::function<void()> run;
  } deeds[] = {
      {"insert a line", [&] { editor().click(editor().mnuinsert); }},
      {"alter a line", [&] { editor().doubleClick(editor().vsfm); }},
      {"delete a line", [&] { editor().click(editor().mnudelete); }},
      {"paste lines", [&] { editor().vsfm.PasteCells("Rent\t1\nCash\t2"); }},
      {"import lines", [&] { editor().click(editor().mnuimport); }},
      {"move a group",
       [&] {
         frmcrtb& form = editor();
         form.click(form.mnugroup);
         form.cbotgroup.choose(form.cbotgroup.find("STOCK"));
         form.click(form.cmdupdate);
       }},
      {"new voucher", [&] { journal().cmdadd.Click(); }},
      {"copy a voucher", [&] { journal().cmdcopy.Click(); }},
      {"reverse a voucher", [&] { journal().cmdreverse.Click(); }},
      {"delete a voucher", [&] { journal().Command1.Click(); }},
      {"import vouchers", [&] { journal().mnuimport.Click(); }},
      {"paste vouchers", [&] { journal().vsf.PasteCells("a\t1\nb\t2"); }},
      {"alter stock", [&] { stock().vsf.DblClick(); }},
      {"delete stock", [&] { stock().cmddelete.Click(); }},
      {"add an item", [&] { binding().cmdaddM.Click(); }},
      {"modify an item", [&] { binding().cmdmodifyM.Click(); }},
      {"delete an item", [&] { binding().cmddeleteM.Click(); }},
      {"sort the items", [&] { binding().cmdsortorder.Click(); }},
      {"delete the year",
       [&] {
         third& form = choose(&third::mnudelete, "C1");
         form.flexgrid2.setCurrent(1);
         form.press(keys::Enter);
       }},
      {"create over it", [&] { typeYear(choose(&third::mnucreate, "C1"), "01/04/2008"); }},
      {"merge into it", [&] { typeYear(choose(&third::mnumerge, "C1"), "01/04/2008"); }},
  };
  for (const auto& [deed, run] : deeds) {
    messages();
    run();
    const Texts said = messages();
    ASSERT_FALSE(said.empty()) << deed;
    EXPECT_TRUE(names(said.back())) << deed << ": " << said.back();
    EXPECT_EQ(books(), before) << deed;
    EXPECT_EQ(log(), Texts()) << deed;
    closeAll();
  }
  EXPECT_EQ(notices(), Texts()) << "nothing got as far as the database";
}

TEST_F(YearLocksTest, ALockedYearIsShownAndTakesNothing) {
  lock();
  frmcrtb& form = editor();
  EXPECT_TRUE(form.lbllock.shown());
  EXPECT_NE(form.lbllock.caption().find("Locked: Audited, by "), std::string::npos);
  EXPECT_EQ(form.vsfm.rows(), 2);
  EXPECT_FALSE(form.focus(form.txtpart));
  EXPECT_TRUE(form.mnuPreview.enabled());

  frmjrnl& vouchers = journal();
  vouchers.doubleClick(vouchers.vsf);
  EXPECT_TRUE(vouchers.Frame2.visible());
  EXPECT_FALSE(vouchers.cmdupdate.enabled());
  EXPECT_TRUE(vouchers.txtledger[0].locked());
  for (const Key key : {keys::Down, keys::Enter, keys::Tab}) vouchers.press(key);
  EXPECT_EQ(vouchers.txtledger.size(), 2) << "no line is added";
  EXPECT_EQ(vouchers.txtledger[0].text(), "Cash");
  vouchers.press(keys::Escape);
  EXPECT_TRUE(vouchers.Frame1.visible()) << "there is no entry to be given up";
  closeAll();

  third& years = choose(&third::mnualter, "C1");
  const Texts row = shown(years.flexgrid2)[0];
  EXPECT_NE(row.back().find("Audited, by "), std::string::npos);
  EXPECT_EQ(years.flexgrid2.columns()[row.size() - 2].heading, "Last Change");
  EXPECT_EQ(
      row[row.size() - 2],
      suite::localTime(suite::instantFrom(value("select max(At) from SuiteAct"))).substr(0, 16));
  EXPECT_EQ(shown(years.flexgrid2)[1].back(), "");
  practice.restartModule();
  EXPECT_EQ(locks().all().size(), 1U);
  EXPECT_TRUE(editor().lbllock.shown());
}

// In the view of both years each line follows the lock of its own year.
TEST_F(YearLocksTest, ALineOfTheOtherYearIsAlteredBesideALockedOne) {
  addYear("C1", 2007, {{"Till", "RENT", 6}});
  lock();
  select("C1", 2008);
  frmcrtb& form = theEditor(context());
  form.show();
  form.click(form.mnuyrs[2]);
  for (int row = 1; row <= form.vsfm.rows(); ++row) {
    if (form.vsfm.cell(row, 0) == "Till") form.vsfm.setCurrent(row);
  }
  form.doubleClick(form.vsfm);
  ASSERT_EQ(form.active(), &form.txtpart);
  PracticeTest::type(form.txtamount, "9");
  form.focus(form.txtdrcr);
  form.press(keys::Enter);
  EXPECT_EQ(value("select amt from TAB_3 where code_no='C1'"), "9");
  EXPECT_FALSE(form.txtpart.enabled());
}

// The review was open already, or the source was read, when the year was locked.
TEST_F(YearLocksTest, AYearThatWasLockedMeanwhileTakesNoImport) {
  const auto refused = [&](auto& review) {
    lock();
    const Rows before = books();
    messages();
    review.click(review.cmdimport);
    const Texts said = messages();
    ASSERT_EQ(said.size(), 1U);
    EXPECT_TRUE(names(said[0])) << said[0];
    EXPECT_EQ(books(), before);
    EXPECT_TRUE(review.visible());
    closeAll();
    locks().unlock("C1", "31032009", "Late invoice");
  };
  editor().vsfm.PasteCells("Particulars\tGroup\tDebit\nTill\tRENT\t5");
  refused(dynamic_cast<frmimport&>(*context().openForms.active()));
  journal().vsf.PasteCells(
      "Date\tParticulars\tGroup\tDebit\tCredit\n01/05/2008\tCash\tRENT\t5\t\n"
      "01/05/2008\tAsha\tCAPITAL\t\t5");
  refused(dynamic_cast<frmvchimport&>(*context().openForms.active()));
}

}  // namespace
}  // namespace quillet::support
