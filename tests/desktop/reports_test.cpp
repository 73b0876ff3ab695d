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

// What a program that is not ours reads in the file.
QByteArray textIn(const QString& pdf) {
  QProcess reader;
  reader.start("pdftotext", {"-layout", pdf, "-"});
  EXPECT_TRUE(reader.waitForFinished());
  return reader.readAllStandardOutput();
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

TEST(Reports, TurnThePageWhenTheColumnsNeedItOrAPersonWantsIt) {
  using enum ReportStyle::Orientation;
  const suite::Document slim = report(3), wide = report(3, 5), empty;
  const struct {
    const suite::Document& document;
    ReportStyle::Orientation wanted;
    bool landscape;
  } cases[] = {{slim, automatic, false},
               {slim, landscape, true},
               {wide, automatic, true},
               {wide, portrait, false},
               {empty, automatic, false}};
  for (const auto& [document, wanted, landscape] : cases) {
    const ReportPages pages(document, {}, {wanted});
    EXPECT_EQ(pages.landscape(), landscape);
    EXPECT_EQ(pages.count(), 1);
    if (document.rows().empty()) continue;
    const std::size_t last = document.rows()[0].cells.size() - 1;
    EXPECT_LT(pages.room(document.rows()[1], last).right(), pages.size().width());
  }
}

// Long names and the largest figures: 2,000 lines on upright sheets, no row torn, nothing cut.
TEST(Reports, NamesWrapAndFiguresStayWhole) {
  const std::string unbroken(90, 'Q');
  const std::vector<std::string> names{"Salaries", "Elavanti Synthetics", "Bank Charges",
                                       "Sri Venkateswara Handloom Weavers Society, Kaveripur",
                                       "कावेरीपुर व्यापार मंडल 😀"};
  Rows rows{{{"SN", "Ledger Name", "Group", "Amount (Dr)", "Amount (Cr)"}, true}};
  for (int line = 1; line <= 2'000; ++line) {
    const std::string& name = line == 7 ? unbroken : names[static_cast<std::size_t>(line) % 5];
    rows.push_back(
        {{std::to_string(line), name, "SUNDRY CREDITORS", "9999999999999.99", ""}, false});
  }
  const suite::Document document =
      table(rows, {Align::right, Align::left, Align::left, Align::right, Align::right});
  const ReportStyle style{ReportStyle::Orientation::automatic, view::Grouping::lakhs};
  const ReportPages pages(document, QDate(2009, 4, 1), style);
  EXPECT_FALSE(pages.landscape());
  EXPECT_LT(pages.count(), 60);
  std::vector<std::size_t> begun(rows.size());
  for (int page = 0; page < pages.count(); ++page) {
    for (const std::size_t row : pages.rowsOn(page)) ++begun[row];
  }
  EXPECT_EQ(std::count(begun.begin() + 1, begun.end(), 1U), 2'000);
  EXPECT_EQ(pages.pageOf(2'000), pages.count() - 1);

  const QTemporaryDir folder;
  const QString path = folder.filePath("tb.pdf");
  ASSERT_TRUE(savePdf(document, path, QDate(2009, 4, 1), style));
  const QByteArray text = textIn(path);
  EXPECT_EQ(text.count("99,99,99,99,99,999.99"), 2'000);
  EXPECT_EQ(text.count("Ledger Name"), pages.count());
  EXPECT_EQ(text.count('Q'), 90);
  const QByteArray place = "Page 2 of " + QByteArray::number(pages.count());
  EXPECT_TRUE(text.contains(place)) << place.constData();
}

TEST(Reports, AreSavedWholeWithAWideTitleOrNotAtAll) {
  suite::Document document = report(120);
  document.setFirm("A firm of a name so long that " + std::string(60, 'n') + " " +
                   std::string(60, 'm') + " does not fit a line of any page that is printed");
  const QTemporaryDir folder;
  EXPECT_FALSE(savePdf(document, folder.filePath("no/such/folder.pdf")));
  const QString path = folder.filePath("tb.pdf");
  ASSERT_TRUE(savePdf(document, path, QDate(2009, 4, 1)));
  const QByteArray text = textIn(path);
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
  EXPECT_TRUE(shown->screen()->availableGeometry().contains(shown->frameGeometry()));
  const auto press = [&](Qt::Key code, Qt::KeyboardModifiers held = {}) {
    QTest::keyClick(shown->centralWidget(), code, held);
    settle();
  };
  const double fitting = shown->scale();
  for (const Qt::Key plus : {Qt::Key_Plus, Qt::Key_Equal}) {
    press(plus, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(shown->scale(), fitting * 1.25);
    press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(shown->scale(), fitting);
  }
  const int last = shown->pages().count() - 1;
  press(Qt::Key_End);
  EXPECT_EQ(shown->pageInView(), last);
  press(Qt::Key_Home);
  press(Qt::Key_PageDown);
  press(Qt::Key_PageDown);
  EXPECT_GT(shown->pageInView(), 0);
  EXPECT_LT(shown->pageInView(), last);
  press(Qt::Key_L, Qt::ControlModifier);
  EXPECT_TRUE(shown->pages().landscape());
  EXPECT_GT(shown->pageInView(), 0) << "what was read stays in view";
  press(Qt::Key_L, Qt::ControlModifier);
  EXPECT_FALSE(shown->pages().landscape());
  EXPECT_FALSE(theApplication().screenshot().isNull());
  QTest::keyClick(shown->centralWidget(), Qt::Key_Escape);
  settle();
  EXPECT_EQ(dynamic_cast<ReportWindow*>(QApplication::activeWindow()), nullptr);
  EXPECT_EQ(read, 1);
}

}  // namespace
}  // namespace quillet::desktop
