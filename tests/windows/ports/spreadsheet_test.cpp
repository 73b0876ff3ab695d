// Cells of a workbook, and an application that ends whatever happens.
#include "ports/spreadsheet.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "data/errors.h"
#include "windows/host/late_spreadsheet.h"

namespace quillet::fakes {
namespace {

TEST(Workbooks, KeepTextsAsTextsAndNumbersAsNumbers) {
  for (const bool blocks : {true, false}) {
    SCOPED_TRACE(blocks);
    FakeSpreadsheet excel;
    excel.blocks = blocks;
    windows::LateSpreadsheet application;
    Workbook& book = application.Open("C:\\h\xC3\xB6st\\x.xls");
    EXPECT_EQ(book.Worksheets(), excel.sheets);
    const char* texts[] = {"=1+1", "007",
                           "B\xC3\xA4"
                           "cker",
                           "1/2"};
    for (int row = 2; row <= 5; ++row) {
      book.Cells(1, row, 1, row - 1.0);
      book.Cells(1, row, 2, texts[row - 2]);
      book.Cells(1, row, row % 2 == 0 ? 4 : 5, 100.25);
    }
    book.Save();
    book.Close();
    application.Quit();
    for (int row = 2; row <= 5; ++row) {
      EXPECT_EQ(excel.holds(row, 1), "number " + std::to_string(row - 1));
      EXPECT_EQ(excel.holds(row, 2), std::string("text ") + texts[row - 2]);
      EXPECT_EQ(excel.holds(row, 4), row % 2 == 0 ? "number 100.25" : "");
      EXPECT_EQ(excel.holds(row, 5), row % 2 == 0 ? "" : "number 100.25");
      EXPECT_EQ(excel.cells[std::pair(row, 4)].format, "General");
    }
    EXPECT_EQ(excel.calls, (std::vector<std::string>{"DisplayAlerts =  Boolean 0",
                                                     "Open String 'C:\\h\xC3\xB6st\\x.xls'", "Save",
                                                     "Close", "Quit"}));
  }
}

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

// However far it came, the application is told to quit, once.
TEST(Spreadsheets, QuitAfterEveryFailure) {
  for (const char* step :
       {"", "DisplayAlerts", "Open", "Worksheets", "Value", "Save", "Close", "Quit"}) {
    SCOPED_TRACE(step);
    FakeSpreadsheet excel;
    excel.fails = step;
    try {
      windows::LateSpreadsheet application;
      Workbook& book = application.Open("x.xls");
      book.Cells(1, 2, 1, 1.0);
      book.Save();
      book.Close();
      application.Quit();
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.number(), 1004);
      EXPECT_EQ(error.what(), std::string(step) + " failed");
    }
    EXPECT_EQ(std::count(excel.calls.begin(), excel.calls.end(), "Quit"), 1);
  }
}

}  // namespace
}  // namespace quillet::fakes
