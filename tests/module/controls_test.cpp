// Focus, keys and the models' own editing, without a database or a window.
#include <gtest/gtest.h>

#include <clocale>
#include <stdexcept>
#include <string>
#include <vector>

#include "controls/choice.h"
#include "controls/control_array.h"
#include "controls/grid.h"
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

}  // namespace
}  // namespace quillet
