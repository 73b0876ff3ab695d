#include "views/on_screen.h"

#include <cstring>

#include "frames/desk.h"

namespace quillet::windows {

TryForm::TryForm(OpenForms& openForms) : Form(openForms, "try") {
  amount.setRightAligned(true);
  name.setMaxLength(6);
  for (const char* item : {"Debit", "Credit", "Contra"}) side.addItem(item);
  grid.setColumns({{.heading = "", .width = 3, .tick = true},
                   {.heading = "Ledger", .width = 20, .stretch = true},
                   {.heading = "Amount", .align = Align::right, .editable = true}});
  names.setColumns({{.heading = "Name", .width = 60}});
  names.setDropOf(name);
  names.setVisible(false);
}

LayoutItem TryForm::layout() {
  std::vector<LayoutItem> boxes;
  for (const auto& line : lines) boxes.push_back(item(*line));
  return column({row({field("&Name", name), field("A&mount", amount), field("Da&te", date),
                      field("Si&de", side)}),
                 row({item(all), item(option[0]), item(option[1]), item(ok), item(hint), gap()}),
                 row(std::move(boxes)), framed(frame, {item(grid, 1)}, 1), item(names)});
}

OnScreen::OnScreen() {
  windows.follow(openForms);
  windows.perform([&] { form.show(); });
  settle();
}

OnScreen::~OnScreen() { windows.leave(); }

void OnScreen::settle() {
  MSG message{};
  for (int turn = 0; turn < 3; ++turn) {
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
    Sleep(1);
  }
}

void OnScreen::key(std::initializer_list<WORD> keys) {
  Desk::queue(keys);
  settle();
}

void OnScreen::type(std::wstring_view text) {
  for (const wchar_t unit : text) {
    INPUT input[2]{};
    for (INPUT& each : input) {
      each.type = INPUT_KEYBOARD;
      each.ki.wScan = unit;
      each.ki.dwFlags = KEYEVENTF_UNICODE;
    }
    input[1].ki.dwFlags |= KEYEVENTF_KEYUP;
    SendInput(2, input, sizeof(INPUT));
  }
  settle();
}

void OnScreen::press(HWND window, POINT place, bool twice) {
  const LPARAM at = MAKELPARAM(place.x, place.y);
  SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, at);
  SendMessageW(window, WM_LBUTTONUP, 0, at);
  if (twice) SendMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, at);
  settle();
}

void OnScreen::putOnClipboard(const std::wstring& text) {
  ASSERT_TRUE(OpenClipboard(nullptr));
  EmptyClipboard();
  const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
  const HGLOBAL data = GlobalAlloc(GMEM_MOVEABLE, bytes);
  std::memcpy(GlobalLock(data), text.c_str(), bytes);
  GlobalUnlock(data);
  SetClipboardData(CF_UNICODETEXT, data);
  CloseClipboard();
}

HWND OnScreen::focusOn(Control& control) {
  windows.perform([&] { form.focus(control); });
  settle();
  EXPECT_EQ(form.active(), &control);
  return GetFocus();
}

}  // namespace quillet::windows
