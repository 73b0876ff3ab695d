// The mask box, the combo and the grid as models, without a database or a window.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controls/choice.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/mask_box.h"
#include "controls/open_forms.h"

namespace quillet {
namespace {

class OtherForm : public Form {
 public:
  explicit OtherForm(OpenForms& openForms) : Form(openForms, "other") {
    grid.setColumns({{.heading = "Name"},
                     {.heading = "Amount", .numeric = true},
                     {.heading = "Pick", .tick = true},
                     {.heading = "Id", .hidden = true}});
  }
  LayoutItem layout() override { return item(grid); }
  MaskBox date{*this, "date", "", -1, '#'};
  ComboBox combo{*this, "combo"};
  Grid grid{*this, "grid"};
};

class ModelsTest : public ::testing::Test {
 protected:
  OpenForms openForms;
  OtherForm form{openForms};
};

TEST_F(ModelsTest, AMaskTakesDigitsInItsPlaces) {
  const struct {
    const char* start;
    std::u32string keys;
    const char* shown;
  } cases[] = {{"##/##/####", U"01042008", "01/04/2008"}, {"##/##/####", U"1/4", "1#/4#/####"},
               {"01/04/####", U"2008", "01/04/2008"},     {"01/04/####", U"20089", "01/04/2008"},
               {"01/04/2008", U"\b\b", "01/04/20##"},     {"01/04/####", U"\b\b\b", "0#/##/####"},
               {"##/##/####", U"\b\b", "##/##/####"},     {"not a date", U"", "##/##/####"},
               {"01-04-2008", U"x", "##/##/####"}};
  for (const auto& c : cases) {
    form.date.setText(c.start);
    form.date.handleKey(keys::End);
    for (const char32_t key : c.keys) form.date.handleKey(key);
    EXPECT_EQ(form.date.text(), c.shown) << c.start;
  }
}

TEST_F(ModelsTest, AComboSearchesForTheLettersTypedTogether) {
  using namespace std::chrono_literals;
  std::chrono::steady_clock::time_point now{};
  openForms.typingClock = [&now] { return now; };
  // What follows a choice may take longer than a person waits between two letters.
  form.combo.Click = [&] { now += 3s; };
  for (const char* name :
       {"Capital", "Cash in Hand", "Éclair", "Sales", "Secured Loans", "SELLING EXPENSES"}) {
    form.combo.addItem(name, 7);
  }
  const struct {
    std::chrono::milliseconds pause;
    std::u32string keys;
    const char* found;
  } cases[] = {
      {0s, U"c", "Capital"},
      {900ms, U"c", "Cash in Hand"},
      {900ms, U"c", "Capital"},
      {0s, U"é", "Capital"},  // leads nowhere
      {1100ms, U"é", "Éclair"},
      {1100ms, U"sel", "SELLING EXPENSES"},
      {0s, U"x", "SELLING EXPENSES"},
      {0s, U"ling e", "SELLING EXPENSES"},
      {1100ms, U"sxe", "Secured Loans"},
      {1100ms, {U's', keys::Home, U'c', U'a', U's'}, "Cash in Hand"},
      {0s, {keys::Enter, U's'}, "Sales"},
  };
  for (const auto& c : cases) {
    now += c.pause;
    for (const Key key : c.keys) form.combo.handleKey(key);
    EXPECT_EQ(form.combo.text(), c.found);
  }
  form.combo.checkLeft();
  form.combo.handleKey(U'c');
  EXPECT_EQ(form.combo.text(), "Capital") << "leaving the box ends the search";
  EXPECT_EQ(form.combo.find("cASH in hand"), 2);
  form.combo.clearItems();
  for (const Key key : {keys::Down, Key(U'c')}) form.combo.handleKey(key);
  EXPECT_EQ(form.combo.chosen(), 0);
}

TEST_F(ModelsTest, AGridKeepsItsCurrentRowThroughChanges) {
  for (const char* amount : {"9.00", "10.00", "(3.00)", "1,000.00"}) {
    form.grid.addRow({std::string("r") + amount, amount});
  }
  form.grid.setCurrent(2);
  form.grid.sortBy(1);
  EXPECT_EQ(form.grid.cell(1, 1), "(3.00)");
  EXPECT_EQ(form.grid.cell(4, 1), "1,000.00");
  EXPECT_EQ(form.grid.cell(form.grid.current(), 1), "10.00");
  form.grid.sortBy(1);
  EXPECT_EQ(form.grid.cell(1, 1), "1,000.00");
  form.grid.setRowHidden(3, true);
  form.grid.handleKey(keys::Down);
  EXPECT_EQ(form.grid.cell(form.grid.current(), 1), "(3.00)");
  EXPECT_THROW(form.grid.cell(9, 0), std::out_of_range);

  // Of five rows the third is the current one.
  const struct {
    std::function<void(Grid&)> change;
    int current;
    const char* cell;
  } cases[] = {{[](Grid& grid) { grid.insertRow(3, {"new"}); }, 4, "3"},
               {[](Grid& grid) { grid.insertRow(4, {"new"}); }, 3, "3"},
               {[](Grid& grid) { grid.removeRow(2); }, 2, "3"},
               {[](Grid& grid) { grid.removeRow(3); }, 3, "4"},
               {[](Grid& grid) { grid.removeRow(4); }, 3, "3"},
               {[](Grid& grid) { grid.moveRow(3, 5); }, 5, "3"},
               {[](Grid& grid) { grid.moveRow(1, 3); }, 2, "3"},
               {[](Grid& grid) { grid.moveRow(5, 3); }, 4, "3"},
               {[](Grid& grid) { grid.moveRow(2, 1); }, 3, "3"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(&c - cases);
    form.grid.clearRows();
    for (const char* name : {"1", "2", "3", "4", "5"}) form.grid.addRow({name});
    form.grid.setCurrent(3);
    c.change(form.grid);
    EXPECT_EQ(form.grid.current(), c.current);
    EXPECT_EQ(form.grid.cell(c.current, 0), c.cell);
  }
}

// Cells that are made when they are read follow their rows wherever those go, and are made once.
TEST_F(ModelsTest, AGridAsksForTheCellsOfTheRowsThatAreRead) {
  Grid& grid = form.grid;
  std::vector<int> asked;
  grid.setColumns({{.heading = "Name"}, {.heading = "Amount", .numeric = true}});
  grid.setRows(1000, [&](int row) {
    asked.push_back(row);
    return std::vector<std::string>{"row " + std::to_string(row)};
  });
  EXPECT_EQ(grid.rows(), 1000);
  EXPECT_EQ(grid.cell(500, 0), "row 500");
  EXPECT_EQ(grid.cell(500, 1), "");
  EXPECT_EQ(asked, std::vector<int>{500});
  grid.removeRow(1);
  grid.insertRow(2, {"new"});
  grid.setCell(3, 1, "7");
  EXPECT_EQ(grid.cell(1, 0), "row 2");
  EXPECT_EQ(grid.cell(2, 0), "new");
  EXPECT_EQ(grid.cell(3, 0), "row 3");
  EXPECT_EQ(asked, (std::vector<int>{500, 3, 2}));
  grid.sortBy(0);
  EXPECT_EQ(grid.cell(1, 0), "new");
  EXPECT_EQ(grid.cell(1000, 0), "row 999");
  EXPECT_EQ(asked.size(), 999U) << "every row that is left, once";
  grid.clearRows();
  grid.addRow({"alone"});
  EXPECT_EQ(grid.cell(1, 0), "alone");
}

TEST_F(ModelsTest, TicksAndEditsReportTheirCell) {
  int edits = 0;
  form.grid.AfterEdit = [&](int row, int column) { edits += row * 10 + column; };
  form.grid.addRow({"a"});
  form.grid.setCurrent(1);
  form.grid.handleKey(keys::Space);
  EXPECT_TRUE(form.grid.ticked(1));
  form.grid.edit(1, 0, "b");
  EXPECT_EQ(form.grid.cell(1, 0), "a") << "the column is not editable";
  EXPECT_EQ(edits, 12);
}

TEST(Acts, AnActThatCannotBeginIsNotRunning) {
  Acts acts;
  acts.onBegun = [] { throw std::bad_alloc(); };
  EXPECT_THROW(Act{acts}, std::bad_alloc);
  EXPECT_FALSE(acts.running());
}

}  // namespace
}  // namespace quillet
