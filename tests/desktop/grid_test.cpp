// Grids: the cells are read on demand, mouse and keys go through the model.
#include <QClipboard>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QTableView>

#include "desktop/desktop_test.h"
#include "desktop/grid_model.h"
#include "desktop/grid_table.h"

namespace quillet::desktop {
namespace {

class GridViews : public DesktopTest {
 protected:
  GridTable* table() { return static_cast<GridTable*>(widget<QTableView>(form.vsf)); }
  QPoint cellAt(int row, int column) {
    return table()->visualRect(table()->model()->index(row, column)).center();
  }
  void clickCell(int row, int column) { click(table()->viewport(), cellAt(row, column)); }
  QString shown(int row, int column) {
    return table()->model()->index(row, column).data().toString();
  }
  int selectedRow() {
    const auto rows = table()->selectionModel()->selectedRows();
    return rows.empty() ? -1 : rows.front().row();
  }
};

TEST_F(GridViews, ShowTheCurrentRowOfTheModel) {
  EXPECT_EQ(selectedRow(), 1);
  clickCell(2, 1);
  EXPECT_EQ(form.vsf.current(), 3);
  EXPECT_EQ(form.active(), &form.vsf);
  key(Qt::Key_Down);
  EXPECT_EQ(form.vsf.current(), 4);
  EXPECT_EQ(selectedRow(), 3);
  form.vsf.setCurrent(0);
  settle();
  EXPECT_EQ(selectedRow(), -1);
}

TEST_F(GridViews, TickCellsTurnByMouseAndKey) {
  clickCell(1, 0);
  EXPECT_TRUE(form.vsf.ticked(2));
  EXPECT_EQ(form.takeEvents().back(), "edited 2 0");
  key(Qt::Key_Space);
  EXPECT_FALSE(form.vsf.ticked(2));
}

TEST_F(GridViews, OnlyEditableCellsAreEdited) {
  focus(form.vsf);
  key(Qt::Key_F2);
  auto* editor = table()->viewport()->findChild<QLineEdit*>();
  ASSERT_TRUE(editor);
  EXPECT_EQ(editor->text(), "Bank Accounts");
  editor->setFocus();
  editor->selectAll();
  QTest::keyClicks(editor, "Cash");
  QTest::keyClick(editor, Qt::Key_Return);
  settle();
  EXPECT_EQ(form.vsf.cell(2, 2), "Cash");
  EXPECT_EQ(form.takeEvents().back(), "edited 2 2");
  QTest::mouseDClick(table()->viewport(), Qt::LeftButton, {}, cellAt(2, 3));
  EXPECT_EQ(form.vsf.current(), 3);
  EXPECT_EQ(form.takeEvents().back(), "dblclick vsf");
}

TEST_F(GridViews, AHeadingSortsAndShowsTheOrder) {
  QHeaderView* header = table()->horizontalHeader();
  const QPoint amount(header->sectionViewportPosition(3) + 20, header->height() / 2);
  click(header->viewport(), amount);
  EXPECT_EQ(form.vsf.cell(1, 1), "Rent");
  EXPECT_EQ(shown(4, 1), "Total");
  EXPECT_EQ(header->sortIndicatorSection(), 3);
  EXPECT_EQ(selectedRow(), form.vsf.current() - 1);
  click(header->viewport(), amount);
  EXPECT_EQ(shown(0, 1), "Total");
  EXPECT_EQ(header->sortIndicatorOrder(), Qt::DescendingOrder);
}

TEST_F(GridViews, RowsAreSelectedAndCopiedByKeysAndMouse) {
  const auto copied = [&] {
    key(Qt::Key_C, Qt::ControlModifier);
    return QGuiApplication::clipboard()->text().toStdString();
  };
  const std::string bank = "\tBank of India\tBank Accounts\t250000.50";
  const std::string capital = "\tCapital\tCapital Account\t1000000.00";
  focus(form.vsf);
  EXPECT_EQ(copied(), bank);
  key(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(form.vsf.current(), 2) << "commands act on the same row";
  EXPECT_EQ(copied(), bank + '\n' + capital);
  const QImage selected = table()->grab().toImage();
  key(Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_EQ(copied(), bank);
  EXPECT_NE(table()->grab().toImage(), selected);
  QTest::mouseClick(table()->viewport(), Qt::LeftButton, Qt::ControlModifier, cellAt(2, 1));
  EXPECT_EQ(copied(), bank + '\n' + capital);
  QTest::mouseClick(table()->viewport(), Qt::LeftButton, Qt::ShiftModifier, cellAt(4, 1));
  EXPECT_EQ(form.vsf.selection.rows(), (std::vector<int>{2, 3, 4, 5}));
  key(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(form.vsf.selection.rows().size(), 5U);
  key(Qt::Key_Down);
  EXPECT_EQ(copied(), capital);
  key(Qt::Key_4, Qt::ControlModifier);
  EXPECT_EQ(form.vsf.sortColumn(), 3) << "the fourth that is shown";
}

TEST_F(GridViews, FiguresAreMarkedRatherThanCut) {
  table()->horizontalHeader()->resizeSection(3, 60);
  settle();
  const auto painted = [&] {
    return table()->viewport()->grab(table()->visualRect(table()->model()->index(2, 3))).toImage();
  };
  const QImage marks = painted();
  form.vsf.setCell(3, 3, "9876543.21");
  settle();
  EXPECT_EQ(painted(), marks);
  table()->horizontalHeader()->resizeSection(3, 200);
  EXPECT_NE(painted(), marks);
}

TEST_F(GridViews, RightClickAndMenuKeyAskForThePopup) {
  QTest::mouseClick(table()->viewport(), Qt::RightButton, {}, cellAt(3, 1));
  EXPECT_EQ(form.takeEvents().back(), "popup 4");
  key(Qt::Key_Menu);
  EXPECT_EQ(form.takeEvents().back(), "popup 4");
}

TEST_F(GridViews, HiddenRowsAndColumnsAreNotShown) {
  form.vsf.setRowHidden(1, true);
  form.vsf.setRowHidden(3, true);
  form.vsf.setColumnHidden(2, true);
  form.vsf.setCurrent(4);
  settle();
  ASSERT_EQ(table()->model()->rowCount(), 3);
  EXPECT_EQ(shown(0, 1), "Bank of India");
  EXPECT_EQ(shown(1, 1), "Salaries");
  EXPECT_EQ(selectedRow(), 1);
  ASSERT_EQ(table()->model()->columnCount(), 3);
  EXPECT_EQ(shown(0, 2), "250000.50");
  clickCell(0, 1);
  EXPECT_EQ(form.vsf.current(), 2);
}

TEST_F(GridViews, ARowIsShownWholeOrNotAtAll) {
  for (int row = 0; row < 60; ++row) form.vsf.addRow({"", "Ledger"});
  const int height = table()->verticalHeader()->defaultSectionSize();
  for (int more = 0; more < height; more += 5) {
    window()->resize(1300, 500 + more);
    for (const int row : {60, 7, 33, 1}) {
      form.vsf.setCurrent(row);
      settle();
      EXPECT_EQ(table()->viewport()->height() % height, 0) << more;
      EXPECT_EQ(table()->rowViewportPosition(table()->rowAt(0)), 0) << more << ' ' << row;
      EXPECT_LE(table()->visualRect(table()->currentIndex()).bottom(),
                table()->viewport()->height());
    }
    EXPECT_LT(table()->geometry().bottom() - table()->frameRect().bottom(), 2 * height);
  }
}

// The rows may come before the size does, and others into a list that was scrolled.
TEST_F(GridViews, AListBeginsWithItsFirstRowWhereTheCurrentOneFits) {
  QWidget frame;
  auto* small = new GridTable(form.vsf, &frame);
  const auto fill = [&](int rows, int current) {
    form.vsf.clearRows();
    for (int row = 1; row <= rows; ++row) form.vsf.addRow({"", "Ledger " + std::to_string(row)});
    form.vsf.setCurrent(current);
    small->refresh();
  };
  fill(60, 6);
  frame.resize(600, 400);
  small->resize(600, 400);
  frame.show();
  settle();
  EXPECT_EQ(small->rowAt(0), 0);
  fill(50, 40);
  EXPECT_GT(small->rowAt(0), 0);
  EXPECT_TRUE(small->viewport()->rect().contains(small->visualRect(small->currentIndex())));
  fill(55, 6);
  EXPECT_EQ(small->rowAt(0), 0);
}

// Without screens to scale them the shapes beside the text grow with its font.
TEST_F(GridViews, ShapesGrowWithTheFont) {
  QFont large = table()->font();
  large.setPointSizeF(large.pointSizeF() * 2);
  QWidget plain, grown;
  grown.setFont(large);
  for (const auto metric :
       {QStyle::PM_IndicatorWidth, QStyle::PM_ExclusiveIndicatorHeight, QStyle::PM_ScrollBarExtent,
        QStyle::PM_HeaderMarkSize, QStyle::PM_SplitterWidth, QStyle::PM_SmallIconSize}) {
    const auto lengthOn = [&](const QWidget& on) {
      return on.style()->pixelMetric(metric, nullptr, &on);
    };
    EXPECT_GT(lengthOn(grown), lengthOn(plain) * 17 / 10) << metric;
  }
}

TEST_F(GridViews, FollowRowsThatComeAndGo) {
  const auto expectShown = [&](int rows, const char* first) {
    settle();
    EXPECT_EQ(table()->model()->rowCount(), rows) << first;
    EXPECT_EQ(shown(0, 1).toStdString(), first);
  };
  form.vsf.removeRow(1);
  expectShown(4, "Bank of India");
  form.vsf.insertRow(1, {"", "Zakat"});
  expectShown(5, "Zakat");
  form.vsf.setCell(1, 1, "Fees");
  expectShown(5, "Fees");
  form.vsf.clearRows();
  expectShown(0, "");
  form.vsf.setColumns({{"A"}, {"B"}});
  form.vsf.addRow({"x", "y"});
  expectShown(1, "y");
}

TEST_F(GridViews, AClickOnTheWordsOfAnEmptyGridIsTold) {
  int clicks = 0;
  form.vsf.EmptyClick = [&] { ++clicks; };
  form.vsf.setEmptyText("Nothing is here yet. Click to begin.");
  clickCell(1, 1);
  EXPECT_EQ(clicks, 0);
  form.vsf.clearRows();
  settle();
  const QImage said = table()->grab().toImage();
  click(table()->viewport(), {40, 20});
  EXPECT_EQ(clicks, 1);
  form.vsf.setEmptyText("");
  settle();
  EXPECT_NE(table()->grab().toImage(), said);
  click(table()->viewport(), {40, 20});
  EXPECT_EQ(clicks, 1);
}

TEST_F(GridViews, ADraggedWidthGoesToTheModelInCharacters) {
  window()->resize(1300, 700);
  settle();
  QHeaderView* header = table()->horizontalHeader();
  const int before = form.vsf.columns()[3].width;
  const int one = table()->fontMetrics().horizontalAdvance('0');
  header->resizeSection(3, header->sectionSize(3) + 5 * one);
  EXPECT_EQ(form.vsf.columns()[3].width, before + 5);
  EXPECT_EQ(table()->shownWidth(3), before + 5);
  // The stretching column takes what is left: nothing is lost at the right.
  EXPECT_LE(header->length(), table()->viewport()->width());
}

TEST_F(GridViews, ManyRowsCostOnlyWhatIsInSight) {
  constexpr int many = 20000;
  form.vsf.clearRows();
  for (int row = 0; row < many; ++row) {
    form.vsf.addRow({"", "Ledger " + std::to_string(row), "Group", "1.00", ""});
  }
  QElapsedTimer time;
  time.start();
  settle();
  const auto first = time.restart();
  EXPECT_EQ(table()->model()->rowCount(), many);
  form.focus(form.vsf);
  form.vsf.setCurrent(many - 1);
  settle();
  for (int step = 0; step < 20; ++step) key(Qt::Key_Up);
  settle();
  const auto moves = time.restart();
  EXPECT_TRUE(table()->viewport()->rect().contains(cellAt(form.vsf.current() - 1, 1)));
  RecordProperty("shownMs", static_cast<int>(first));
  RecordProperty("twentyMovesMs", static_cast<int>(moves));
  EXPECT_LT(first, 2000);
  EXPECT_LT(moves, 2000);
}

}  // namespace
}  // namespace quillet::desktop
