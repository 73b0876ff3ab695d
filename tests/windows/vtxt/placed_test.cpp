// The text box in a container that nobody here wrote, by real keys.
#include <gtest/gtest.h>
#include <quillet_vtxt_com.h>

#include "data/errors.h"
#include "vtxt/container.h"
#include "windows/com/variant.h"

namespace quillet::fakes {
namespace {

using windows::asLong;
using windows::asText;
using windows::asTruth;

class VTxtPlaced : public testing::Test {
 protected:
  void type(const std::string& characters) { fakes::type(program.window(), characters); }
  void press(WORD code, bool shift = false) { fakes::press(program.window(), code, shift); }

  Program program;
  Messages messages;
  Placed first{program, 10};
  Placed second{program, 50};
};

TEST_F(VTxtPlaced, KeysPassTheBoxAndThenItsSinks) {
  Sink sink(first.control);
  sink.keys = {{'Z', 'Y'}, {'Q', 0}};
  first.activate();
  EXPECT_EQ(sink.heard(), "GotFocus");
  type("a");
  EXPECT_EQ(sink.heard(), "KeyDown KeyPress65 Change KeyUp");
  type("zq1");
  EXPECT_EQ(first.text(), "AY1");
  sink.heard();

  first.box.put("ValidateData", 1);
  type("b");
  EXPECT_EQ(messages.told(), "Enter Numeric value\n");
  EXPECT_EQ(first.text(), "AY1");
  EXPECT_EQ(GetFocus(), first.inner());
  press(VK_BACK);
  EXPECT_EQ(first.text(), "AY");
}

TEST_F(VTxtPlaced, TabAndEnterGoToTheNextBoxOnceTheTextPasses) {
  Sink sink(first.control);
  first.box.put("MinLength", 2);
  first.activate();
  type("a");
  press(VK_TAB);
  EXPECT_EQ(messages.told(), "Data must be at least of 2 characters\n");
  EXPECT_EQ(GetFocus(), first.inner());
  type("b");
  sink.heard();
  press(VK_TAB);
  EXPECT_EQ(sink.heard(), "KeyDown KeyPress9 LostFocus");
  EXPECT_EQ(GetFocus(), second.inner());
  press(VK_TAB, true);
  EXPECT_EQ(GetFocus(), first.inner());
  sink.heard();
  press(VK_RETURN);
  EXPECT_EQ(sink.heard(), "KeyDown KeyPress13 KeyPress9 LostFocus");
  EXPECT_EQ(GetFocus(), second.inner());
  EXPECT_EQ(first.text(), "AB");
  EXPECT_EQ(messages.told(), "");
}

TEST_F(VTxtPlaced, LeavingByOtherWaysChecksTheText) {
  Sink sink(first.control);
  first.box.put("ValidateData", 4);
  first.activate();
  type("1.5");
  sink.heard();
  second.activate();
  EXPECT_EQ(sink.heard(), "Change LostFocus");
  EXPECT_EQ(first.text(), "1.50");

  first.activate();
  first.box.put("MinLength", 9);
  second.activate();
  EXPECT_EQ(messages.told(), "Data must be at least of 9 characters\n");
  EXPECT_EQ(GetFocus(), second.inner());
}

TEST_F(VTxtPlaced, AClickBringsTheFocusFirst) {
  Sink sink(second.control);
  first.activate();
  click(program.window(), second.inner());
  EXPECT_EQ(sink.heard(), "GotFocus MouseDown MouseUp Click");
  EXPECT_EQ(GetFocus(), second.inner());
}

TEST_F(VTxtPlaced, FollowsItsHostsSizeAndGoesWithIt) {
  MoveWindow(first.host, 10, 10, 200, 24, TRUE);
  RECT box;
  GetWindowRect(first.inner(), &box);
  EXPECT_EQ(box.right - box.left, 200);
  EXPECT_EQ(box.bottom - box.top, 24);

  const HWND window = first.window();
  const HWND inner = first.inner();
  ASSERT_TRUE(IsWindow(inner));
  first.box = {};
  DestroyWindow(first.host);
  first.control = {};
  EXPECT_FALSE(IsWindow(window));
  EXPECT_FALSE(IsWindow(inner));
}

TEST_F(VTxtPlaced, ASinkMayCloseTheContainerInTheMiddleOfAKey) {
  {
    Sink sink(first.control);
    first.activate();
    sink.happened = [&](DISPID event) {
      if (event == DISPID_KEYPRESS) DestroyWindow(first.host);
    };
    type("a");
  }
  first.box = {};
  first.control = {};
  pump(program.window());
  second.activate();
  type("b");
  EXPECT_EQ(second.text(), "B");
}

// --- properties ---------------------------------------------------------------------------------

TEST_F(VTxtPlaced, HandsBackWhatWasSet) {
  const Late& box = first.box;
  const struct {
    const char* name;
    Variant set;
    const char* read;
  } cases[] = {
      {"ValidateData", 3, "3"},
      {"MaxLength", "12", "12"},
      {"MinLength", 2.0, "2"},
      {"Include", "#$", "#$"},
      {"Exclude", Variant(), ""},
      {"Text", "Ab c", "Ab c"},
      {"SelStart", 1, "1"},
      {"SelLength", 2, "2"},
      {"SelText", "xy", ""},
      {"Text", "\xF0\x9F\x98\x80z", "\xF0\x9F\x98\x80z"},
      {"Enabled", false, "0"},
      {"Locked", true, "1"},
      {"BackColor", static_cast<int>(0x80000018), "2147483672"},
      {"ForeColor", 255, "255"},
      {"PasswordChar", "*#", "*"},
      {"ToolTipText", "Enter it", "Enter it"},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.name);
    box.put(each.name, each.set);
    EXPECT_EQ(asText(box.call(each.name)), each.read);
  }
  EXPECT_EQ(asLong(box.call("hWnd")), HandleToLong(first.window()));
  Late font = box.object("Font");
  font.put("Size", 14);
  EXPECT_EQ(asLong(second.box.object("Font").call("Size")) == 14, false);
  second.box.put("Font", font.get());
  EXPECT_EQ(asLong(second.box.object("Font").call("Size")), 14);
}

TEST_F(VTxtPlaced, TellsWhatAScriptGotWrong) {
  const auto errorOf = [&](const std::function<void()>& deed) -> long {
    try {
      deed();
    } catch (const RunTimeError& error) {
      return error.number();
    }
    return 0;
  };
  const Late& box = first.box;
  EXPECT_EQ(errorOf([&] { box.put("MaxLength", "many"); }), 13);
  EXPECT_EQ(errorOf([&] { box.put("MaxLength", Variant::null()); }), 13);
  EXPECT_EQ(errorOf([&] { box.put("Font", "Arial"); }), 13);
  EXPECT_EQ(errorOf([&] { box.put("MinLength", 1e12); }), 6);
  EXPECT_EQ(errorOf([&] { box.call("CHECK_M", 1); }), 450);
  EXPECT_EQ(errorOf([&] { box.call("Colour"); }), 438);
  // What is no value of the property is trapped and logged by its handler.
  EXPECT_EQ(errorOf([&] { box.put("SelStart", -1); }), 0);
  EXPECT_EQ(asLong(box.call("SelStart")), 0);
  EXPECT_EQ(errorOf([&] { box.put("Include", std::string(52, 'x')); }), 0);
}

TEST_F(VTxtPlaced, ChecksWhenAskedTo) {
  first.box.put("ValidateData", 6);
  first.box.put("Text", "31-13-24");
  EXPECT_FALSE(asTruth(first.box.call("CHECK_M")));
  EXPECT_EQ(messages.told(), "Not a valid date\n");
  first.box.put("Text", "01-04-24");
  EXPECT_TRUE(asTruth(first.box.call("CHECK_M")));
}

}  // namespace
}  // namespace quillet::fakes
