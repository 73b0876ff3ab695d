// What a person does to the rows of a list: ordering them, going to one by its letters, copying.
#include "controls/grid.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "controls/form.h"
#include "controls/open_forms.h"
#include "controls/row_text.h"

namespace quillet {
namespace {

class ListForm : public Form {
 public:
  explicit ListForm(OpenForms& openForms) : Form(openForms, "list") {}
  LayoutItem layout() override { return item(grid); }
  Grid grid{*this, "grid"};
};

class GridTest : public ::testing::Test {
 protected:
  OpenForms openForms;
  ListForm form{openForms};
  Grid& grid = form.grid;
};

// Every kind of column goes by what its texts say, an outline by its headings.
TEST_F(GridTest, AGridIsOrderedByValuesDaysAndVouchers) {
  grid.setColumns({{.heading = "Date", .dated = true},
                   {.heading = "Name", .stretch = true},
                   {.heading = "Amount", .align = Align::right, .numeric = true}});
  const auto fill = [&] {
    grid.clearRows();
    for (const bool first : {true, false}) {
      grid.setRowEmphasised(grid.addRow({"3-12-2008", "By Rent", "100.00"}), true);
      grid.addRow({"", "To cash", first ? "1,000.00" : "5.00"});
      grid.setRowEmphasised(grid.addRow({first ? "10-1-2009" : "1-2-2008", "By Bank", "9.00"}),
                            true);
    }
  };
  const auto order = [&](int column) {
    grid.sortBy(column);
    std::string rows;
    for (int row = 1; row <= grid.rows(); ++row) rows += grid.cell(row, 2) + ' ';
    return rows;
  };
  fill();
  EXPECT_EQ(order(2), "5.00 9.00 9.00 100.00 100.00 1,000.00 ");
  EXPECT_EQ(order(1), "9.00 9.00 100.00 100.00 5.00 1,000.00 ");
  grid.clearRows();
  for (const char* moment :
       {"22/11/2026 16:45:30", "1/12/2026", "22/11/2026 16:45:04", "22/11/2026 09:05", ""}) {
    grid.addRow({moment, "", moment});
  }
  EXPECT_EQ(order(0), " 22/11/2026 09:05 22/11/2026 16:45:04 22/11/2026 16:45:30 1/12/2026 ");
  grid.outline = true;
  fill();
  EXPECT_EQ(order(0), "9.00 100.00 1,000.00 100.00 5.00 9.00 ");
  EXPECT_EQ(order(0), "9.00 100.00 1,000.00 100.00 5.00 9.00 ");
  EXPECT_EQ(order(2), "9.00 9.00 100.00 5.00 100.00 1,000.00 ");
  EXPECT_EQ(order(2), "100.00 1,000.00 100.00 5.00 9.00 9.00 ");
  grid.sortable = false;
  EXPECT_EQ(order(2), "100.00 1,000.00 100.00 5.00 9.00 9.00 ");
}

TEST_F(GridTest, LettersFindARowAndABlankTicks) {
  grid.setColumns({{.heading = "Code"}, {.heading = "Name", .stretch = true}});
  for (const char* name : {"Rent", "Salaries", "Sales", "Sales Return", "Bank"})
    grid.addRow({"9", name});
  grid.setRowHidden(3, true);
  grid.setCurrent(5);
  const auto typed = [&](std::u32string_view letters) {
    for (const Key letter : letters) grid.handleKey(letter);
    return grid.current();
  };
  EXPECT_EQ(typed(U"sal"), 2);
  EXPECT_EQ(typed(U"es r"), 4) << "a blank goes on";
  EXPECT_EQ(typed(U"x"), 4);
  grid.handleKey(keys::Home);
  EXPECT_EQ(typed(U"ss"), 4) << "one letter goes from row to row";
  openForms.typingClock = [now = std::chrono::steady_clock::now()]() mutable {
    return now += std::chrono::seconds(2);
  };
  EXPECT_EQ(typed(U"rb"), 5) << "after a pause";
  openForms.typingClock = std::chrono::steady_clock::now;
  grid.sortBy(0);
  grid.handleKey(keys::Home);
  EXPECT_EQ(typed(U"9"), 2) << "the column ordered by";
  grid.handleKey(keys::End);
  grid.setColumns({{.heading = "Tick", .tick = true}, {.heading = "Name"}});
  for (const char* name : {"Rent", "Sales"}) grid.addRow({"", name});
  EXPECT_EQ(typed(U"s "), 2);
  EXPECT_TRUE(grid.ticked(2));
}

TEST_F(GridTest, SelectedRowsAreCopiedAsSpreadsheetsReadThem) {
  grid.setColumns({{.heading = "Name"},
                   {.heading = "Id", .hidden = true},
                   {.heading = "Amount", .align = Align::right, .numeric = true}});
  for (const char* name : {"Rent, Mumbai", "\"Asha\"", "Hidden", "a\tb\nc", "Last 1,2"}) {
    grid.addRow({name, "7", "12,34,567.50"});
  }
  grid.setRowHidden(3, true);
  EXPECT_EQ(copiedRows(grid), "");
  grid.setCurrent(2);
  EXPECT_EQ(copiedRows(grid), "\"\"\"Asha\"\"\"\t1234567.50");
  EXPECT_EQ(grid.selection.extendBy(1), 4);
  EXPECT_EQ(grid.current(), 2);
  EXPECT_EQ(copiedRows(grid), "\"\"\"Asha\"\"\"\t1234567.50\n\"a\tb\nc\"\t1234567.50");
  const auto rows = [&] { return grid.selection.rows(); };
  using Rows = std::vector<int>;
  grid.selection.extendBy(-9);
  EXPECT_EQ(rows(), (Rows{1, 2}));
  grid.selection.toggle(5);
  grid.selection.toggle(1);
  EXPECT_EQ(rows(), (Rows{2, 5}));
  grid.selection.selectAll();
  EXPECT_EQ(rows(), (Rows{1, 2, 4, 5}));
  grid.setCurrent(4);
  EXPECT_EQ(rows(), Rows{4});
  grid.selection.selectAll();
  grid.setCell(1, 0, "new");
  EXPECT_EQ(rows(), Rows{4});
  grid.clearRows();
  EXPECT_EQ(rows(), Rows{});
}

}  // namespace
}  // namespace quillet
