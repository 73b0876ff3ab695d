// Cells of a workbook beyond what an export of a year shows (module_test.cpp).
#include "ports/spreadsheet.h"

#include <gtest/gtest.h>

#include "windows/host/late_spreadsheet.h"

namespace quillet::fakes {
namespace {

// What a template holds between the cells of the rows stays there.
TEST(Workbooks, LeaveTheOtherCellsOfATemplate) {
  FakeSpreadsheet excel;
  excel.cells[{3, 2}] = {"0.00", "formula =A3*2"};
  windows::LateSpreadsheet application;
  Workbook& book = application.Open("x.xls");
  for (const int row : {2, 3, 4}) {
    book.Cells(1, row, 1, 1.0);
    book.Cells(1, row, 3, "a");
  }
  book.Cells(1, 1, 1, "one");
  book.Save();
  EXPECT_EQ(excel.cells[std::pair(3, 2)], (FakeSpreadsheet::Cell{"0.00", "formula =A3*2"}));
  EXPECT_EQ(excel.holds(1, 1), "text one");
  EXPECT_EQ(excel.holds(4, 3), "text a");
}

TEST(Workbooks, OfManyRowsAreWrittenInFewCalls) {
  FakeSpreadsheet excel;
  windows::LateSpreadsheet application;
  Workbook& book = application.Open("x.xls");
  for (int row = 1; row <= 2'000; ++row) {
    book.Cells(1, row, 1, row);
    book.Cells(1, row, 2, "LEDGER");
  }
  excel.fails = "Cells";
  book.Save();
  EXPECT_EQ(excel.holds(2'000, 2), "text LEDGER");
}

}  // namespace
}  // namespace quillet::fakes
