// Which windows take input, and what is left when they go.
#include <gtest/gtest.h>

#include "frames/desk.h"

namespace quillet::windows {
namespace {

TEST(ModalForms, TakeTheInputOfTheOthersAndGiveItBack) {
  Desk desk;
  SampleForm below(desk.forms), first(desk.forms, "first"), second(desk.forms, "second");
  const HWND belowWindow = desk.show(below);
  const HWND firstWindow = desk.showModal(first);
  const HWND secondWindow = desk.showModal(second);
  EXPECT_FALSE(IsWindowEnabled(desk.host()));
  EXPECT_FALSE(IsWindowEnabled(belowWindow));
  EXPECT_FALSE(IsWindowEnabled(firstWindow));
  EXPECT_TRUE(IsWindowEnabled(secondWindow));
  EXPECT_EQ(GetWindow(firstWindow, GW_OWNER), belowWindow);

  // Out of order: the upper one still has the input for itself.
  desk.windows.perform([&] { first.close(); });
  desk.pump();
  EXPECT_TRUE(IsWindow(secondWindow));
  EXPECT_FALSE(IsWindowEnabled(belowWindow));
  EXPECT_EQ(GetActiveWindow(), secondWindow);
  desk.windows.perform([&] { second.close(); });
  desk.pump();
  EXPECT_TRUE(IsWindowEnabled(desk.host()));
  EXPECT_TRUE(IsWindowEnabled(belowWindow));
  EXPECT_EQ(GetActiveWindow(), belowWindow);
}

TEST(ModalForms, LeaveAWindowDisabledThatTheHostDisabled) {
  Desk desk;
  EnableWindow(desk.host(), FALSE);
  SampleForm form(desk.forms);
  desk.showModal(form);
  desk.windows.perform([&] { form.close(); });
  EXPECT_FALSE(IsWindowEnabled(desk.host()));
}

TEST(RunUntilClosed, EndsWithTheForm) {
  Desk desk;
  SampleForm below(desk.forms), form(desk.forms, "form");
  desk.show(below);
  const HWND window = desk.show(form);
  PostMessageW(window, WM_CLOSE, 0, 0);
  form.refusesToClose = true;
  bool hostEnabled = true;
  form.save.Click = [&] {
    hostEnabled = IsWindowEnabled(desk.host());
    form.refusesToClose = false;
    PostMessageW(window, WM_CLOSE, 0, 0);
  };
  PostMessageW(window, WM_SYSCHAR, L's', 1 << 29);
  desk.windows.runUntilClosed(form);
  EXPECT_FALSE(form.visible());
  EXPECT_FALSE(hostEnabled);
  EXPECT_TRUE(IsWindowEnabled(desk.host()));
  EXPECT_EQ(desk.windows.windowOf(form), nullptr);
}

TEST(RunUntilClosed, HandsTheEndOfTheProgramOn) {
  Desk desk;
  SampleForm form(desk.forms);
  desk.show(form);
  PostQuitMessage(7);
  desk.windows.runUntilClosed(form);
  EXPECT_TRUE(form.visible());
  EXPECT_TRUE(IsWindowEnabled(desk.host()));
  MSG message{};
  ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
  EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
  EXPECT_EQ(message.wParam, 7U);
}

TEST(RunUntilClosed, EndsWithAWindowThatSomebodyElseDestroys) {
  Desk desk;
  SampleForm form(desk.forms);
  const HWND window = desk.show(form);
  SetTimer(window, 1, 1, [](HWND self, UINT, UINT_PTR, DWORD) { DestroyWindow(self); });
  desk.windows.runUntilClosed(form);
  EXPECT_FALSE(form.visible());
  EXPECT_TRUE(IsWindowEnabled(desk.host()));
  EXPECT_TRUE(IsWindow(desk.show(form)));  // and it can be shown again

  // A form that does not want to go gets another window.
  form.refusesToClose = true;
  DestroyWindow(desk.windows.windowOf(form));
  EXPECT_TRUE(IsWindowVisible(desk.windows.windowOf(form)));
}

// --- what is left -------------------------------------------------------------------------------

// How many handles are in use, counted from an unknown number: free numbers are used first, so that
// the last one of many new handles tells. Wine does not count them itself.
struct Handles {
  Handles() {
    constexpr int more = 3000;
    std::vector<HBRUSH> brushes;
    std::vector<HMENU> menus;
    for (int each = 0; each < more; ++each) {
      brushes.push_back(CreateSolidBrush(RGB(1, 2, 3)));
      menus.push_back(CreateMenu());
      drawing = std::max<int>(drawing, LOWORD(brushes.back()));
      user = std::max<int>(user, LOWORD(menus.back()));
    }
    for (const HBRUSH brush : brushes) DeleteObject(brush);
    for (const HMENU menu : menus) DestroyMenu(menu);
  }
  int drawing = 0;
  int user = 0;
};

void showAndClose() {
  Desk desk;
  SampleForm below(desk.forms), form(desk.forms, "form");
  desk.windows.perform([&] { below.show(); });
  desk.windows.perform([&] { form.showModal(); });
  desk.windows.perform([&] { form.close(); });
  desk.windows.perform([&] { below.close(); });
}

TEST(Windows, LeaveNothingBehind) {
  for (int time = 0; time < 5; ++time) showAndClose();
  const Handles before;
  // Wine itself takes and frees a few now and then.
  constexpr int times = 20;
  for (int time = 0; time < times; ++time) showAndClose();
  const Handles after;
  EXPECT_LT(after.drawing, before.drawing + times);
  EXPECT_LT(after.user, before.user + times);
  WNDCLASSW known{};
  EXPECT_FALSE(GetClassInfoW(GetModuleHandleW(nullptr), L"QuilletForm", &known));
}

}  // namespace
}  // namespace quillet::windows
