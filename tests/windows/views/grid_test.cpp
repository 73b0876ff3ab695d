// Grids, the editing of their cells and the lists under text boxes, in native windows.
#include <commctrl.h>

#include <chrono>
#include <map>

#include "views/on_screen.h"
#include "windows/ui/dpi.h"
#include "windows/ui/make_view.h"
#include "windows/ui/metrics.h"

namespace quillet::windows {
namespace {

class Grids : public OnScreen {
 protected:
  void fill(int rows) {
    windows.perform([&] {
      form.grid.setRows(rows, [this](int id) {
        ++made;
        return std::vector<std::string>{"", "Ledger " + std::to_string(id), std::to_string(id)};
      });
    });
    list = focusOn(form.grid);
  }
  RECT cell(int row, int column) const {
    RECT room{};
    room.top = column;
    room.left = LVIR_BOUNDS;
    SendMessageW(list, LVM_GETSUBITEMRECT, static_cast<WPARAM>(row - 1),
                 reinterpret_cast<LPARAM>(&room));
    return room;
  }
  POINT inside(int row, int column) const {
    const RECT room = cell(row, column);
    return {column == 0 ? 8 : room.left + 8, (room.top + room.bottom) / 2};
  }
  HWND header() const { return ListView_GetHeader(list); }

  HWND list = nullptr;
  int made = 0;  // rows whose cells were asked for
};

TEST_F(Grids, ShowsManyRowsWithoutDelay) {
  using Clock = std::chrono::steady_clock;
  const auto timeOf = [&](int rows) {
    const auto begun = Clock::now();
    fill(rows);
    RedrawWindow(list, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    for (int page = 0; page < 20; ++page) key({VK_NEXT});
    key({VK_END});
    UpdateWindow(list);
    return std::chrono::duration<double, std::milli>(Clock::now() - begun).count();
  };
  timeOf(500);
  const double few = timeOf(500);
  made = 0;
  const double many = timeOf(20000);
  EXPECT_EQ(form.grid.current(), 20000);
  EXPECT_EQ(ListView_GetItemCount(list), 20000);
  EXPECT_EQ(ListView_GetNextItem(list, -1, LVNI_SELECTED), 19999);
  RECT client{};
  GetClientRect(list, &client);
  EXPECT_LE(cell(20000, 1).bottom, client.bottom);
  EXPECT_GT(cell(20000, 1).top, client.bottom / 2);
  EXPECT_LT(made, 2000);
  EXPECT_LT(many, 5 * few);  // forty times the rows
  std::printf("21 pages of 500 rows: %.0f ms; of 20,000: %.0f ms, %d rows made\n", few, many, made);
}

TEST_F(Grids, KeepsItsPlaceAndColumnsWhenCellsChange) {
  fill(500);
  windows.perform([&] { form.grid.setCurrent(300); });
  const int top = ListView_GetTopIndex(list);
  EXPECT_GT(top, 200);
  ListView_SetColumnWidth(list, 1, 222);
  windows.perform([&] { form.grid.setCell(300, 1, "Other"); });
  EXPECT_EQ(ListView_GetTopIndex(list), top);
  windows.perform([&] { form.grid.setRowHidden(1, true); });
  EXPECT_EQ(ListView_GetItemCount(list), 499);
  EXPECT_EQ(ListView_GetNextItem(list, -1, LVNI_SELECTED), 298);
  wchar_t text[40]{};
  LVITEMW item{};
  item.iSubItem = 1;
  item.pszText = text;
  item.cchTextMax = 40;
  SendMessageW(list, LVM_GETITEMTEXTW, 298, reinterpret_cast<LPARAM>(&item));
  EXPECT_STREQ(text, L"Other");
}

TEST_F(Grids, SelectsOneRowOverTheWholeWidth) {
  windows.perform([&] {
    form.grid.setColumns({{.heading = "", .width = 3}, {.heading = "Year"}});
  });
  fill(5);
  RECT client{};
  GetClientRect(list, &client);
  ASSERT_LT(cell(1, 1).right, client.right - 8);
  const HDC screen = GetDC(list);
  for (const int current : {2, 4, 3}) {
    windows.perform([&] { form.grid.setCurrent(current); });
    UpdateWindow(list);
    for (int row = 1; row <= 5; ++row) {
      const int y = inside(row, 1).y;
      const bool selected = GetPixel(screen, client.right - 4, y) !=
                            GetPixel(screen, client.right - 4, client.bottom - 4);
      EXPECT_EQ(selected, row == current) << row << " when the current one is " << current;
    }
  }
  ReleaseDC(list, screen);
}

TEST_F(Grids, SortsByItsHeadings) {
  fill(30);
  RECT room{};
  SendMessageW(header(), HDM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&room));
  for (const int arrow : {HDF_SORTUP, HDF_SORTDOWN}) {
    press(header(), {room.left + 20, 8});
    HDITEMW heading{};
    heading.mask = HDI_FORMAT;
    SendMessageW(header(), HDM_GETITEMW, 1, reinterpret_cast<LPARAM>(&heading));
    EXPECT_TRUE(heading.fmt & arrow);
  }
  EXPECT_EQ(form.grid.sortColumn(), 1);
  EXPECT_EQ(form.grid.cell(1, 1), "Ledger 9");
  HDITEMW heading{};
  heading.mask = HDI_FORMAT;
  SendMessageW(header(), HDM_GETITEMW, 2, reinterpret_cast<LPARAM>(&heading));
  EXPECT_EQ(heading.fmt & HDF_JUSTIFYMASK, HDF_RIGHT);
}

TEST_F(Grids, KeepsAWidthThatAPersonDraggedTo) {
  static std::map<std::string, std::string> kept;  // until the windows are left
  windows.keptPlaces().use(
      {[&](const auto&, const auto& key) { return kept[key]; },
       [&](const auto&, const auto& key, const auto& value) { kept[key] = value; }});
  const auto columns = form.grid.columns();
  fill(10);
  RECT room{};
  SendMessageW(header(), HDM_GETITEMRECT, 2, reinterpret_cast<LPARAM>(&room));
  const auto drag = [&](UINT message, LONG x) {
    SendMessageW(header(), message, MK_LBUTTON, MAKELPARAM(x, 8));
  };
  drag(WM_LBUTTONDOWN, room.right - 2);
  drag(WM_MOUSEMOVE, room.right + 40);
  drag(WM_LBUTTONUP, room.right + 40);
  settle();
  const int wide = ListView_GetColumnWidth(list, 2);
  EXPECT_GT(wide, room.right - room.left + 30);
  EXPECT_GT(form.grid.columns()[2].width, 15);
  windows.perform([&] { form.grid.setCell(1, 1, "Other"); });
  EXPECT_EQ(ListView_GetColumnWidth(list, 2), wide);

  const int given = form.grid.columns()[2].width;
  windows.perform([&] { form.close(); });
  EXPECT_EQ(kept["try.grid.Amount"], std::to_string(given));
  form.grid.setColumns(columns);
  windows.perform([&] { form.show(); });
  EXPECT_EQ(form.grid.columns()[2].width, given);
}

TEST_F(Grids, ShowsWholeRowsAlone) {
  fill(100);
  const HWND window = windows.windowOf(form);
  RECT whole{};
  GetWindowRect(window, &whole);
  for (int cut = 0; cut < 30; cut += 4) {
    // The second time the columns are wider than the list, which gets a bar at its foot.
    for (const int width : {20, 200}) {
      windows.perform([&] { form.grid.setColumnWidth(2, width); });
      SetWindowPos(window, nullptr, 0, 0, whole.right - whole.left, whole.bottom - whole.top - cut,
                   SWP_NOMOVE | SWP_NOZORDER);
      settle();
      RECT client{};
      GetClientRect(list, &client);
      EXPECT_EQ(client.bottom, cell(ListView_GetCountPerPage(list), 1).bottom)
          << cut << " less, " << width;
    }
  }
}

TEST_F(Grids, TicksByClickAndSpace) {
  fill(10);
  press(list, inside(3, 0));
  EXPECT_EQ(form.grid.current(), 3);
  EXPECT_TRUE(form.grid.ticked(3));
  key({VK_DOWN});
  key({VK_SPACE});
  EXPECT_TRUE(form.grid.ticked(4));
  key({VK_SPACE});
  EXPECT_FALSE(form.grid.ticked(4));
}

TEST_F(Grids, EditsACellInPlace) {
  std::string edited;
  form.grid.AfterEdit = [&](int row, int column) {
    edited += std::to_string(row) + ',' + std::to_string(column) + '=' +
              form.grid.cell(row, column) + ' ';
  };
  fill(10);
  windows.perform([&] { form.grid.setCurrent(2); });
  const struct {
    const char* what;
    std::function<void()> act;
    const char* text;
  } steps[] = {
      {"F2 and Enter", [&] { key({VK_F2}), type(L"12.5"), key({VK_RETURN}); }, "12.5"},
      {"pasted as one line",
       [&] {
         putOnClipboard(L" 1\r\n2 ");
         key({VK_F2}), key({VK_CONTROL, 'V'}), key({VK_RETURN});
       },
       "1 2"},
      {"typed again", [&] { key({VK_F2}), type(L"12.5"), key({VK_RETURN}); }, "12.5"},
      {"Escape", [&] { key({VK_F2}), type(L"7"), key({VK_ESCAPE}); }, "12.5"},
      {"a click on the current row, Tab",
       [&] { press(list, inside(2, 2)), key({VK_END}), type(L"0"), key({VK_TAB}); }, "12.50"},
      {"a double click, leaving",
       [&] { press(list, inside(2, 2), true), type(L"8"), focusOn(form.ok); }, "8"},
  };
  for (const auto& step : steps) {
    step.act();
    EXPECT_EQ(form.grid.cell(2, 2), step.text) << step.what;
    EXPECT_EQ(GetWindow(list, GW_CHILD), header()) << step.what;
  }
  EXPECT_EQ(edited, "2,2=12.5 2,2=1 2 2,2=12.5 2,2=12.50 2,2=8 ");
}

TEST_F(Grids, CarriesARowOn) {
  std::string done;
  form.grid.DblClick = [&] { done += "chosen " + std::to_string(form.grid.current()) + ' '; };
  form.grid.Popup = [&] { done += "menu " + std::to_string(form.grid.current()) + ' '; };
  fill(10);
  press(list, inside(5, 1), true);
  const POINT place = inside(6, 1);
  SendMessageW(list, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(place.x, place.y));
  SendMessageW(list, WM_RBUTTONUP, 0, MAKELPARAM(place.x, place.y));
  settle();
  key({VK_APPS});
  EXPECT_EQ(done, "chosen 5 menu 6 menu 6 ");
}

long blocksInUse() {
  const HANDLE heap = GetProcessHeap();
  PROCESS_HEAP_ENTRY entry{};
  long blocks = 0;
  while (HeapWalk(heap, &entry)) blocks += entry.wFlags & PROCESS_HEAP_ENTRY_BUSY ? 1 : 0;
  return blocks;
}

TEST_F(Grids, LeavesNothingBehindWithItsWindow) {
  fill(3);
  const Metrics metrics(usualDpi, {});
  const auto makeAndDestroy = [&](int times) {
    for (int time = 0; time < times; ++time) {
      const auto view = makeView(form.grid, windows, windows.windowOf(form));
      view->setMetrics(metrics);
      view->redraw();
      view->detach();
    }
    return blocksInUse();
  };
  const long before = makeAndDestroy(5);
  EXPECT_LT(makeAndDestroy(20), before + 20);  // less than one each time
}

// --- drop-down -----------------------------------------------------------------------------------

BOOL CALLBACK keepDropDown(HWND window, LPARAM result) {
  const bool is = IsWindowVisible(window) && GetWindow(window, GW_OWNER) &&
                  (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_NOACTIVATE);
  if (is) *reinterpret_cast<HWND*>(result) = window;
  return TRUE;
}

HWND dropDown() {
  HWND found = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), keepDropDown, reinterpret_cast<LPARAM>(&found));
  return found;
}

TEST_F(Grids, DropsAListUnderItsBox) {
  std::string chosen;
  form.names.DblClick = [&] {
    chosen = form.names.cell(form.names.current(), 0);
    form.names.setVisible(false);
  };
  const HWND box = focusOn(form.name);
  EXPECT_EQ(dropDown(), nullptr);
  windows.perform([&] {
    for (int at = 1; at <= 40; ++at) form.names.addRow({"Name " + std::to_string(at)}, at);
    form.names.setVisible(true);
  });
  settle();
  const HWND dropped = dropDown();
  ASSERT_NE(dropped, nullptr);
  RECT field{};
  RECT place{};
  GetWindowRect(box, &field);
  GetWindowRect(dropped, &place);
  EXPECT_GE(place.top, field.bottom);
  EXPECT_GE(place.right - place.left, field.right - field.left);
  const HWND rows = GetWindow(dropped, GW_CHILD);
  EXPECT_EQ(ListView_GetCountPerPage(rows), 9);
  EXPECT_FALSE(GetWindowLongPtrW(rows, GWL_STYLE) & WS_HSCROLL);
  EXPECT_EQ(GetFocus(), box);
  EXPECT_EQ(SendMessageW(rows, WM_MOUSEACTIVATE, 0, 0), MA_NOACTIVATE);

  windows.perform([&] { form.names.setCurrent(30); });
  EXPECT_EQ(ListView_GetTopIndex(rows), 29);
  press(rows, {20, 30});
  EXPECT_EQ(chosen, "Name 31");
  EXPECT_EQ(dropDown(), nullptr);
  EXPECT_EQ(GetFocus(), box);
}

}  // namespace
}  // namespace quillet::windows
