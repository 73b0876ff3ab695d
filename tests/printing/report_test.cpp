// The editor's two documents: the calls that the reporter gets, to the letter, and what comes out
// of them.
#include <gtest/gtest.h>

#include "books/amount.h"
#include "printing/many_lines.h"
#include "suite/dot_matrix.h"
#include "suite/reporter.h"
#include "support/recording_reporter.h"

namespace quillet::support {
namespace {

class ReportTest : public ManyLinesTest {
 protected:
  ReportTest() {
    addYear("C1", 2007, {{"Cash", "BANKS", 70}, {"Old loan", "CAPITAL", -70}});
    addYear("C1", 2008,
            {{"Office \"A\"", "RENT", 12'000.5},
             {"Counter", "SALES", -12'345.6},
             {"Cash", "BANKS", 345.1}});
  }

  // What the reporter is told while the command runs.
  Texts calls(frmcrtb& form, Control& command) {
    const RecordingReporter::Recording recording(context());
    EXPECT_TRUE(form.click(command));
    return recording.calls();
  }
};

TEST_F(ReportTest, TheTrialBalanceAsTheGridShowsIt) {
  frmcrtb& form = open("C1", 2008);
  EXPECT_EQ(calls(form, form.mnuPreview),
            (Texts{"WinModeReport True", "NewReport", "printtext <ESC E>Trial Balance<ESC F>",
                   "printtext <ESC><DC2><ESC N>", "CreateTable 1,5",
                   "SN|Ledger Name|Group|Amount (Dr)|Amount (Cr)<ESC F> 11111 11111 00001 11111",
                   "1|Office \"A\"|RENT|12000.50| 11111 00000 00001 11111",
                   "2|Counter|SALES||12345.60 11111 00000 00001 11111",
                   "3|Cash|BANKS|345.10| 11111 00000 00001 11111",
                   "|Total||<ESC E>12345.60<ESC F>|<ESC E>12345.60<ESC F> 11111 00000 00001 11111",
                   "ShowReport"}));
  EXPECT_TRUE(document().rows().front().heading);
  EXPECT_EQ(document().rows().back().cells[3].align, Align::right);
}

// A sheet of paper says whose it is; the report's own headings stay as they are written.
TEST_F(ReportTest, PageOrderAndYearAreTheGrids) {
  frmcrtb& form = open("C1", 2008);
  form.vsfm.sortBy(0);
  const struct {
    const char* period;
    Texts first, last;
  } cases[] = {{"01/04/2008 - 31/03/2009",
                {"1", "Cash", "BANKS", "345.10", ""},
                {"", "Total", "", "12345.60", "12345.60"}},
               {"01/04/2007 - 31/03/2008",
                {"1", "Cash", "BANKS", "70.00", ""},
                {"", "Total", "", "70.00", "70.00"}}};
  for (const int view : {0, 1}) {
    if (view == 1) form.click(form.mnuyrs[1]);
    form.click(form.mnuPreview);
    EXPECT_EQ(printed()[1], cases[view].first);
    EXPECT_EQ(printed().back(), cases[view].last);
    ASSERT_EQ(document().headings().size(), 1U);
    ASSERT_EQ(document().pageHeadings().size(), 3U);
    EXPECT_EQ(document().pageHeadings()[2].text,
              std::string("Asha Traders (C1), ") + cases[view].period);
    EXPECT_NE(
        suite::dotMatrixOf(document(), suite::PaperWidth::columns80).find("Asha Traders (C1)"),
        std::string::npos);
  }
  EXPECT_EQ(document().fileName(), "Asha Traders 2007-08 Trial Balance");
  // Beside the previous year the current one is printed; what it does not have has no amount.
  form.click(form.mnuyrs[2]);
  form.click(form.mnuPreview);
  const auto old = static_cast<std::size_t>(form.vsfm.find(0, "Old loan"));
  EXPECT_EQ(printed().at(old), (Texts{std::to_string(old), "Old loan", "CAPITAL", "", ""}));
  EXPECT_EQ(printed().back(), cases[0].last);
}

// What both years differ by: debit positive, credit negative, the per cent positive where a balance
// grew on its own side, and none of nothing.
TEST_F(ReportTest, BothYearsWithTheVariance) {
  addYear("C3", 2007,
          {{"Cash", "BANKS", 200},
           {"Rent", "RENT", 100},
           {"Sales", "SALES", -300},
           {"Nil", "RENT", 0},
           {"Old loan", "CAPITAL", -70},
           {"Same", "RENT", 70}});
  addYear("C3", 2008,
          {{"Cash", "BANKS", -50},
           {"Rent", "RENT", 150},
           {"Sales", "SALES", -400},
           {"Nil", "RENT", 5},
           {"New", "RENT", 225.5},
           {"Same", "RENT", 70}});
  frmcrtb& form = open("C3", 2008);
  EXPECT_FALSE(form.mnuprnvar.enabled());
  form.click(form.mnuyrs[2]);
  const Texts told = calls(form, form.mnuprnvar);
  EXPECT_EQ(told[2], "printtext <ESC E>Trial Balance with Variance<ESC F>");
  EXPECT_EQ(told[4], "CreateTable 1,9");
  EXPECT_EQ(told[5],
            "SN|Ledger Name|Group|Amount (Curr)|Dr/Cr|Amount (Prev)|Dr/Cr|Variance|%<ESC F> "
            "111111111 111111111 000000001 111111111");
  Rows rows = printed();
  rows.erase(rows.begin());
  EXPECT_EQ(rows,
            (Rows{{"1", "Cash", "BANKS", "50.00", "CR", "200.00", "DR", "-250.00", "-125.00"},
                  {"2", "Rent", "RENT", "150.00", "DR", "100.00", "DR", "50.00", "50.00"},
                  {"3", "Sales", "SALES", "400.00", "CR", "300.00", "CR", "-100.00", "33.33"},
                  {"4", "Nil", "RENT", "5.00", "DR", "0.00", "DR", "5.00", ""},
                  {"5", "New", "RENT", "225.50", "DR", "-", "-", "225.50", ""},
                  {"6", "Same", "RENT", "70.00", "DR", "70.00", "DR", "0.00", "0.00"},
                  {"7", "Old loan", "CAPITAL", "-", "-", "70.00", "CR", "70.00", "-100.00"},
                  {"", "Total Debit", "", "450.50", "DR", "370.00", "DR", "80.50", "21.76"},
                  {"", "Total Credit", "", "450.00", "CR", "370.00", "CR", "-80.00", "21.62"}}));
  EXPECT_EQ(document().fileName(), "C3 2008-09 Trial Balance with Variance");
}

// A name can be anything, a file's cannot.
TEST(ReportFileName, LeadsOutOfNoFolderAndIsNotTooLong) {
  const auto named = [](const std::string& subject) {
    suite::Document document;
    document.addHeading("Subsidiary Trial Balance of Rao & Co for the Period from 1/4/2008");
    document.setFileSubject(subject);
    return document.fileName();
  };
  EXPECT_EQ(named("../../a\\b: \n2008-09"), "-.-..-a-b- -2008-09 Subsidiary Trial Balance");
  EXPECT_EQ(named(""), "Subsidiary Trial Balance");
  std::string name;
  while (name.size() < 400) name += "म";
  EXPECT_LE(named(name).size(), 200U);
  EXPECT_TRUE(named(name).ends_with("म Subsidiary Trial Balance"));
}

// 3,000 lines of odd amounts: the printed total is the sum of what is printed and what the screen
// says, to the paisa.
TEST_F(ReportTest, TotalsAgreeWithTheScreen) {
  fill(addYear("C2", 2008), 3'000);
  frmcrtb& form = open("C2", 2008);
  form.click(form.mnuPreview);
  const Rows rows = printed();
  ASSERT_EQ(rows.size(), 3'002U);
  for (const std::size_t side : {3U, 4U}) {
    double sum = 0;
    for (std::size_t row = 1; row <= 3'000; ++row) sum += shownAmount(rows[row][side]).rupees();
    EXPECT_EQ(host().formatgen(sum, "###0.00"), rows.back()[side]);
    EXPECT_EQ(host().formatgen(sum, "#,##0.00"),
              (side == 3 ? form.txttotdeb : form.txttotcr)[0].text());
  }
}

TEST_F(ReportTest, TheSummaryPrintsItsGridAndMarksTheResults) {
  frmcrtb& form = open("C1", 2008);
  // From the menu, without the summary on screen.
  const Texts made = calls(form, form.mnuprnsumm);
  ASSERT_EQ(made.size(), 26U);
  EXPECT_EQ(Texts(made.begin(), made.begin() + 10),
            (Texts{"WinModeReport True", "NewReport", "printtext <ESC E>Summarized Details<ESC F>",
                   "printtext <ESC><DC2><ESC N>", "CreateTable 1,3",
                   "Particulars|Amount(Curr)|Amount(Prev)<ESC F> 111 111 001 111",
                   "Opening Stock|0.00|0.00 000 000 001 111", "Purchases|0.00|0.00 000 000 001 111",
                   "Direct Expenses|0.00|0.00 000 000 001 111",
                   "Less : Closing Stock|0.00|0.00 000 000 001 111"}));
  EXPECT_EQ(made[11], "Sales|12,345.60|0.00 000 000 001 111");
  EXPECT_EQ(made[12],
            "<ESC E>Gross Profit/(Loss)<ESC F>|<ESC E>12,345.60<ESC F>|<ESC E>0.00<ESC F> 111 000 "
            "001 111");
  EXPECT_EQ(made[22], "GP Rate|100.00|- 000 000 001 111");
  EXPECT_EQ(made.back(), "ShowReport");
  // And from the button beside the figures.
  form.click(form.mnushsumm);
  EXPECT_EQ(calls(form, form.cmdprnsumm), made);
}

TEST_F(ReportTest, AReportThatCannotBeWrittenIsNotShown) {
  frmcrtb& form = open("C1", 2008);
  class Failing : public suite::DocumentReporter {
   public:
    using DocumentReporter::DocumentReporter;
    void CreateTable(int, int) override { throw std::runtime_error("out of paper"); }
  };
  bool shown = false;
  const auto real = std::exchange(
      context().reporter, std::make_unique<Failing>([&](const suite::Document&) { shown = true; }));
  form.click(form.mnuPreview);
  form.click(form.mnuprnsumm);
  EXPECT_FALSE(shown);
  EXPECT_EQ(trapped(), (Texts{"frmcrtb\tPrintTrial", "frmcrtb\tREPORT_SUMM"}));
  EXPECT_FALSE(frontEnd.busy);
}

}  // namespace
}  // namespace quillet::support
