// What the views of all toolkits share, without any of them.
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "controls/grid.h"
#include "controls/open_forms.h"
#include "controls/text_box.h"
#include "data/text.h"
#include "view/access_keys.h"
#include "view/box_typing.h"
#include "view/control_tie.h"
#include "view/figure_groups.h"
#include "view/grid_acts.h"
#include "view/message_texts.h"
#include "view/shortcut.h"
#include "view/shown_rows.h"
#include "view/typed_text.h"
#include "view/utf16_positions.h"

namespace quillet::view {
namespace {

std::string written(const std::vector<Key>& keys) {
  std::string text;
  for (const Key key : keys) appendCharacter(text, key);
  return text;
}

TEST(TypedText, IsOneLineOfCharacters) {
  const struct {
    const char* text;
    const char* typed;
    const char* pasted;
  } cases[] = {
      {"a\r\nb\rc\nd\te\r", "a b c d e ", "a b c d e"},
      {"x\r\n\r\ny", "x  y", "x  y"},
      {" \u00A01,234.00\u2028\u3000", " \u00A01,234.00 \u3000", "1,234.00"},
      {"🙂\x1B\x7F\b!", "🙂!", "🙂!"},
      {"\t\r\n", "  ", ""},
      {"", "", ""},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(written(typedKeys(each.text)), each.typed);
    EXPECT_EQ(written(pastedKeys(each.text)), each.pasted);
  }
}

TEST(Utf16Positions, CountAPairAsOneCharacter) {
  using namespace std::string_view_literals;
  const struct {
    std::u16string_view text;
    std::size_t characters;
    std::size_t units;
  } cases[] = {{u"a🙂b"sv, 1, 1},
               {u"a🙂b"sv, 2, 3},
               {u"a🙂b"sv, 3, 4},
               {u"🙂🙂"sv, 2, 4},
               {u""sv, 0, 0}};
  for (const auto& each : cases) {
    EXPECT_EQ(unitsOf(each.text, each.characters), each.units);
    EXPECT_EQ(charactersOf(each.text, each.units), each.characters);
  }
  EXPECT_EQ(unitsOf(u"a🙂"sv, 9), 3U);
  EXPECT_EQ(charactersOf(u"a🙂"sv, 9), 2U);
  EXPECT_EQ(charactersOf(u"a🙂b"sv, 2), 2U) << "inside the pair";
  const char16_t halves[] = {0xDC00, 0xD800, u'x'};
  EXPECT_EQ(charactersOf(std::u16string_view(halves, 3), 3), 3U);
}

TEST(Grouping, DividesTheDigitsOfAmountsAndNothingElse) {
  const struct {
    const char* text;
    const char* none;
    const char* thousands;
    const char* lakhs;
  } cases[] = {
      {"1234567.50", "1234567.50", "1,234,567.50", "12,34,567.50"},
      {"1,234,567.50", "1234567.50", "1,234,567.50", "12,34,567.50"},
      {"-123,456.00", "-123456.00", "-123,456.00", "-1,23,456.00"},
      {"(12,34,56,789.05)", "(123456789.05)", "(123,456,789.05)", "(12,34,56,789.05)"},
      {"1000.00 Dr", "1000.00 Dr", "1,000.00 Dr", "1,000.00 Dr"},
      {"100000.00Cr", "100000.00Cr", "100,000.00Cr", "1,00,000.00Cr"},
      {"100,000.00 Debit", "100000.00 Debit", "100,000.00 Debit", "1,00,000.00 Debit"},
      {"999.99", "999.99", "999.99", "999.99"},
      {"0.00", "0.00", "0.00", "0.00"},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(grouped(each.text, Grouping::asWritten), each.text);
    EXPECT_EQ(grouped(each.text, Grouping::none), each.none);
    EXPECT_EQ(grouped(each.text, Grouping::thousands), each.thousands);
    EXPECT_EQ(grouped(each.text, Grouping::lakhs), each.lakhs);
  }
  for (const char* other :
       {"", "1234567", "1234567.5", "1234567.501", "(1234567.50", "1234567.50)", "1,2,345.00",
        "1,2345.00", "12345,678.00", ",234567.00", ".50", "-.50", "12345.67 Rs", "01/04/2024",
        "A 1234567.50", "12345.67.89", "1 234.00", "--12345.00"}) {
    EXPECT_EQ(grouped(other, Grouping::lakhs), other);
  }
  EXPECT_EQ(
      groupedWords("Difference 123,456.00 Dr in 12345 lines, 1234567.00.  No", Grouping::lakhs),
      "Difference 1,23,456.00 Dr in 12345 lines, 12,34,567.00.  No");
}

TEST(Figures, AreMarkedRatherThanCut) {
  const auto widthOf = [](const std::string& text) { return static_cast<int>(text.size()) * 10; };
  EXPECT_EQ(figuresIn(80, "1,234.00", widthOf), "1,234.00");
  EXPECT_EQ(figuresIn(79, "1,234.00", widthOf), "#######");
  EXPECT_EQ(figuresIn(0, "1,234.00", widthOf), "#");
  EXPECT_EQ(figuresIn(20, "Agrees", widthOf), "Agrees");
}

TEST(AccessKey, IsTheLetterBehindTheFirstSingleMark) {
  const struct {
    const char* caption;
    char32_t key;
    const char* text;
  } cases[] = {
      {"&Save", U'S', "Save"},
      {"Profit && &loss", U'L', "Profit & loss"},
      {"A &&B", 0, "A &B"},
      {"&&&é", U'É', "&é"},
      {"&First && &second&", U'F', "First & second"},
      {"Plain", 0, "Plain"},
      {"&", 0, ""},
      {"", 0, ""},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(accessKey(each.caption), each.key) << each.caption;
    EXPECT_EQ(withoutMarks(each.caption), each.text);
  }
}

class KeyedForm : public Form {
 public:
  explicit KeyedForm(OpenForms& openForms) : Form(openForms, "keyed") {}
  LayoutItem layout() override {
    return column({item(title), field("&Name", name), item(grid),
                   framed(frame, {item(next), item(save)}), item(note), item(plain)});
  }

  TextBox name{*this, "name"};
  MenuEntry menu{*this, "menu", "&Menu"};
  MenuEntry entry{*this, "entry", "&Entry", &menu};
  Label title{*this, "title", "&Title of P&L"};
  Frame frame{*this, "frame"};
  Button next{*this, "next", "&Next"};
  Button save{*this, "save", "&Save"};
  CheckBox note{*this, "note", "&note"};
  Button plain{*this, "plain", "Plain"};
  Grid grid{*this, "grid"};
};

TEST(AccessKeys, ClickAloneAndTakeTurnsInAClash) {
  OpenForms openForms;
  KeyedForm form(openForms);
  form.show();
  AccessKeys keys;
  const auto pressed = [&](char32_t character) {
    const auto [deed, control] = keys.press(form, character);
    const char* deeds[] = {"nothing", "open ", "click ", "focus "};
    return deeds[static_cast<int>(deed)] + (control ? control->name() : std::string());
  };
  EXPECT_EQ(pressed(U's'), "click save");
  EXPECT_EQ(pressed(U'm'), "open menu");
  for (const char32_t none : {U't', U'e', U'p', U'x', U'\0'}) EXPECT_EQ(pressed(none), "nothing");
  for (const char* control : {"name", "next", "note", "name", "next"}) {
    EXPECT_EQ(pressed(U'n'), std::string("focus ") + control);
  }
  keys.forget();
  EXPECT_EQ(pressed(U'N'), "focus name");
  form.next.setEnabled(false);
  EXPECT_EQ(pressed(U'N'), "focus note");
  form.name.setVisible(false);
  EXPECT_EQ(pressed(U'N'), "click note") << "alone now";
  form.frame.setVisible(false);
  EXPECT_EQ(pressed(U's'), "nothing");
}

// --- a view's tie to its control ----------------------------------------------------------------

class CountingRunner : public ActionRunner {
 public:
  void perform(const std::function<void()>& action) override {
    acts += depth++ == 0;
    action();
    --depth;
  }
  int interruptions() const override { return shown; }
  int depth = 0;
  int acts = 0;
  int shown = 0;
};

struct Tie : ControlTie {
  using ControlTie::arrive;
  using ControlTie::ControlTie;
  using ControlTie::pressAll;
  using ControlTie::typeAll;
};

TEST(ControlTie, PastesInOneActUntilTheRestIsNotForItsControl) {
  OpenForms openForms;
  KeyedForm form(openForms);
  form.show();
  CountingRunner runner;
  Tie tie(form.name, runner);
  std::function<void()> atB;
  form.name.KeyPress = [&](Key& key) {
    if (key == U'b' && atB) atB();
  };
  const auto pasted = [&](std::function<void()> deed, std::string_view text = "abc") {
    atB = std::move(deed);
    form.name.setText("");
    EXPECT_TRUE(tie.arrive());
    runner.acts = 0;
    tie.typeAll(pastedKeys(text, form.name.maxLength()), [&](Key key) {
      return typeInto(form.name, key, [&](Key left) { form.handleKey(left); });
    });
    EXPECT_EQ(runner.acts, 1);
    return form.name.text();
  };
  EXPECT_EQ(pasted({}), "abc");
  EXPECT_EQ(pasted({}, std::string(5000, 'x')).size(), 1000U);
  int refused = 0;
  form.name.Overflow = [&] { ++refused; };
  form.name.setMaxLength(2000);
  EXPECT_EQ(pasted({}, std::string(5000, 'x')).size(), 2000U);
  EXPECT_EQ(refused, 1) << "a full box ends it";
  EXPECT_EQ(pasted([&] { form.focus(form.save); }), "a");
  EXPECT_EQ(pasted([&] { ++runner.shown; }), "ab") << "a message is told once";
  EXPECT_EQ(pasted([&] { tie.detach(); }), "ab") << "its form is closed";
  EXPECT_FALSE(tie.arrive());
  tie.pressAll({U'x'});
  EXPECT_EQ(form.name.text(), "ab");
}

TEST(MessageTexts, AreThoseOfTheAnswersThatAreShown) {
  const struct {
    Buttons buttons;
    Answer named;
    Answer chosen;
    Answer closed;
  } cases[] = {
      {Buttons::OK, Answer::No, Answer::OK, Answer::OK},
      {Buttons::YesNo, Answer::No, Answer::No, Answer::No},
      {Buttons::YesNo, Answer::OK, Answer::Yes, Answer::No},
      {Buttons::YesNoCancel, Answer::Cancel, Answer::Cancel, Answer::Cancel},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(defaultOf({"", "", each.buttons, Icon::none, each.named}), each.chosen);
    EXPECT_EQ(whenClosed(each.buttons), each.closed);
  }
  const auto kinds = fileKinds("Excel Files|*.xls;*.xlsx|All Files|*.*|Half");
  ASSERT_EQ(kinds.size(), 2U);
  EXPECT_EQ(kinds[0].pattern, "*.xls;*.xlsx");
  EXPECT_EQ(kinds[1].name, "All Files");
}

TEST(Shortcut, IsModifiersAndAKey) {
  const struct {
    const char* text;
    std::optional<Shortcut> expected;
  } cases[] = {
      {"F5", Shortcut{false, false, false, "F5"}},
      {"Ctrl+Del", Shortcut{true, false, false, "DEL"}},
      {"ctrl+Shift+p", Shortcut{true, true, false, "P"}},
      {"Alt++", Shortcut{false, false, true, "+"}},
      {"+", Shortcut{false, false, false, "+"}},
      {"Hyper+P", std::nullopt},
      {"Ctrl+", std::nullopt},
      {"", std::nullopt},
  };
  for (const auto& each : cases) EXPECT_EQ(shortcut(each.text), each.expected) << each.text;
}

// --- grids --------------------------------------------------------------------------------------

TEST(ShownRows, LeaveHiddenOnesOut) {
  OpenForms openForms;
  KeyedForm form(openForms);
  Grid& grid = form.grid;
  grid.setColumns({{.heading = "Name"}});
  for (const char* name : {"a", "b", "c", "d"}) grid.addRow({name});
  const struct {
    std::vector<int> hidden;
    std::vector<int> shown;
  } cases[] = {{{}, {1, 2, 3, 4}}, {{1, 3}, {2, 4}}, {{1, 2, 3, 4}, {}}, {{4}, {1, 2, 3}}};
  ShownRows rows;
  for (const auto& each : cases) {
    for (int row = 1; row <= 4; ++row) grid.setRowHidden(row, false);
    for (const int row : each.hidden) grid.setRowHidden(row, true);
    rows.read(grid);
    ASSERT_EQ(rows.count(), static_cast<int>(each.shown.size()));
    for (int at = 0; at < rows.count(); ++at) {
      const int row = each.shown[static_cast<std::size_t>(at)];
      EXPECT_EQ(rows.gridRow(at), row);
      EXPECT_EQ(rows.shownRow(row), at);
    }
    for (const int row : each.hidden) EXPECT_EQ(rows.shownRow(row), -1);
    for (const int none : {-1, rows.count()}) EXPECT_EQ(rows.gridRow(none), 0);
    for (const int none : {0, 5}) EXPECT_EQ(rows.shownRow(none), -1);
  }
}

TEST(GridActs, LeaveRowsAloneThatAHandlerTookAway) {
  OpenForms openForms;
  KeyedForm form(openForms);
  form.show();
  CountingRunner runner;
  Grid& grid = form.grid;
  grid.setColumns({{.heading = "In", .tick = true}, {.heading = "Name", .editable = true}});
  for (const char* name : {"a", "b"}) grid.addRow({"", name});
  pressCell(grid, 1, 0, false, runner);
  EXPECT_FALSE(grid.ticked(1)) << "the right button only chooses";
  pressCell(grid, 2, 0, true, runner);
  EXPECT_TRUE(grid.ticked(2));
  EXPECT_EQ(firstWritten(grid, 2), 1);
  for (const int row : {0, 3}) EXPECT_EQ(firstWritten(grid, row), -1);
  int carried = 0;
  grid.DblClick = [&] { ++carried; };
  for (const bool edits : {true, false}) {
    doubleClickCell(
        grid, 1, 1, [&] { return edits; }, runner);
  }
  EXPECT_EQ(carried, 1);
  grid.RowColChange = [&] { grid.clearRows(); };
  pressCell(grid, 2, 0, true, runner);
  EXPECT_EQ(grid.rows(), 0);
}

}  // namespace
}  // namespace quillet::view
