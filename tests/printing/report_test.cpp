// The editor's two documents: the calls that the reporter gets, to the letter, and what comes out
// of them.
#include <gtest/gtest.h>

#include "books/amount.h"
#include "forms/editor_fixture.h"
#include "suite/dot_matrix.h"
#include "suite/reporter.h"
#include "support/recording_reporter.h"

namespace quillet::support {
namespace {

using Calls = std::vector<std::string>;

class ReportTest : public EditorTest {
 protected:
  ReportTest() {
    addYear("C1", 2007, {{"Cash", "BANKS", 70}, {"Old loan", "CAPITAL", -70}});
    addYear("C1", 2008,
            {{"Office \"A\"", "RENT", 12'000.5},
             {"Counter", "SALES", -12'345.6},
             {"Cash", "BANKS", 345.1}});
  }

  // What the reporter is told while the command runs.
  Calls calls(frmcrtb& form, Control& command) {
    const RecordingReporter::Recording recording(context());
    EXPECT_TRUE(form.click(command));
    return recording.calls();
  }
  const suite::Document& document() { return *practice.surroundings().lastReport(); }
  static double column(const suite::Document& document, std::size_t at) {
    double sum = 0;
    for (std::size_t r = 1; r + 1 < document.rows().size(); ++r) {
      sum += shownAmount(document.rows()[r].cells[at].text).rupees();
    }
    return sum;
  }
};

TEST_F(ReportTest, TheTrialBalanceAsTheGridShowsIt) {
  frmcrtb& form = open("C1", 2008);
  EXPECT_EQ(calls(form, form.mnuPreview),
            (Calls{"WinModeReport True", "NewReport", "printtext <ESC E>Trial Balance<ESC F>",
                   "printtext <ESC><DC2><ESC N>", "CreateTable 1,5",
                   "SN|Ledger Name|Group|Amount (Dr)|Amount (Cr)<ESC F> 11111 11111 00001 11111",
                   "1|Office \"A\"|RENT|12000.50| 11111 00000 00001 11111",
                   "2|Counter|SALES||12345.60 11111 00000 00001 11111",
                   "3|Cash|BANKS|345.10| 11111 00000 00001 11111",
                   "|Total||<ESC E>12345.60<ESC F>|<ESC E>12345.60<ESC F> 11111 00000 00001 11111",
                   "ShowReport"}));
  EXPECT_TRUE(document().rows().front().heading);
  EXPECT_EQ(document().rows().back().cells[3].align, suite::CellAlign::right);
}

// A sheet of paper says whose it is; the report's own headings stay as they are written.
TEST_F(ReportTest, ThePageNamesClientAndPeriod) {
  frmcrtb& form = open("C1", 2008);
  for (const auto& [view, period] :
       {std::pair{0, "01/04/2008 - 31/03/2009"}, std::pair{1, "01/04/2007 - 31/03/2008"}}) {
    form.click(form.mnuyrs[view]);
    form.click(form.mnuPreview);
    const suite::Document& report = document();
    ASSERT_EQ(report.headings().size(), 1U);
    ASSERT_EQ(report.pageHeadings().size(), 3U);
    EXPECT_EQ(report.pageHeadings()[2].text, std::string("Asha Traders (C1), ") + period);
    EXPECT_NE(suite::dotMatrixOf(report, suite::PaperWidth::columns80).find("Asha Traders (C1)"),
              std::string::npos);
  }
}

TEST_F(ReportTest, ThePrintedOrderAndYearAreTheGrids) {
  frmcrtb& form = open("C1", 2008);
  form.vsfm.sortBy(0);
  form.click(form.mnuPreview);
  EXPECT_EQ(document().rows()[1].cells[1].text, "Cash");
  EXPECT_EQ(document().rows()[1].cells[0].text, "1");

  form.click(form.mnuyrs[1]);
  form.click(form.mnuPreview);
  EXPECT_EQ(document().rows().back().cells[3].text, "70.00");

  // Beside the previous year the current one is printed; what it does not have has no amount.
  form.click(form.mnuyrs[2]);
  form.click(form.mnuPreview);
  const int old = form.vsfm.find(0, "Old loan");
  ASSERT_GT(old, 0);
  const auto& cells = document().rows()[static_cast<std::size_t>(old)].cells;
  EXPECT_EQ(cells[1].text + cells[3].text + cells[4].text, "Old loan");
  EXPECT_EQ(document().rows().back().cells[4].text, "12345.60");
}

// 3,000 lines of odd amounts: the printed total is the sum of what is printed and what the screen
// says, to the paisa.
TEST_F(ReportTest, TotalsAgreeWithTheScreen) {
  const std::string ids =
      std::to_string(ledger("Cash")) + "," + std::to_string(group("BANKS")) + ",";
  std::string lines;
  for (int i = 1; i <= 3'000; ++i) {
    lines += (i > 1 ? ",(" : "(") + std::to_string(i) + ",'C2'," + ids +
             std::to_string(i * 7919 % 1'000'003) + "." + std::to_string(10 + i % 90) + "," +
             std::to_string(i % 3 == 0 ? 2 : 1) + ")";
  }
  exec("insert into " + addYear("C2", 2008) + " values" + lines);
  frmcrtb& form = open("C2", 2008);
  form.click(form.mnuPreview);
  const auto& total = document().rows().back().cells;
  EXPECT_EQ(document().rows().size(), 3'002U);
  for (const std::size_t side : {3U, 4U}) {
    const auto& box = side == 3 ? form.txttotdeb[0] : form.txttotcr[0];
    EXPECT_EQ(host().formatgen(shownAmount(total[side].text).rupees(), "#,##0.00"), box.text());
    EXPECT_EQ(host().formatgen(column(document(), side), "###0.00"), total[side].text);
  }
}

TEST_F(ReportTest, TheSummaryPrintsItsGridAndMarksTheResults) {
  frmcrtb& form = open("C1", 2008);
  // From the menu, without the summary on screen.
  const Calls made = calls(form, form.mnuprnsumm);
  ASSERT_EQ(made.size(), 26U);
  EXPECT_EQ(Calls(made.begin(), made.begin() + 10),
            (Calls{"WinModeReport True", "NewReport", "printtext <ESC E>Summarized Details<ESC F>",
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
  EXPECT_EQ(trapped(), (Calls{"frmcrtb\tPrintTrial", "frmcrtb\tREPORT_SUMM"}));
  EXPECT_FALSE(frontEnd.busy);
}

}  // namespace
}  // namespace quillet::support
