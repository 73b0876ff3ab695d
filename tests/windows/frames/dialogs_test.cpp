// Dialogs over the forms' windows.
#include "windows/ui/dialogs.h"

#include <gtest/gtest.h>

#include <fstream>

#include "frames/desk.h"
#include "windows/ui/extents.h"
#include "windows/ui/popup_menu.h"

namespace quillet::windows {
namespace {

// Presses keys in the dialog once it is there, and keeps where its buttons stand.
class Answering {
 public:
  explicit Answering(std::vector<WORD> keys) {
    keys_ = std::move(keys);
    buttons_.clear();
    othersDisabled_ = true;
    timer_ = SetTimer(nullptr, 0, 100, [](HWND, UINT, UINT_PTR timer, DWORD) {
      const HWND dialog = GetForegroundWindow();
      wchar_t name[20];
      GetClassNameW(dialog, name, 20);
      const bool shown = std::wstring(name) == L"#32770" && IsWindowVisible(dialog);
      // Keys that come before the focus is in the dialog are lost.
      if (!shown || !IsChild(dialog, GetFocus())) return;
      KillTimer(nullptr, timer);
      EnumThreadWindows(GetCurrentThreadId(), look, reinterpret_cast<LPARAM>(dialog));
      for (HWND child = nullptr; (child = FindWindowExW(dialog, child, L"Button", nullptr));) {
        RECT room{};
        GetWindowRect(child, &room);
        if (IsWindowVisible(child)) buttons_.push_back(room);
      }
      for (const WORD key : keys_) Desk::queue({key});
    });
  }
  ~Answering() { KillTimer(nullptr, timer_); }
  Answering(const Answering&) = delete;
  Answering& operator=(const Answering&) = delete;

  static std::vector<RECT> buttons() { return buttons_; }
  static bool othersDisabled() { return othersDisabled_; }

 private:
  static BOOL CALLBACK look(HWND window, LPARAM dialog) {
    const bool other = window != reinterpret_cast<HWND>(dialog) && IsWindowVisible(window);
    if (other && IsWindowEnabled(window)) othersDisabled_ = false;
    return TRUE;
  }

  static inline std::vector<WORD> keys_;
  static inline std::vector<RECT> buttons_;
  static inline bool othersDisabled_ = true;
  UINT_PTR timer_;
};

struct Asked {
  const char* name;
  Message message;
  WORD key;
  Answer expected;
};

TEST(Messages, AnswersByItsDefaultAndByEscape) {
  std::string veryLong;
  for (int line = 0; line < 500; ++line) veryLong += "Line " + std::to_string(line) + "\r\n";
  Desk desk;
  SampleForm below(desk.forms), form(desk.forms, "form");
  desk.show(below);
  const HWND window = desk.show(form);
  NativeDialogs dialogs(desk.windows);
  for (const std::string& text : {std::string("Save it?"), veryLong}) {
    for (const Asked& each : {
             Asked{"first", {text, "", Buttons::YesNo, Icon::question}, VK_RETURN, Answer::Yes},
             Asked{"named",
                   {text, "", Buttons::YesNoCancel, Icon::exclamation, Answer::No},
                   VK_RETURN,
                   Answer::No},
             Asked{"left", {text, "", Buttons::YesNoCancel}, VK_ESCAPE, Answer::Cancel},
             Asked{"told", {text, "", Buttons::OK, Icon::information}, VK_ESCAPE, Answer::OK},
         }) {
      const Answering answering({each.key});
      EXPECT_EQ(dialogs.MsgBox(each.message), each.expected) << each.name << text.size();
      EXPECT_TRUE(Answering::othersDisabled());
      const RECT screen = workArea(window);
      for (const RECT& button : Answering::buttons()) {
        RECT common{};
        EXPECT_TRUE(IntersectRect(&common, &screen, &button) && EqualRect(&common, &button));
      }
      EXPECT_FALSE(Answering::buttons().empty());
    }
  }
  desk.pump();
  EXPECT_TRUE(IsWindowEnabled(desk.host()));
  EXPECT_EQ(GetActiveWindow(), window);
  EXPECT_EQ(desk.windows.interruptions(), 8);
}

TEST(Password, IsWhatWasTyped) {
  Desk desk;
  SampleForm form(desk.forms);
  desk.show(form);
  NativeDialogs dialogs(desk.windows);
  {
    const Answering answering({'A', 'B', VK_RETURN});
    EXPECT_EQ(dialogs.password("Password of the client"), "ab");
  }
  const Answering answering({'A', VK_ESCAPE});
  EXPECT_EQ(dialogs.password("Password of the client"), std::nullopt);
}

TEST(SaveFile, ProposesAPathAndAsksNothingOfAFileThatIsThere) {
  Desk desk;
  SampleForm form(desk.forms);
  desk.show(form);
  NativeDialogs dialogs(desk.windows);
  wchar_t before[MAX_PATH];
  GetCurrentDirectoryW(MAX_PATH, before);
  std::ofstream("C:\\there.xls") << "x";
  {
    const Answering answering({VK_RETURN});
    EXPECT_EQ(dialogs.saveFile("Excel Files|*.xls", "C:\\there.xls"), "C:\\there.xls");
  }
  {
    const Answering answering({'N', VK_RETURN});  // in place of the name proposed
    EXPECT_EQ(dialogs.saveFile("Excel Files|*.xls|All Files|*.*", "C:\\there.xls"), "C:\\n.xls");
  }
  const Answering answering({VK_ESCAPE});
  EXPECT_EQ(dialogs.saveFile("Excel Files|*.xls", "C:\\there.xls"), std::nullopt);
  wchar_t after[MAX_PATH];
  GetCurrentDirectoryW(MAX_PATH, after);
  EXPECT_STREQ(before, after);
}

TEST(PopupMenu, AnswersByPosition) {
  Desk desk;
  SampleForm form(desk.forms);
  desk.show(form);
  NativePopupMenu menu(desk.windows);
  Desk::queue({VK_DOWN});
  Desk::queue({VK_DOWN});
  Desk::queue({VK_RETURN});
  EXPECT_EQ(menu.choose({"One", "-", "Three"}), 3);
  Desk::queue({VK_ESCAPE});
  EXPECT_EQ(menu.choose({"One", "-", "Three"}), 0);
}

}  // namespace
}  // namespace quillet::windows
