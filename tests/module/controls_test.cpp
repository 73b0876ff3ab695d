// Focus, keys and the models' own editing, without a database or a window.
#include <gtest/gtest.h>

#include <clocale>
#include <stdexcept>
#include <string>
#include <vector>

#include "controls/choice.h"
#include "controls/control_array.h"
#include "controls/grid.h"
#include "controls/mask_box.h"
#include "controls/open_forms.h"
#include "controls/text_box.h"
#include "data/text.h"

namespace quillet {
namespace {

class SampleForm : public Form {
 public:
  explicit SampleForm(OpenForms& openForms, const std::string& name = "sample")
      : Form(openForms, name) {
    for (Control* control : controls()) {
      const std::string who = control->name();
      control->GotFocus = [this, who] { events.push_back(who + " got"); };
      control->LostFocus = [this, who] { events.push_back(who + " lost"); };
    }
    KeyPress = [this](Key& key) {
      if (key == U'\'') key = keys::none;
    };
  }
  LayoutItem layout() override {
    return column({item(first), framed(frame, {item(second)}), item(third), item(go)});
  }
  void fail(const std::exception& error) {
    logErrors("FAIL", [&] { throw std::runtime_error(error.what()); });
  }
  void load() override {
    if (onLoad) onLoad();
  }
  void unload(bool&) override {
    if (onUnload) onUnload();
  }
  std::function<void()> onLoad, onUnload;
  std::vector<std::string> take() { return std::exchange(events, {}); }

  std::vector<std::string> events;
  TextBox first{*this, "first"};
  Frame frame{*this, "frame"};
  TextBox second{*this, "second"};
  TextBox third{*this, "third"};
  Button go{*this, "go", "&Go"};
  ControlArray<OptionButton> option{*this, "option", {"One", "Two"}};
  MenuEntry heading{*this, "heading", "&Menu"};
  MenuEntry command{*this, "command", "&Command", &heading};
};

class ControlsTest : public ::testing::Test {
 protected:
  ControlsTest() {
    std::setlocale(LC_CTYPE, "C.UTF-8");
    form.show();
    form.take();
  }
  void type(const std::string& text) {
    for (const char32_t c : charactersOf(text)) form.press(c);
  }
  using Events = std::vector<std::string>;

  OpenForms openForms;
  SampleForm form{openForms};
};

TEST_F(ControlsTest, FocusMovesInTheOrderOfEvents) {
  form.first.Validate = [&](bool&) { form.events.emplace_back("first validate"); };
  EXPECT_TRUE(form.focus(form.second));
  EXPECT_EQ(form.take(), (Events{"first validate", "first lost", "second got"}));
  form.press(keys::Tab);
  EXPECT_EQ(form.active(), &form.third);
  form.press(keys::BackTab);
  EXPECT_EQ(form.active(), &form.second);
}

TEST_F(ControlsTest, ValidateKeepsTheFocus) {
  form.first.Validate = [](bool& cancel) { cancel = true; };
  EXPECT_FALSE(form.focus(form.second));
  EXPECT_FALSE(form.click(form.go));
  EXPECT_EQ(form.active(), &form.first);
  EXPECT_TRUE(form.take().empty());
}

TEST_F(ControlsTest, HandlersMayRedirectTheFocusAndCannotHang) {
  form.first.LostFocus = [&] { form.focus(form.third); };
  form.focus(form.second);
  EXPECT_EQ(form.active(), &form.third);
  form.first.LostFocus = nullptr;
  // Two boxes that push the focus to each other for ever.
  form.first.GotFocus = [&] { form.focus(form.second); };
  form.second.GotFocus = [&] { form.focus(form.first); };
  form.focus(form.first);
  EXPECT_TRUE(form.active() == &form.first || form.active() == &form.second);
}

TEST_F(ControlsTest, WhatIsHiddenOrDisabledIsPassedOver) {
  form.frame.setVisible(false);
  EXPECT_FALSE(form.second.shown());
  EXPECT_FALSE(form.focus(form.second));
  form.press(keys::Tab);
  EXPECT_EQ(form.active(), &form.third);
  form.third.setEnabled(false);
  form.repairFocus();
  EXPECT_EQ(form.active(), &form.go);
  form.heading.setEnabled(false);
  EXPECT_FALSE(form.click(form.command));
}

TEST_F(ControlsTest, KeysPassTheFormBeforeTheControl) {
  form.first.KeyPress = [](Key& key) { key = upperCase(key); };
  type("o'bé🙂");
  EXPECT_EQ(form.first.text(), "OBÉ🙂");
  form.first.KeyDown = [](Key& key) {
    if (key == keys::Backspace) key = keys::none;
  };
  form.press(keys::Backspace);
  EXPECT_EQ(form.first.text(), "OBÉ🙂");
}

TEST_F(ControlsTest, TextIsEditedByCharacters) {
  int changes = 0;
  int refused = 0;
  form.first.Change = [&] { ++changes; };
  form.first.Overflow = [&] { ++refused; };
  form.first.setMaxLength(4);
  type("é🙂bcd");
  EXPECT_EQ(form.first.text(), "é🙂bc");
  EXPECT_EQ(refused, 1);
  form.press(keys::Home);
  form.press(keys::Right);
  form.press(keys::Delete);
  EXPECT_EQ(form.first.text(), "ébc");
  form.first.selectAll();
  type("x");
  EXPECT_EQ(form.first.text(), "x");
  EXPECT_EQ(changes, 6);
  form.first.edited("abcdefgh", 8);
  EXPECT_EQ(form.first.text(), "abcd");
  EXPECT_EQ(refused, 2);
  form.first.edited("ab🙂cd", 3);  // typed into the middle of a full box
  EXPECT_EQ(form.first.text(), "abcd");
  EXPECT_EQ(form.first.selStart(), 2u);
  EXPECT_EQ(refused, 3);
  form.first.setLocked(true);
  type("y");
  EXPECT_EQ(form.first.text(), "abcd");
}

TEST_F(ControlsTest, OneOptionOfAnArrayIsChosen) {
  form.click(form.option[0]);
  form.click(form.option[1]);
  EXPECT_FALSE(form.option[0].checked());
  EXPECT_TRUE(form.option[1].checked());
  EXPECT_EQ(form.find("OPTION", 1), &form.option[1]);
  EXPECT_TRUE(form.isArray("option"));
  form.option.unload();
  EXPECT_EQ(form.find("option", 1), nullptr);
}

// Whatever it throws: a handler that let it through would end the program.
TEST_F(ControlsTest, WhatAHandlerThrowsIsLoggedUnderItsName) {
  Events log;
  openForms.onError = [&](const std::string& location, const std::exception&) {
    log.push_back(location);
    throw std::runtime_error("the log cannot be written");
  };
  form.fail(std::runtime_error("broken"));
  form.go.Click = [] { throw std::runtime_error("broken"); };
  form.first.Validate = [](bool&) { throw 1; };
  form.second.Change = [] { throw std::runtime_error("broken"); };
  EXPECT_TRUE(form.click(form.go));
  form.focus(form.second);
  type("x");
  Grid grid(form, "grid");
  grid.setColumns({{.heading = "Name"}});
  grid.setRows(1, [](int) -> std::vector<std::string> { throw std::runtime_error("broken"); });
  EXPECT_EQ(grid.cell(1, 0), "");
  form.onLoad = form.onUnload = [] { throw std::runtime_error("broken"); };
  EXPECT_TRUE(form.close());
  form.show();
  EXPECT_TRUE(form.visible());
  EXPECT_EQ(log, (Events{"sample\tFAIL", "sample\tFIRST_VALIDATE", "sample\tGO_CLICK",
                         "sample\tSECOND_CHANGE", "sample\tGRID_CELLS", "sample\tFORM_UNLOAD",
                         "sample\tFORM_LOAD"}));
}

TEST_F(ControlsTest, AModalFormCoversTheOthersAndReportsItsEnd) {
  SampleForm second(openForms, "second");
  int closed = 0;
  second.showModal([&] { ++closed; });
  EXPECT_EQ(openForms.active(), &second);
  EXPECT_FALSE(openForms.bringToFront(form));
  EXPECT_TRUE(second.close());
  EXPECT_EQ(closed, 1);
  EXPECT_EQ(openForms.active(), &form);
  EXPECT_EQ(openForms.find("SAMPLE"), &form);
}

// --- mask box, choice, grid ---------------------------------------------------------------------

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
