// Reports on paper: pages, columns, PDF, the window that shows them.
#include <QProcess>
#include <QTemporaryDir>

#include "desktop/desktop_test.h"
#include "desktop/pdf.h"
#include "desktop/report_pages.h"
#include "desktop/report_window.h"

namespace quillet::desktop {
namespace {

using ReportsShown = DesktopTest;

// Each row's cells and whether it is one of the headings.
using Rows = std::vector<std::pair<std::vector<std::string>, bool>>;

suite::Document table(const Rows& rows, const std::vector<Align>& alignments = {},
                      const std::vector<std::string>& headings = {}) {
  suite::Document document;
  for (const std::string& heading : headings) document.addHeading(heading);
  document.beginTable();
  for (const auto& [values, heading] : rows) {
    suite::Document::Written row;
    row.values = values;
    row.alignments = alignments;
    row.masks = {"0", "0", "0", "1"};
    row.heading = heading;
    document.addRow(row);
  }
  return document;
}

suite::Document report(int ledgers, std::size_t textColumns = 1) {
  std::vector<std::string> cells(textColumns, "PARTICULARS OF THE LEDGER ACCOUNT");
  std::vector<Align> alignments(textColumns, Align::left);
  cells.emplace_back("AMOUNT");
  alignments.push_back(Align::right);
  Rows rows{{cells, true}};
  for (int ledger = 0; ledger < ledgers; ++ledger) {
    cells.front() = "Ledger " + std::to_string(ledger);
    cells.back() = std::to_string(ledger) + ".00";
    rows.emplace_back(cells, false);
  }
  return table(rows, alignments,
               {"SHAH & CO", "Trial Balance For the Period From 01/04/2008 To 31/03/2009"});
}

TEST(Reports, RepeatHeadingRowsAndLoseNoRow) {
  const suite::Document document = report(250);
  const ReportPages pages(document, QDate(2009, 4, 1));
  ASSERT_GT(pages.count(), 2);
  std::size_t printed = 0;
  for (int page = 0; page < pages.count(); ++page) {
    ASSERT_FALSE(pages.rowsOn(page).empty());
    EXPECT_EQ(pages.rowsOn(page).front(), 0u) << "the heading row stands on page " << page;
    printed += pages.rowsOn(page).size() - 1;
  }
  EXPECT_EQ(printed, 250u);
  EXPECT_EQ(pages.rowsOn(pages.count() - 1).back(), 250u);
}

// A narration of any length costs neither the amounts their place nor itself its end.
TEST(Reports, ALongTextWrapsAndGoesOnOverleaf) {
  std::string narration;
  while (narration.size() < 16'000) narration += "being the share of profit ";
  const suite::Document document = table({{{"Date", "Particulars", "Amount"}, true},
                                          {{"2-6-2008", "By Capital", "12,345.60"}, false},
                                          {{"", narration, ""}, false},
                                          {{"3-6-2008", "By Capital", "1.00"}, false}},
                                         {Align::left, Align::left, Align::right});
  const ReportPages pages(document, QDate(2009, 4, 1));
  EXPECT_FALSE(pages.landscape());
  for (const std::size_t cell : {0U, 1U, 2U}) {
    EXPECT_LT(pages.room(document.rows()[2], cell).right(), pages.size().width()) << cell;
  }
  EXPECT_LT(pages.room(document.rows()[1], 0).right(), pages.room(document.rows()[1], 1).left());
  ASSERT_GT(pages.count(), 2);
  using Indices = std::vector<std::size_t>;
  EXPECT_EQ(pages.rowsOn(0), (Indices{0, 1}));
  for (int page = 1; page + 1 < pages.count(); ++page)
    EXPECT_EQ(pages.rowsOn(page), (Indices{0, 2}));
  EXPECT_EQ(pages.rowsOn(pages.count() - 1), (Indices{0, 2, 3}));
}

TEST(Reports, HeadingsOfBlocksStandOverTheirColumns) {
  const suite::Document document = table({{{"Particular", "Original", "Final"}, true},
                                          {{"", "Dr.", "Cr.", "Dr.", "Cr."}, true},
                                          {{"A note on the rest of the line", "goes on"}, false}});
  const ReportPages pages(document, QDate(2009, 4, 1));
  const auto room = [&](std::size_t row, std::size_t cell) {
    return pages.room(document.rows()[row], cell);
  };
  for (const std::size_t block : {1U, 2U}) {
    EXPECT_EQ(room(0, block).left(), room(1, 2 * block - 1).left()) << block;
    EXPECT_EQ(room(0, block).right(), room(1, 2 * block).right()) << block;
  }
  EXPECT_EQ(room(2, 1).left(), room(1, 1).left());
  EXPECT_EQ(room(2, 1).right(), room(1, 4).right());
}

TEST(Reports, TurnThePageWhenTheColumnsNeedIt) {
  const suite::Document slim = report(3), wide = report(3, 5), empty;
  EXPECT_FALSE(ReportPages(slim, {}).landscape());
  EXPECT_TRUE(ReportPages(wide, {}).landscape());
  EXPECT_EQ(ReportPages(empty, {}).count(), 1);
}

TEST(Reports, AreSavedWholeWithAWideTitleOrNotAtAll) {
  suite::Document document = report(120);
  document.setFirm("A firm of a name so long that " + std::string(60, 'n') + " " +
                   std::string(60, 'm') + " does not fit a line of any page that is printed");
  const QTemporaryDir folder;
  EXPECT_FALSE(savePdf(document, folder.filePath("no/such/folder.pdf")));
  const QString path = folder.filePath("tb.pdf");
  ASSERT_TRUE(savePdf(document, path, QDate(2009, 4, 1)));
  QProcess reader;
  reader.start("pdftotext", {"-layout", path, "-"});
  ASSERT_TRUE(reader.waitForFinished());
  const QByteArray text = reader.readAllStandardOutput();
  EXPECT_TRUE(text.contains("that is printed\n")) << text.constData();
  EXPECT_LT(text.indexOf("printed\n"), text.indexOf("SHAH & CO"));
  EXPECT_LT(text.indexOf("SHAH & CO"), text.indexOf("PARTICULARS"));
  EXPECT_GE(text.count('\f'), 3) << "pages";
  EXPECT_TRUE(text.contains("119.00"));
}

TEST_F(ReportsShown, ReportsAreShownPageByPage) {
  int read = 0;
  theApplication().showReport(report(1));
  theApplication().whenReportIsRead([&] { read += 10; });  // another one takes its place
  theApplication().showReport(report(250));
  theApplication().whenReportIsRead([&] { ++read; });
  settle();
  EXPECT_EQ(read, 0);
  auto* shown = dynamic_cast<ReportWindow*>(QApplication::activeWindow());
  ASSERT_TRUE(shown);
  EXPECT_EQ(shown->pageInView(), 0);
  const double fitting = shown->scale();
  shown->zoom(1.25);
  EXPECT_DOUBLE_EQ(shown->scale(), fitting * 1.25);
  EXPECT_FALSE(theApplication().screenshot().isNull());
  QTest::keyClick(shown->centralWidget(), Qt::Key_Escape);
  settle();
  EXPECT_EQ(dynamic_cast<ReportWindow*>(QApplication::activeWindow()), nullptr);
  EXPECT_EQ(read, 1);
}

}  // namespace
}  // namespace quillet::desktop
