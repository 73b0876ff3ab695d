// The editor's loading: caption, views, import, totals, settings, group view.
#include <gtest/gtest.h>

#include <filesystem>

#include "data/table_names.h"
#include "forms/editor_fixture.h"
#include "support/recording_reporter.h"

namespace quillet::support {
namespace {

using LoadingTest = EditorTest;

TEST_F(LoadingTest, ShowsTheYearsLinesWithTotalsAndDifference) {
  addYear("C2", 2008, {{"Other", "BANKS", 77}});
  const std::string table =
      addYear("C1", 2008, {{"Asha", "CAPITAL", -1000.5}, {"Main Bank", "BANKS", 400}});
  exec("update " + table + " set nid=7 where amt=400");
  frmcrtb& form = open("C1", 2008);
  EXPECT_EQ(shown(form.vsfm),
            (Rows{{"Asha", "CAPITAL", "1000.50", "CR"}, {"Main Bank", "BANKS", "400.00", "DR"}}));
  EXPECT_EQ(form.txttotcr[0].text(), "1,000.50");
  EXPECT_EQ(form.txttotdeb[0].text(), "0.00") << "neither debit nor credit";
  exec("update " + table + " set nid=1 where amt=400");
  form.click(form.mnurefresh);
  EXPECT_EQ(form.txttotdeb[0].text(), "400.00");
  EXPECT_EQ(form.txtdiff.text(), "600.50");
  EXPECT_EQ(form.txtdifft.text(), "Credit");
  EXPECT_EQ(form.lblagrees.caption(), "");
  // Of these the sums differ by less than a paisa.
  const char* const tenths =
      "insert into {t} values(3,'C1',2,2,0.1,1),(4,'C1',2,2,0.2,1),(5,'C1',2,2,0.3,2)";
  for (const char* change : {"update {t} set amt=1000.5", "delete from {t}", tenths}) {
    exec(replacedAll(change, "{t}", table));
    form.click(form.mnurefresh);
    EXPECT_EQ(form.txtdiff.text(), change == tenths ? "0.00" : "");
    EXPECT_EQ(form.lblagrees.caption(), form.vsfm.rows() > 0 ? "Agrees" : "");
  }
  EXPECT_FALSE(form.mnuyropts.enabled());
  EXPECT_FALSE(frontEnd.busy);
}

TEST_F(LoadingTest, WithoutATableNothingCanBeEdited) {
  select("C1", 2008);
  practice.forms().VFATbl("");
  auto& form = static_cast<frmcrtb&>(*practice.forms().ObjCreate());
  form.show();
  EXPECT_EQ(messages(), Texts{"Year not selected"});
  EXPECT_TRUE(form.visible());
  for (const MenuEntry* entry : {&form.mnuinsert, &form.mnualter, &form.mnudelete, &form.mnujournal,
                                 &form.mnunewgroup, &form.mnugroup, &form.mnuyropts}) {
    EXPECT_FALSE(entry->enabled()) << entry->name();
  }
  form.press(keys::Enter);
  form.click(form.mnurefresh);
  EXPECT_TRUE(messages().empty());
  EXPECT_FALSE(frontEnd.busy);
}

TEST_F(LoadingTest, SendsItsTextsInOrder) {
  addYear("C1", 2007, {{"Asha", "CAPITAL", -5}});
  addYear("C1", 2008, {{"Asha", "CAPITAL", -6}});
  const std::string id = std::to_string(ledger("Asha"));
  select("C1", 2008);
  auto& form = static_cast<frmcrtb&>(*practice.forms().ObjCreate());
  statements();
  form.show();
  EXPECT_EQ(
      statements(),
      (Texts{"select nm from main_info1 where code_no='C1'",
             "select * from master where code_no= 'C1' and f_yr='01042007' and s_yr='31032008'",
             "Select distinct tbl_nm from master Where Code_No='C1'",
             "Select Distinct PartId From TAB_1 Where Code_No='C1'",
             "Select Distinct PartId From TAB_2 Where Code_No='C1'",
             "Select Distinct Particular From Mast_Part Where PartId In (" + id + ")",
             "select * from mast_allgrp order by allgrp",
             "Select * From TAB_2 where code_no='C1'"}));
}

TEST_F(LoadingTest, PutsBothYearsSideBySide) {
  addYear("C1", 2007,
          {{"Asha", "CAPITAL", -1000}, {"Old Bank", "BANKS", 990}, {"Asha", "RENT", 10}});
  addYear("C1", 2008, {{"Main Bank", "BANKS", 1300}, {"Asha", "CAPITAL", -1250}});
  frmcrtb& form = open("C1", 2008);
  form.click(form.mnuyrs[2]);
  EXPECT_EQ(shown(form.vsfm), (Rows{{"Main Bank", "BANKS", "1300.00", "DR", "-", "-"},
                                    {"Asha", "CAPITAL", "1250.00", "CR", "1000.00", "CR"},
                                    {"Old Bank", "BANKS", "-", "-", "990.00", "DR"},
                                    {"Asha", "RENT", "-", "-", "10.00", "DR"}}));
  EXPECT_EQ(totals(form), (Rows{{"1,300.00", "1,250.00"}}));
  EXPECT_EQ(totals(form, 1), (Rows{{"1,000.00", "1,000.00"}}));
  EXPECT_EQ(form.txtdiff.text(), "50.00") << "of the current year";
}

TEST_F(LoadingTest, SortsAsTheSettingSaysAndKeepsIt) {
  addYear("C1", 2008, {{"beta", "SALES", -3}, {"Alpha", "SALES", -100}, {"Gamma", "BANKS", 20}});
  frmcrtb& form = open("C1", 2008);
  const auto order = [&] {
    return form.vsfm.cell(1, 0) + ' ' + form.vsfm.cell(2, 0) + ' ' + form.vsfm.cell(3, 0);
  };
  int index = 0;
  for (const char* sorted :
       {"beta Alpha Gamma", "Alpha beta Gamma", "Gamma Alpha beta", "Alpha Gamma beta"}) {
    form.click(form.mnusortopt[index]);
    EXPECT_TRUE(form.mnusortopt[index].checked());
    EXPECT_EQ(host().GetSettingINI("Settings", "TBSort", "?"), std::to_string(++index));
    EXPECT_EQ(order(), sorted);
  }
  open("C1", 2008);
  EXPECT_TRUE(form.mnusortopt[3].checked());
  EXPECT_EQ(order(), "Alpha Gamma beta");
  addYear("C1", 2007, {{"Old", "BANKS", 5}});
  exec("update TAB_1 set amt=0 where amt=3");
  open("C1", 2008).click(form.mnuyrs[2]);
  EXPECT_EQ(order() + ' ' + form.vsfm.cell(4, 0), "Alpha Gamma beta Old") << "even behind nothing";
}

TEST_F(LoadingTest, FindsWordsAndAmountsInTheLines) {
  addYear("C1", 2008,
          {{"State Bank", "BANKS", 123456}, {"Rent", "RENT", 40.5}, {"Bank Charges", "RENT", 99}});
  frmcrtb& form = open("C1", 2008);
  form.vsfm.setCurrent(2);
  form.focus(form.txtpart);
  form.click(form.mnufind);
  ASSERT_EQ(form.active(), &form.findBar.txtfind);
  const auto found = [&] {
    const int row = form.vsfm.current();
    return form.vsfm.cell(row, 0) + ", " + form.findBar.lblfound.caption();
  };
  const struct {
    const char* text;
    const char* first;
    const char* second;
  } cases[] = {{"bank", "Bank Charges, 2 of 2", "State Bank, 1 of 2"},
               {"rent ch", "Bank Charges, 1 of 1", "Bank Charges, 1 of 1"},
               {"1,23,456", "State Bank, 1 of 1", "State Bank, 1 of 1"},
               {"40.50", "Rent, 1 of 1", "Rent, 1 of 1"},
               {"dr", "Rent, Not found", "Rent, Not found"},
               {"", "Rent, ", "Rent, "}};
  for (const auto& each : cases) {
    type(form.findBar.txtfind, each.text);
    EXPECT_EQ(found(), each.first) << each.text;
    form.press(keys::Enter);
    EXPECT_EQ(found(), each.second) << each.text;
  }
  type(form.findBar.txtfind, "ban");
  form.click(form.mnufindprevious);
  EXPECT_EQ(found(), "State Bank, 1 of 2");
  form.press(keys::Escape);
  EXPECT_FALSE(form.findBar.famfind.visible());
  EXPECT_EQ(form.active(), &form.vsfm);
  form.click(form.mnufindnext);
  EXPECT_EQ(found(), "Bank Charges, 2 of 2") << "also while the bar is closed";
  form.press(keys::Find);
  form.focus(form.vsfm);
  form.press(keys::Escape);
  EXPECT_TRUE(form.visible() && !form.findBar.isOpen());
  // A side-step from an entry, which goes on afterwards.
  type(form.txtpart, "Zeta");
  form.press(keys::Enter);
  form.press(keys::Find);
  form.press(keys::Escape);
  EXPECT_EQ(messages(), Texts{});
  EXPECT_EQ(form.active(), &form.txtgroup);
  form.press(keys::Escape);
  EXPECT_TRUE(form.visible());
  EXPECT_EQ(form.txtpart.text(), "");
  form.click(form.mnugroup);
  EXPECT_FALSE(form.mnufind.clickable());
  // Another year is another search.
  form.close();
  EXPECT_EQ(open("C1", 2008).findBar.txtfind.text(), "");
}

TEST_F(LoadingTest, OffersTheClientsLedgersOrAll) {
  addYear("C1", 2008, {{"Mine", "SALES", -3}});
  addYear("C2", 2008, {{"Theirs", "SALES", -3}});
  frmcrtb& form = open("C1", 2008);
  EXPECT_TRUE(form.mnuclonly.checked());
  EXPECT_EQ(form.vsfp.rows(), 1);
  form.click(form.mnuall);
  EXPECT_EQ(statements(), (Texts{"Select Distinct Particular From Mast_Part"}));
  EXPECT_EQ(form.vsfp.rows(), 2);
  EXPECT_EQ(host().GetSettingINI("Settings", "ShLed", "1"), "0");
  EXPECT_TRUE(open("C1", 2008).mnuall.checked());
}

TEST_F(LoadingTest, AChoiceThatCannotBeKeptCountsForNow) {
  addYear("C1", 2008, {{"beta", "SALES", -3}, {"Alpha", "SALES", 3}});
  addYear("C2", 2008, {{"Theirs", "SALES", -3}});
  frmcrtb& form = open("C1", 2008);
  // A folder stands where the new settings are written.
  const auto file = practice.folder().settings().string() + ".new";
  std::filesystem::create_directory(file);
  form.click(form.mnusortopt[1]);
  form.click(form.mnuall);
  std::filesystem::remove(file);
  EXPECT_EQ(log().size(), 2U);
  EXPECT_TRUE(form.mnusortopt[1].checked());
  EXPECT_EQ(form.vsfm.cell(1, 0), "Alpha");
  EXPECT_TRUE(form.mnuall.checked());
  EXPECT_EQ(form.vsfp.rows(), 3);
}

TEST_F(LoadingTest, ShowsOneGroupsDebitsBesideItsCredits) {
  addYear("C1", 2008, {{"Zeta", "BANKS", 3}, {"Loan", "BANKS", -2}, {"Asha", "CAPITAL", -1}});
  frmcrtb& form = open("C1", 2008);
  form.click(form.mnugroup);
  EXPECT_FALSE(form.vsfm.shown());
  EXPECT_EQ(form.cbogroup.items(), (Texts{"BANKS", "CAPITAL"}));
  EXPECT_EQ(shown(form.vsf1), (Rows{{"Zeta", "3.00", "DR"}}));
  EXPECT_EQ(shown(form.vsf2), (Rows{{"Loan", "2.00", "CR"}}));
  const std::string id = std::to_string(group("CAPITAL"));
  statements();
  form.cbogroup.choose(2);
  EXPECT_EQ(statements().front(),
            "Select TAB_1.* from TAB_1 LEFT JOIN mast_allgrp on TAB_1.allid=mast_allgrp.allid "
            "where TAB_1.code_no='C1' and mast_allgrp.allid=" +
                id + " and TAB_1.nid=1");
  EXPECT_EQ(form.vsf1.rows(), 0);
  EXPECT_EQ(form.vsf2.rows(), 1);
  form.click(form.mnugroup);
  EXPECT_TRUE(form.vsfm.shown());
}

TEST_F(LoadingTest, AFailedRefreshKeepsWhatIsShown) {
  addYear("C1", 2008, {{"Asha", "CAPITAL", -5}});
  frmcrtb& form = open("C1", 2008);
  host().statements().failNext("Select * From TAB_1");
  form.click(form.mnurefresh);
  EXPECT_EQ(trapped(), Texts{"frmcrtb\tLOADTRIALBAL"});
  EXPECT_EQ(form.vsfm.rows(), 1);
  EXPECT_FALSE(frontEnd.busy);
}

// Whatever statement fails while another client or view is opened over the first, nothing of the
// first is on any page of the form or on paper; the next refresh reads what is missing.
class FailedOpening : public EditorTest {
 protected:
  FailedOpening() {
    addYear("C1", 2007, {{"Yak", "CAPITAL", -6006}, {"Yak", "BANKS", 6006}});
    const std::string table =
        addYear("C1", 2008, {{"Zebra", "CAPITAL", -7117}, {"Zebra", "BANKS", 7117}});
    exec("insert into " + siblingTable(table, "TRADE_") +
         "(code_no,partid,allid,amt) values('C1',1,1,7117)");
    deed.result = [&] {
      form.LOADFIGS();
      return held(form);
    };
    deed.next = {{"F5", [&] { form.click(form.mnurefresh); }}};
    deed.place = "frmcrtb";
    deed.stops = false;
  }
  // Every page has been looked at; the last one stays, and an entry is begun where it can be.
  void lookAt(int view, const Frame& page) {
    open("C1", 2008);
    form.click(form.mnuyrs[view]);
    form.click(form.mnushsumm);
    form.click(form.mnugroup);
    if (&page != &form.famLines) return;
    form.click(form.mnugroup);
    type(form.txtpart, "Zebra");
  }

  FailingDeed deed;
  frmcrtb& form{static_cast<frmcrtb&>(*practice.forms().ObjCreate())};
};

TEST_F(FailedOpening, OfAnotherClientLeavesNothingOfTheFirst) {
  for (const int year : {2007, 2008}) addYear("C2", year, {{"Lion", "CAPITAL", -5}});
  deed.act = [&] { form.show(); };
  deed.check = [&] {
    const RecordingReporter::Recording paper(context());
    for (MenuEntry* print : {&form.mnuPreview, &form.mnuprnsumm}) form.click(*print);
    log();
    for (const char* text : {"Zebra", "Yak", "7,117", "7117", "6,006", "Asha"}) {
      EXPECT_EQ(holding(form, text), Rows{});
      for (const auto& call : paper.calls()) EXPECT_EQ(call.find(text), std::string::npos) << call;
    }
  };
  for (const int view : {0, 1, 2}) {
    deed.what = "over view " + std::to_string(view);
    deed.arrange = [&, view] {
      lookAt(view, form.famLines);
      form.close();
      select("C2", 2008);
    };
    failEachStatement(deed);
  }
}

TEST_F(FailedOpening, OfAnotherViewLeavesNothingOfTheFirst) {
  deed.act = [&] { form.click(form.mnuyrs[1]); };
  deed.check = [&] {
    for (const Grid* grid : {&form.vsfm, &form.vsf1, &form.vsf2, &form.vsf3}) {
      const Rows lines = grid->shown() ? shown(*grid) : Rows{};
      for (const auto& line : lines) EXPECT_NE(line[0], "Zebra") << grid->name();
    }
    EXPECT_EQ(form.vsfm.rows() == 0, form.txttotdeb[1].text().empty());
  };
  for (Frame* page : {&form.famLines, &form.famGroups}) {
    deed.what = "in " + page->name();
    deed.arrange = [&, page] { lookAt(0, *page); };
    failEachStatement(deed);
  }
}

// Figures that could not be read to the end are neither shown nor printed.
TEST_F(LoadingTest, FailedFiguresAreEmpty) {
  addYear("C1", 2008, {{"Zebra", "CAPITAL", -7117}});
  addYear("C2", 2008, {{"Lion", "CAPITAL", -5}});
  frmcrtb& form = open("C1", 2008);
  const auto print = [&] {
    const RecordingReporter::Recording paper(context());
    form.click(form.mnuprnsumm);
    return paper.calls().size();
  };
  FailingDeed deed{.what = "showing the figures", .act = [&] { form.click(form.mnushsumm); }};
  deed.arrange = [&] {
    open("C1", 2008).click(form.mnushsumm);
    open("C2", 2008);
  };
  deed.result = [&] { return shown(form.vsfr); };
  deed.next = {{"printing", [&] { EXPECT_GT(print(), 20U); }}};
  deed.place = "frmcrtb\tLOADFIGS";
  deed.check = [&] { EXPECT_EQ(form.vsfr.rows(), 0); };
  failEachStatement(deed);
  deed.what = "printing them";
  deed.act = [&] { print(); };
  failEachStatement(deed);
  // A year before that could not be looked up is not one without figures.
  addYear("C1", 2007, {{"Yak", "CAPITAL", -6006}});
  form.close();
  select("C1", 2008);
  host().statements().failNext("and f_yr=");
  form.show();
  host().statements().failNext("and f_yr=");
  form.click(form.mnushsumm);
  EXPECT_EQ(form.vsfr.rows(), 0);
  form.click(form.mnurefresh);
  EXPECT_EQ(form.vsfr.cell(13, 2), "6,006.00");
}

}  // namespace
}  // namespace quillet::support
