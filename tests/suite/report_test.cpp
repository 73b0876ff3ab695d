// The report component: what is written, what it looks like, how it reads as text.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "suite/document.h"
#include "suite/text_report.h"
#include "support/practice.h"

namespace quillet::suite {
namespace {

const std::string on = "\x1B\x45", off = "\x1B\x46";

class ReportTest : public support::PracticeTest {
 protected:
  Reporter& reporter() { return *context().reporter; }
  void begin() {
    reporter().WinModeReport(true);
    reporter().NewReport();
  }
  void write(std::vector<std::string> values, std::string rules, std::string emphasis,
             std::string last, std::string printed, bool heading = false) {
    std::vector<Align> alignments = alignments_;
    std::vector<long> widths;
    std::vector<std::string> before, after;
    reporter().WriteToReport(values, alignments, widths, before, after, heading, rules, emphasis,
                             last, printed);
  }
  const Document& report() { return practice.environment().lastReport().value(); }

  std::vector<Align> alignments_ = {Align::left, Align::right, Align::right};
};

TEST_F(ReportTest, PrinterCodesBecomeEmphasisAndVanish) {
  begin();
  reporter().printtext(on + "Trial Balance" + off);
  reporter().printtext("\x1B\x12\x1BN");
  reporter().printtext(
      "plain \x0F"
      "line");
  reporter().printtext("");
  reporter().CreateTable(1, 3);
  write({on + "SN", "Name", "Amount" + off}, "111", "000", "001", "111", true);
  write({"1", "Cash", "5.00"}, "0", "0", "001", "111");
  write({"", on + "Total" + off, "5.00"}, "011", "001", "001", "110");
  EXPECT_FALSE(practice.environment().lastReport().has_value());
  reporter().ShowReport();

  ASSERT_EQ(report().headings().size(), 3U) << "a line of codes prints nothing";
  EXPECT_EQ(report().headings()[0].text, "Trial Balance");
  EXPECT_TRUE(report().headings()[0].emphasised);
  EXPECT_EQ(report().headings()[1].text, "plain line");
  EXPECT_FALSE(report().headings()[1].emphasised);

  // Of each cell: ruled, emphasised, printed.
  std::vector<std::string> looks;
  for (const auto& row : report().rows()) {
    std::string& look = looks.emplace_back();
    for (const ReportCell& cell : row.cells) {
      look += cell.ruled ? 'r' : '-';
      look += cell.emphasised ? 'e' : '-';
      look += cell.printed ? "p " : "- ";
    }
  }
  EXPECT_EQ(looks, (std::vector<std::string>{"rep rep rep ", "--p --p --p ", "--p rep re- "}));
  EXPECT_EQ(report().rows()[0].cells[0].text, "SN");
  EXPECT_TRUE(report().rows()[0].heading);
  EXPECT_EQ(report().rows()[1].masks, (std::array<std::string, 4>{"0", "0", "001", "111"}));
  EXPECT_EQ(report().rows()[1].cells[1].align, Align::right);
}

TEST_F(ReportTest, BeginsEmptyAndEndsARowWithItsLastCell) {
  for (const std::string text : {"first", "second"}) {
    begin();
    reporter().printtext(text);
    write({"a", "b", "left over"}, "0", "0", "01", "11");
    reporter().ShowReport();
    ASSERT_EQ(report().headings().size(), 1U);
    EXPECT_EQ(report().headings()[0].text, text);
    ASSERT_EQ(report().rows().size(), 1U);
    EXPECT_EQ(report().rows()[0].cells.size(), 2U);
  }
}

TEST_F(ReportTest, ReadsAsTextWithBlocksOverTheirColumns) {
  begin();
  reporter().printtext("Subsidiary Trial Balance");
  reporter().CreateTable(1, 5);
  alignments_ = {Align::left, Align::center, Align::center};
  write({"Particular", "Original", "Final"}, "011", "111", "001", "111", true);
  alignments_.assign(5, Align::right);
  alignments_.front() = Align::left;
  write({"", "Dr.", "Cr.", "Dr.", "Cr."}, "11111", "0", "00001", "11111", true);
  write({"Bänk", "1,250.00", "-", "1,250.00", "-"}, "0", "0", "00001", "11111");
  write({"Total", "1,250.00", "-", "1,250.00", "-"}, "01111", "0", "00001", "11101");
  reporter().ShowReport();
  EXPECT_EQ(textOf(report()),
            "Sample & Associates\n"
            "Subsidiary Trial Balance\n"
            "\n"
            "            -------------  -------------\n"
            "Particular    Original         Final\n"
            "----------  --------  ---  --------  ---\n"
            "                 Dr.  Cr.       Dr.  Cr.\n"
            "Bänk        1,250.00    -  1,250.00    -\n"
            "            --------  ---  --------  ---\n"
            "Total       1,250.00    -              -\n");
}

}  // namespace
}  // namespace quillet::suite
