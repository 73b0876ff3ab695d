// The validating text box, key by key and on being left.
#include "controls/vtxt.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cwctype>

#include "controls/form.h"
#include "controls/key_checks.h"
#include "controls/open_forms.h"
#include "data/text.h"

namespace quillet {
namespace {

using Texts = std::vector<std::string>;

class BoxForm : public Form {
 public:
  explicit BoxForm(OpenForms& openForms) : Form(openForms, "boxes") {
    box.MsgBox = [this](const std::string& text) { told.push_back(text); };
    box.KeyPress = [this](Key& key) { passed.push_back(key); };
    box.LostFocus = [this] { ++left; };
  }
  LayoutItem layout() override { return column({item(box), item(next)}); }
  // As keys of a person or, one after the other, of a paste.
  void type(const std::string& text) {
    focus(box);
    for (const char32_t c : charactersOf(text)) press(c);
  }
  Texts take() { return std::exchange(told, {}); }

  VTxt box{*this, "VTxt1"};
  Button next{*this, "next"};
  Texts told;
  std::vector<Key> passed;
  int left = 0;
};

class VTxtTest : public ::testing::Test {
 protected:
  VTxtTest() {
    openForms.onError = [this](const std::string& location, const std::exception& error) {
      errors.push_back(location + ": " + error.what());
    };
    form.show();
  }
  OpenForms openForms;
  BoxForm form{openForms};
  VTxt& box = form.box;
  Texts errors;
};

struct Keys {
  int mode;
  const char* typed;
  const char* text;
  Texts told;
  const char* include = "";
  const char* exclude = "";
  int maxLength = 100;
};

TEST_F(VTxtTest, EveryKeyIsCheckedByModeListsAndLength) {
  const std::string numeric = "Enter Numeric value";
  const std::string alphabets = "Enter Alphabets only";
  const std::string alphanumeric = "Enter AlphaNumeric Characters Only";
  const Keys cases[] = {
      {0, "a1 é'\\", "A1 É'\\", {}},
      {0, "straße ж", "STRAßE Ж", {}},
      {1, "+1a2-", "+12-", {numeric}},
      {1, "1.", "1", {numeric}},
      {2, "ab c1", "AB C", {alphabets}},
      {2, "é", "", {alphabets}},
      {3, "a 1", "A1", {alphanumeric}},
      {3, "_", "", {alphanumeric}},
      {4, "-12.5x", "-12.5", {numeric}},
      {4, "1.23456", "1.234", {}},
      {4, "1.2345-+6", "1.234-+", {}},
      {4, "1.234x", "1.234", {numeric}},
      {5, "01-04/2024x", "01-04/2024", {"Invalid Data"}},
      {6, "1.4,24", "1.424", {"Invalid Data"}},
      {7, "a,1", "A,1", {}},
      // Include comes before everything, exclude before the mode; both see the key in capitals.
      {1, "12x", "12X", {}, "X"},
      {1, "12x", "12X", {}, "X", "X"},
      {1, "12", "2", {"InValid Data"}, "", "1"},
      {2, "ab", "B", {"InValid Data"}, "", "A"},
      {0, "ab", "AB", {}, "", "a"},
      {3, "€", "€", {}, "€"},
      // A text that is already longer takes no more; blanks around it do not count.
      {0, "abcd", "ABC", {}, "", "", 2},
      {0, "  abcd", "  ABC", {}, "", "", 2},
      {0, "abcd*", "ABC*", {}, "*", "", 2},
      {0, "ab", "A", {}, "", "", 0},
  };
  for (const Keys& each : cases) {
    SCOPED_TRACE(std::to_string(each.mode) + " " + each.typed + " " + each.include + each.exclude);
    box.setText("");
    box.ValidateData(each.mode);
    box.Include(each.include);
    box.Exclude(each.exclude);
    box.MaxLength(each.maxLength);
    form.type(each.typed);
    EXPECT_EQ(box.text(), each.text);
    EXPECT_EQ(form.take(), each.told);
    EXPECT_EQ(form.active(), &box);
  }
  EXPECT_EQ(errors, Texts());
}

// A handler is attached beside the checks, however the form holds the box.
TEST_F(VTxtTest, NoHandlerTakesThePlaceOfTheChecks) {
  Control& base = box;
  TextBox& textBox = box;
  int keys = 0;
  int left = 0;
  base.KeyPress = [&](Key&) { ++keys; };
  textBox.LostFocus = [&] { ++left; };
  box.ValidateData(key_checks::amount);
  form.type("a1x");
  EXPECT_EQ(box.text(), "1");
  EXPECT_EQ(keys, 1);
  EXPECT_EQ(form.take(), (Texts{"Enter Numeric value", "Enter Numeric value"}));
  form.focus(form.next);
  EXPECT_EQ(box.text(), "1.00");
  EXPECT_EQ(left, 1);
  base.KeyPress = [](Key&) { throw std::runtime_error("broken"); };
  form.type("2y");
  EXPECT_EQ(form.take(), (Texts{"Enter Numeric value"})) << "nor does one that fails";
  EXPECT_EQ(errors.size(), 1U);
}

TEST_F(VTxtTest, AFormSeesTheKeysThatAreLeft) {
  box.ValidateData(key_checks::alphabets);
  form.type("a1");
  form.press(keys::Backspace);
  form.press(keys::Escape);
  form.press(keys::Enter);
  EXPECT_EQ(form.passed,
            (std::vector<Key>{U'A', keys::Backspace, keys::Escape, keys::Enter, keys::Tab}));
  EXPECT_EQ(box.text(), "");
  EXPECT_EQ(form.active(), &form.next) << "Enter moves on";
  EXPECT_EQ(form.left, 1);
}

struct Leaving {
  int mode;
  Texts texts;
  const char* told;
  int minLength = 0;
};

TEST_F(VTxtTest, TheTextIsCheckedWhenTheBoxIsLeft) {
  const char* none = "Not a valid date";
  const Leaving cases[] = {
      {0, {""}, ""},
      {1, {""}, ""},
      {2, {""}, ""},
      {3, {""}, ""},
      {0, {" ab "}, "Data must be at least of 3 characters", 3},
      {0, {" añb "}, "", 3},
      {6, {"01-04-24", "31.12.24", "29/02/24", "29-02-00"}, ""},
      {6, {"29-02-23", "31-13-24", "32-12-24", "00-12-24", "", "01-04"}, none},
      {6, {"010424"}, none},  // 424 stands in the place of the month
      {6, {"01-04-2024", "1-4-24", "2024-04-01", "24 4 2024"}, "Date Format dd-mm-yy"},
      {6, {"01-04/24", "1-2-2202"}, "Date Format must be dd-mm-yy"},
      {5, {"29-02-2024", "29-02-2000"}, ""},
      {5, {"29-02-2023", "29-02-1900", "31-04-2024", "01-13-2024", "2024-13-01"}, none},
      {5, {"12-31-2024", "01-04-2024-1"}, none},
      {5, {"1-4-2024", "01-04-24", "01-04.2024", "2024-04-01"}, "Date Format must be dd-mm-yyyy"},
      {5, {"2024/12/31", "1 Apr 2024", "01--04-2024"}, "Date Format must be dd-mm-yyyy"},
      {5, {""}, "Data must be at least of 1 characters", 1},
      {4, {"", "1.2.3", "+-", ".", "  "}, ""},
  };
  // With Tab a fault keeps the focus; with a click the box is left all the same.
  const auto leave = [&](const std::string& text, const Texts& told) {
    form.focus(box);
    box.setText(text);
    for (const Key key : {keys::Tab, keys::Enter}) {
      form.press(key);
      EXPECT_EQ(form.take(), told);
      EXPECT_EQ(form.active() == &box, !told.empty());
      form.focus(box);
      box.setText(text);
    }
    EXPECT_TRUE(form.focus(form.next));
    EXPECT_EQ(form.take(), told);
  };
  for (const Leaving& each : cases) {
    box.ValidateData(each.mode);
    box.MinLength(each.minLength);
    for (const std::string& text : each.texts) {
      SCOPED_TRACE(std::to_string(each.mode) + " " + text);
      leave(text, *each.told == '\0' ? Texts() : Texts{each.told});
      EXPECT_EQ(box.text(), text);
    }
  }
  const Texts amounts[] = {{"12", "12.00"},         {"-.5", "-0.50"},   {"1.005", "1.01"},
                           {"+999.995", "1000.00"}, {"-0.004", "0.00"}, {"00120.5", "120.50"}};
  box.ValidateData(key_checks::amount);
  box.MinLength(0);
  for (const Texts& each : amounts) {
    leave(each[0], {});
    EXPECT_EQ(box.text(), each[1]);
  }
}

TEST_F(VTxtTest, AListTakesFiftyOneCharacters) {
  std::string list;
  for (char32_t c = U'Ā'; lengthOf(list) < 51; ++c) appendCharacter(list, c);
  box.Include(list);
  EXPECT_EQ(errors, Texts());
  box.Exclude(list + "X");
  ASSERT_EQ(errors.size(), 1U);
  EXPECT_EQ(errors[0].substr(0, errors[0].find(':')), "VTxt1\tLET EXCLUDE");
  form.type("x");
  EXPECT_EQ(box.text(), "X") << "the entry that found no room does not count";
}

TEST_F(VTxtTest, TheSelectionCanBeReadAndReplaced) {
  box.ValidateData(key_checks::alphabets);
  box.setText("AÑ☕B");
  box.select(1, 2);
  EXPECT_EQ(box.SelText(), "Ñ☕");
  box.SelText("12");
  EXPECT_EQ(box.text(), "A12B") << "only keys are checked";
  EXPECT_EQ(box.selStart(), 3U);
  EXPECT_EQ(box.SelText(), "");
}

TEST_F(VTxtTest, PropertiesSurviveTheirBag) {
  VTxt::PropertyBag bag;
  box.USERCONTROL_WRITEPROPERTIES(bag);
  EXPECT_TRUE(bag.empty()) << "defaults need no room";
  const VTxt::PropertyBag all{{"ValidateData", "5"},
                              {"MaxLength", "10"},
                              {"MinLength", "8"},
                              {"Include", "X"},
                              {"Exclude", "9"}};
  box.USERCONTROL_READPROPERTIES(all);
  EXPECT_EQ(std::to_string(box.MinLength()) + box.Exclude(), "89");
  box.USERCONTROL_WRITEPROPERTIES(bag);
  EXPECT_EQ(bag, all);
  box.USERCONTROL_READPROPERTIES({});
  EXPECT_EQ(std::to_string(box.MaxLength()) + box.Include(), "100");
  box.USERCONTROL_READPROPERTIES({{"MinLength", "many"}});
  ASSERT_EQ(errors.size(), 1U);
  EXPECT_EQ(errors[0].substr(0, errors[0].find(':')), "VTxt1\tUSERCONTROL_READPROPERTIES");
}

// Whatever locale the program runs in, capitals are those of the whole character set.
TEST(UpperCaseTest, FollowsUnicodeWithoutALocale) {
  const std::string before = std::setlocale(LC_CTYPE, nullptr);
  std::setlocale(LC_CTYPE, "C");
  std::vector<char32_t> ours;
  for (char32_t c = 0; c < 0x1F000; ++c) ours.push_back(upperCase(c));
  ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
  int different = 0;
  for (char32_t c = 0; c < 0x1F000; ++c) {
    if (ours[c] != static_cast<char32_t>(std::towupper(static_cast<std::wint_t>(c)))) ++different;
  }
  std::setlocale(LC_CTYPE, before.c_str());
  // The library's own table differs in a few scripts only.
  EXPECT_LT(different, 60);
  EXPECT_EQ(upperCase("éßµşžжωა𐐨"), "ÉßΜŞŽЖΩᲐ𐐀");
}

}  // namespace
}  // namespace quillet
