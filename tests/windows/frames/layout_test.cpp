// Where controls stand.
#include <gtest/gtest.h>

#include <map>

#include "frames/desk.h"

namespace quillet::windows {
namespace {

struct Found {
  HWND window;
  RECT room;
};

std::vector<Found> shownIn(HWND form) {
  std::vector<Found> found;
  for (HWND child = GetWindow(form, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    if (!IsWindowVisible(child)) continue;
    RECT room{};
    GetWindowRect(child, &room);
    MapWindowPoints(nullptr, form, reinterpret_cast<POINT*>(&room), 2);
    found.push_back({child, room});
  }
  return found;
}

TEST(Layout, KeepsControlsApartAndInTheWindow) {
  Desk desk;
  SampleForm form(desk.forms);
  const HWND window = desk.show(form);
  for (const auto& [width, height] : {std::pair{1200, 700}, std::pair{100, 100}}) {
    MoveWindow(window, 0, 0, width, height, TRUE);
    RECT inside{};
    GetClientRect(window, &inside);
    const std::vector<Found> shown = shownIn(window);
    EXPECT_EQ(shown.size(), 9U);
    for (const Found& one : shown) {
      RECT common{};
      EXPECT_TRUE(UnionRect(&common, &inside, &one.room) && EqualRect(&common, &inside));
      for (const Found& other : shown) {
        EXPECT_TRUE(&one == &other || !IntersectRect(&common, &one.room, &other.room));
      }
    }
  }
}

TEST(Layout, GivesTheRoomOfAHiddenControlToTheOthers) {
  Desk desk;
  SampleForm form(desk.forms);
  const HWND window = desk.show(form);
  const auto leftOf = [&](const wchar_t* text) {
    const HWND button = FindWindowExW(window, nullptr, L"Button", text);
    RECT room{};
    GetWindowRect(button, &room);
    return room.left;
  };
  const LONG before = leftOf(L"&Save");
  desk.windows.perform([&] { form.save.setVisible(false); });
  EXPECT_EQ(leftOf(L"S&end"), before);

  // A window without room for it grows with it.
  MoveWindow(window, 0, 0, 100, 100, TRUE);
  desk.windows.perform([&] {
    form.save.setCaption(std::string(80, 'm'));
    form.save.setVisible(true);
  });
  RECT inside{};
  GetClientRect(window, &inside);
  EXPECT_EQ(shownIn(window).size(), 9U);
  for (const Found& one : shownIn(window)) {
    RECT common{};
    EXPECT_TRUE(UnionRect(&common, &inside, &one.room) && EqualRect(&common, &inside));
  }
}

bool showsItsText(HWND button) {
  wchar_t text[40]{};
  GetWindowTextW(button, text, 40);
  const HDC paper = GetDC(button);
  SelectObject(paper, reinterpret_cast<HFONT>(SendMessageW(button, WM_GETFONT, 0, 0)));
  RECT wanted{};
  DrawTextW(paper, text, -1, &wanted, DT_CALCRECT | DT_SINGLELINE);
  ReleaseDC(button, paper);
  RECT room{};
  GetClientRect(button, &room);
  return wanted.right < room.right && wanted.bottom < room.bottom;
}

TEST(Layout, MakesLettersSmallerOnAMonitorWithoutRoomForThem) {
  Desk desk;
  SampleForm form(desk.forms);
  const HWND window = desk.show(form);
  const HWND label = FindWindowExW(window, nullptr, L"Static", L"&Particular");
  const auto lettersAt = [&](WORD dpi) {
    const RECT all{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&all));
    RECT inside{};
    GetClientRect(window, &inside);
    for (const Found& one : shownIn(window)) {
      RECT common{};
      EXPECT_TRUE(UnionRect(&common, &inside, &one.room) && EqualRect(&common, &inside)) << dpi;
    }
    for (const wchar_t* text : {L"&Save", L"S&end", L"Stop &it", L"Start &it"}) {
      EXPECT_TRUE(showsItsText(FindWindowExW(window, nullptr, L"Button", text))) << dpi;
    }
    RECT room{};
    GetClientRect(label, &room);
    return room.bottom;
  };
  const LONG usual = lettersAt(96);
  EXPECT_NEAR(lettersAt(144), usual * 3 / 2, 3);
  const LONG crowded = lettersAt(480);
  EXPECT_GT(crowded, usual);
  EXPECT_LT(crowded, usual * 4);
  EXPECT_EQ(lettersAt(96), usual);
}

TEST(Place, OfAHostHoldsBeforeAndAfterTheWindowIsThere) {
  Desk desk;
  SampleForm form(desk.forms);
  FormWindows::Place wanted;
  wanted.left = 40;
  wanted.top = 30;
  wanted.width = 900;
  wanted.height = 600;
  desk.windows.setPlace(form, wanted);
  const HWND window = desk.show(form);
  RECT room{};
  GetWindowRect(window, &room);
  EXPECT_EQ(room.left, 40);
  EXPECT_EQ(room.right, 940);
  const HWND label = FindWindowExW(window, nullptr, L"Static", L"&Particular");
  const auto height = [&] {
    GetWindowRect(label, &room);
    return room.bottom - room.top;
  };
  const LONG before = height();
  wanted.width.reset();
  wanted.fontPoints = 18;
  desk.windows.setPlace(form, wanted);
  EXPECT_GT(height(), before * 3 / 2);
  EXPECT_EQ(desk.windows.place(form).width, 900);

  // On a monitor with twice the dots, Windows proposes a place.
  const LONG usual = height();
  const RECT proposed{10, 10, 1010, 710};
  SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&proposed));
  EXPECT_GT(height(), usual * 3 / 2);
  EXPECT_EQ(desk.windows.place(form).left, 10);
}

TEST(Place, WhereAPersonLeftAFormItOpensAgain) {
  Desk desk;
  std::map<std::string, std::string> kept;
  desk.windows.keptPlaces().use(
      {[&](const auto&, const auto& key) { return kept[key]; },
       [&](const auto&, const auto& key, const auto& value) { kept[key] = value; }});
  SampleForm form(desk.forms);
  const auto opened = [&] {
    FormWindows::Place rescaled;
    rescaled.left = 40;
    rescaled.width = 900;
    desk.windows.setPlace(form, rescaled);
    RECT room{};
    GetWindowRect(desk.show(form), &room);
    return room;
  };
  const auto close = [&] { desk.windows.perform([&] { form.close(); }); };
  const RECT designed = opened();
  EXPECT_EQ(designed.right, 940);
  close();
  EXPECT_EQ(kept["sample"], "") << "nobody moved it";

  opened();
  MoveWindow(desk.windows.windowOf(form), 50, 60, 800, 500, TRUE);
  close();
  EXPECT_EQ(kept["sample"], "800x500+50+60");
  const RECT again = opened();
  const RECT left{50, 60, 850, 560};
  EXPECT_TRUE(EqualRect(&again, &left));
  ShowWindow(desk.windows.windowOf(form), SW_SHOWMAXIMIZED);
  close();
  EXPECT_EQ(kept["sample"], "800x500+50+60 maximized");
  opened();
  EXPECT_TRUE(IsZoomed(desk.windows.windowOf(form)));
  close();

  kept["sample"] = "9000x8000+5000-3000";
  const RECT fitted = opened();
  RECT screen{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
  EXPECT_TRUE(EqualRect(&fitted, &screen));
  close();
  kept["sample"] = "x";
  const RECT usual = opened();
  EXPECT_TRUE(EqualRect(&usual, &designed));
}

}  // namespace
}  // namespace quillet::windows
