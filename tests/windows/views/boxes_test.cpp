// Text boxes, date boxes, combo boxes and buttons in native windows.
#include <commctrl.h>

#include "views/on_screen.h"

namespace quillet::windows {
namespace {

std::wstring shown(HWND window) {
  wchar_t text[100]{};
  GetWindowTextW(window, text, 100);
  return text;
}

class Boxes : public OnScreen {};

TEST_F(Boxes, TypesCharactersAndEditsThem) {
  const HWND window = focusOn(form.name);
  const struct {
    const char* what;
    std::function<void()> act;
    const char* text;
  } steps[] = {
      {"characters", [] { type(L"a\u00e4"); }, "a\xC3\xA4"},
      {"a pair of code units", [] { type(L"\U0001F600"); }, "a\xC3\xA4\xF0\x9F\x98\x80"},
      {"Left goes over the pair", [] { key({VK_LEFT}), type(L"x"); }, "a\xC3\xA4x\xF0\x9F\x98\x80"},
      {"Delete takes the pair", [] { key({VK_DELETE}); }, "a\xC3\xA4x"},
      {"undone",
       [] {
         key({VK_CONTROL, 'Z'});
       },
       "a\xC3\xA4x\xF0\x9F\x98\x80"},
      {"Shift selects the pair",
       [] {
         key({VK_END}), key({VK_SHIFT, VK_LEFT}), type(L"y");
       },
       "a\xC3\xA4xy"},
      {"Backspace with Shift",
       [] {
         key({VK_SHIFT, VK_BACK});
       },
       "a\xC3\xA4x"},
      {"cut",
       [] {
         key({VK_CONTROL, 'A'}), key({VK_CONTROL, 'X'});
       },
       ""},
      {"pasted",
       [] {
         key({VK_SHIFT, VK_INSERT});
       },
       "a\xC3\xA4x"},
      {"as long as it may be", [] { type(L"12345"); }, "a\xC3\xA4x123"},
      {"cleared",
       [&] { SendMessageW(window, EM_SETSEL, 3, -1), SendMessageW(window, WM_CLEAR, 0, 0); },
       "a\xC3\xA4x"},
      {"an input method's character", [&] { SendMessageW(window, WM_IME_CHAR, 0xE9, 0); },
       "a\xC3\xA4x\xC3\xA9"},
      {"a whole character", [&] { SendMessageW(window, WM_UNICHAR, 0x1F600, 0); },
       "a\xC3\xA4x\xC3\xA9\xF0\x9F\x98\x80"},
      {"taken back", [] { key({VK_BACK}), key({VK_BACK}), type(L"123"); }, "a\xC3\xA4x123"},
      {"a control character",
       [] {
         key({VK_CONTROL, 'H'}), key({VK_CONTROL, VK_BACK});
       },
       "a\xC3\xA4x123"},
  };
  for (const auto& step : steps) {
    step.act();
    EXPECT_EQ(form.name.text(), step.text) << step.what;
  }
  EXPECT_EQ(shown(window), L"a\u00e4x123");
}

TEST_F(Boxes, KeepsTheKeysOfItsTextFromTheMenu) {
  int removed = 0;
  form.remove.Click = [&] { ++removed; };
  form.name.setText("abc");
  form.name.select(1, 1);
  focusOn(form.name);
  key({VK_CONTROL, VK_DELETE});
  EXPECT_EQ(form.name.text(), "ac");
  EXPECT_EQ(removed, 0);
  focusOn(form.ok);
  key({VK_CONTROL, VK_DELETE});
  EXPECT_EQ(removed, 1);
}

TEST_F(Boxes, ShowsCaretAndSelectionOfTheModel) {
  const HWND window = focusOn(form.amount);
  windows.perform([&] {
    form.amount.setText(
        "1\xF0\x9F\x98\x80"
        "234");
    form.amount.select(1, 2);
  });
  DWORD start = 0;
  DWORD end = 0;
  SendMessageW(window, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  EXPECT_EQ(start, 1U);
  EXPECT_EQ(end, 4U);
  EXPECT_TRUE(GetWindowLongPtrW(window, GWL_STYLE) & ES_RIGHT);
}

TEST_F(Boxes, RunsTheKeyHandlersBeforeTheTextChanges) {
  std::string seen;
  form.name.KeyPress = [&](Key& key) {
    seen += form.name.text() + '|';
    if (key == U'x') key = keys::none;
    if (key == U'b') key = U'B';
  };
  focusOn(form.name);
  type(L"axb");
  EXPECT_EQ(form.name.text(), "aB");
  EXPECT_EQ(seen, "|a|a|");
}

TEST_F(Boxes, PastesKeyByKey) {
  form.name.KeyPress = [&](Key& key) {
    if (key >= U'0' && key <= U'9') key = keys::none;
    if (key != U'>') return;
    key = keys::none;
    form.focus(form.amount);
  };
  const HWND window = focusOn(form.name);
  putOnClipboard(L" a1b\t2c\r\n");
  SendMessageW(window, WM_PASTE, 0, 0);
  EXPECT_EQ(form.name.text(), "ab c");
  EXPECT_EQ(shown(window), L"ab c");
  key({VK_CONTROL, 'Z'});
  EXPECT_EQ(form.name.text(), "") << "undone as a whole";

  windows.perform([&] { form.name.setText({}); });
  putOnClipboard(L"ab>cd");
  SendMessageW(window, WM_PASTE, 0, 0);
  EXPECT_EQ(form.name.text(), "ab");
  EXPECT_EQ(form.amount.text(), "");
  EXPECT_EQ(form.active(), &form.amount);

  form.amount.setLocked(true);
  windows.refresh();
  SendMessageW(GetFocus(), WM_PASTE, 0, 0);
  EXPECT_EQ(form.amount.text(), "");
}

TEST_F(Boxes, EndsAPasteAtTheFirstMessage) {
  int told = 0;
  form.name.KeyPress = [&](Key& key) {
    if (key != U'1') return;
    key = keys::none;
    ++told;
    windows.interrupted();
  };
  const HWND window = focusOn(form.name);
  putOnClipboard(L"ab111");
  SendMessageW(window, WM_PASTE, 0, 0);
  EXPECT_EQ(form.name.text(), "ab");
  EXPECT_EQ(told, 1);
}

TEST_F(Boxes, KeepsASelectionThatComesWithTheFocus) {
  form.name.setText("abc");
  form.name.GotFocus = [&] { form.name.selectAll(); };
  const HWND window = focusOn(form.name);
  focusOn(form.amount);
  press(window, {30, 8});
  EXPECT_EQ(form.active(), &form.name);
  EXPECT_EQ(form.name.selLength(), 3U);
  press(window, {2, 8});
  EXPECT_EQ(form.name.selLength(), 0U);
  EXPECT_EQ(form.name.selStart(), 0U);
}

TEST_F(Boxes, FillsTheMaskOfADate) {
  const HWND window = focusOn(form.date);
  type(L"1a2");
  EXPECT_EQ(form.date.text(), "12/__/____");
  key({VK_BACK});
  EXPECT_EQ(shown(window), L"1_/__/____");
  putOnClipboard(L"01/04/2008");
  key({VK_HOME});
  key({VK_CONTROL, 'V'});
  EXPECT_EQ(form.date.text(), "01/04/2008");
  key({VK_CONTROL, 'X'});
  key({VK_CONTROL, 'Z'});
  EXPECT_EQ(shown(window), L"01/04/2008");
  key({VK_CONTROL, 'C'});
  focusOn(form.amount);
  key({VK_CONTROL, 'V'});
  EXPECT_EQ(form.amount.text(), "01/04/2008");
}

TEST_F(Boxes, ChoosesInACombo) {
  int clicks = 0;
  form.side.Click = [&] { ++clicks; };
  const HWND window = focusOn(form.side);
  const struct {
    const char* what;
    std::function<void()> act;
    const char* text;
    int clicks;
  } steps[] = {
      {"a letter", [] { type(L"c"); }, "Credit", 1},
      {"the next one of that letter", [] { type(L"c"); }, "Contra", 2},
      {"Up", [] { key({VK_UP}); }, "Credit", 3},
      {"the wheel", [&] { SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(0, 120), 0); }, "Credit",
       3},
      {"given up", [] { key({VK_F4}), key({VK_UP}), key({VK_ESCAPE}); }, "Credit", 3},
      {"chosen in the list",
       [] {
         key({VK_MENU, VK_DOWN}), key({VK_UP}), key({VK_RETURN});
       },
       "Debit", 4},
      {"Tab takes it and goes on", [] { key({VK_F4}), key({VK_DOWN}), key({VK_TAB}); }, "Credit",
       5},
  };
  for (const auto& step : steps) {
    step.act();
    EXPECT_EQ(form.side.text(), step.text) << step.what;
    EXPECT_EQ(clicks, step.clicks) << step.what;
    EXPECT_FALSE(SendMessageW(window, CB_GETDROPPEDSTATE, 0, 0)) << step.what;
  }
  EXPECT_EQ(SendMessageW(window, CB_GETCURSEL, 0, 0), 1);
  EXPECT_EQ(form.active(), &form.all);
}

TEST_F(Boxes, ClicksWhatCanBeClicked) {
  std::string done;
  form.all.Click = [&] { done += "all "; };
  form.option[1].Click = [&] { done += "two "; };
  form.ok.Click = [&] { done += "ok "; };
  const HWND all = focusOn(form.all);
  key({VK_SPACE});
  EXPECT_TRUE(form.all.checked());
  EXPECT_EQ(SendMessageW(all, BM_GETCHECK, 0, 0), BST_CHECKED);
  press(all, {4, 8});
  EXPECT_FALSE(form.all.checked());
  const HWND two = focusOn(form.option[1]);
  EXPECT_FALSE(form.option[1].checked());  // the focus alone chooses nothing
  press(two, {4, 8});
  const HWND ok = focusOn(form.ok);
  key({VK_RETURN});
  press(ok, {4, 8});
  EXPECT_EQ(done, "all all two ok ok ");
  windows.perform([&] { form.ok.setChosen(true); });
  EXPECT_EQ(SendMessageW(ok, BM_GETCHECK, 0, 0), BST_CHECKED);
}

TEST_F(Boxes, GoesWithItsControlOrForm) {
  form.lines[0].KeyPress = [&](Key& key) {
    if (key == keys::Enter) {
      form.lines.unload();
      form.arrangementChanged();
    }
    if (key == keys::Escape) form.close();
  };
  const HWND last = focusOn(form.lines[1]);
  const HWND first = focusOn(form.lines[0]);
  key({VK_RETURN});
  EXPECT_FALSE(IsWindow(last));
  EXPECT_EQ(GetFocus(), first);
  key({VK_ESCAPE});
  EXPECT_FALSE(IsWindow(first));
  EXPECT_EQ(windows.of(form), nullptr);
}

}  // namespace
}  // namespace quillet::windows
