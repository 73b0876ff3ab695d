#include "journey/screen.h"

#include <array>

#include "journey/keyboard.h"
#include "windows/com/text.h"

namespace quillet::journey {
namespace {

std::string classOf(HWND window) {
  std::array<wchar_t, 64> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return windows::utf8(name.data());
}

std::string textOf(HWND window) {
  std::wstring text(1000, L'\0');
  text.resize(GetWindowTextW(window, text.data(), static_cast<int>(text.size())));
  return windows::utf8(text);
}

std::vector<HWND> shown() {
  std::vector<HWND> windows;
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND window, LPARAM into) -> BOOL {
        if (IsWindowVisible(window)) reinterpret_cast<std::vector<HWND>*>(into)->push_back(window);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&windows));
  return windows;
}

std::vector<HWND> children(HWND parent, const std::string& className) {
  std::vector<HWND> found;
  for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    if (classOf(child) == className) found.push_back(child);
  }
  return found;
}

std::string onOneLine(const std::string& text) {
  std::string line;
  for (const char c : text) {
    const bool space = c == ' ' || c == '\r' || c == '\n';
    if (!space) line += c;
    if (space && !line.empty() && line.back() != ' ') line += ' ';
  }
  return line;
}

}  // namespace

std::vector<HWND> formWindows() {
  std::vector<HWND> windows = shown();
  std::erase_if(windows, [](HWND window) { return classOf(window) != "QuilletForm"; });
  return windows;
}

MessageBox messageBox() {
  for (const HWND window : shown()) {
    if (classOf(window) != "#32770") continue;
    for (const HWND text : children(window, "Static")) {
      if (!textOf(text).empty()) return {window, onOneLine(textOf(text))};
    }
  }
  return {};
}

bool answer(const MessageBox& box, const std::string& button) {
  for (const HWND each : children(box.window, "Button")) {
    std::string caption = textOf(each);
    const auto mark = caption.find('&');
    const std::string key = mark == std::string::npos ? "Enter" : caption.substr(mark + 1, 1);
    if (mark != std::string::npos) caption.erase(mark, 1);
    if (caption != button) continue;
    press(mark == std::string::npos ? key : "Alt+" + key);
    return true;
  }
  return false;
}

std::string allWindows() {
  std::string all;
  for (const HWND window : shown()) all += classOf(window) + " '" + textOf(window) + "'\n";
  return all;
}

}  // namespace quillet::journey
