// What the views of all toolkits share, without any of them.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controls/open_forms.h"
#include "controls/text_box.h"
#include "data/text.h"
#include "view/access_keys.h"
#include "view/message_texts.h"
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
    return column({item(title), field("&Name", name), framed(frame, {item(next), item(save)}),
                   item(note), item(plain)});
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

}  // namespace
}  // namespace quillet::view
