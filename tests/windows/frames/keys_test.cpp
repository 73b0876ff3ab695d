// Keys reach the form, whatever the host would do with them.
#include <gtest/gtest.h>

#include "frames/desk.h"

namespace quillet::windows {
namespace {

using Done = std::vector<std::string>;

TEST(HostWithAccelerators, LosesNoKeyOfOursAndKeepsItsOwn) {
  Desk desk;
  std::vector<ACCEL> wanted;
  for (const WORD key : {WORD{'A'}, WORD{VK_TAB}, WORD{VK_ESCAPE}, WORD{VK_RETURN}}) {
    wanted.push_back({FVIRTKEY, key, static_cast<WORD>(wanted.size() + 1)});
  }
  const HACCEL accelerators =
      CreateAcceleratorTableW(wanted.data(), static_cast<int>(wanted.size()));
  SampleForm form(desk.forms);
  std::vector<Key> seen;
  form.particular.KeyPress = [&](Key& key) { seen.push_back(key); };
  desk.show(form);
  for (const WORD key : {WORD{'A'}, WORD{VK_ESCAPE}, WORD{VK_RETURN}, WORD{VK_TAB}}) {
    desk.strike({key}, accelerators);
  }
  EXPECT_EQ(form.particular.text(), "a");
  EXPECT_EQ(seen, (std::vector<Key>{U'a', keys::Escape, keys::Enter, keys::Tab}));
  EXPECT_EQ(form.active(), &form.amount);
  EXPECT_TRUE(desk.taken.empty());

  SetActiveWindow(desk.host());
  desk.strike({'A'}, accelerators);
  EXPECT_EQ(desk.taken, std::vector<WORD>{1});
  DestroyAcceleratorTable(accelerators);
}

TEST(Shortcuts, RunTheirCommandWhileItIsEnabled) {
  Desk desk;
  SampleForm form(desk.forms);
  desk.show(form);
  desk.strike({VK_F5});
  desk.strike({VK_CONTROL, 'P'});
  desk.strike({VK_F1});
  const Done all{"command", "other", "mnuhelp"};
  EXPECT_EQ(form.done, all);
  desk.windows.perform([&] { form.command.setEnabled(false); });
  desk.strike({VK_F5});
  desk.strike({'P'});
  EXPECT_EQ(form.done, all);
  EXPECT_EQ(form.particular.text(), "p");
}

TEST(AccessKeys, ClickFocusAndGoFromOneToTheNext) {
  Desk desk;
  SampleForm form(desk.forms);
  desk.show(form);
  desk.strike({VK_MENU, 'A'});
  EXPECT_EQ(form.active(), &form.amount);
  desk.strike({VK_MENU, 'E'});
  EXPECT_EQ(form.done, Done{"send"});
  desk.strike({VK_MENU, 'I'});
  EXPECT_EQ(form.active(), &form.stop);
  desk.strike({VK_MENU, 'I'});
  EXPECT_EQ(form.active(), &form.start);
  EXPECT_EQ(form.done, Done{"send"});
  desk.strike({VK_MENU, VK_F4});
  EXPECT_FALSE(form.visible());
}

TEST(Menu, ShowsWhatItsEntriesSay) {
  Desk desk;
  SampleForm form(desk.forms);
  const HWND window = desk.show(form);
  const HMENU menu = GetSubMenu(GetMenu(window), 0);
  wchar_t text[40];
  GetMenuStringW(menu, 0, text, 40, MF_BYPOSITION);
  EXPECT_EQ(std::wstring(text), L"&Command\tF5");
  desk.windows.perform([&] {
    form.command.setChecked(true);
    form.other.setEnabled(false);
  });
  EXPECT_EQ(GetSubMenu(GetMenu(window), 0), menu);  // not made anew
  EXPECT_TRUE(GetMenuState(menu, 0, MF_BYPOSITION) & MF_CHECKED);
  EXPECT_TRUE(GetMenuState(menu, 1, MF_BYPOSITION) & MF_GRAYED);
  desk.windows.perform([&] { form.other.setVisible(false); });
  EXPECT_EQ(GetMenuItemCount(GetSubMenu(GetMenu(window), 0)), 2);
  // Keys in an open menu are the menu's alone.
  form.particular.KeyPress = [&](Key&) { form.done.emplace_back("key"); };
  Desk::queue({VK_MENU, 'M'});
  desk.strike({VK_RETURN});
  EXPECT_EQ(form.done, Done{"command"});
}

}  // namespace
}  // namespace quillet::windows
