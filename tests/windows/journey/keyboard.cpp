#include "journey/keyboard.h"

#include <windows.h>

#include <cctype>
#include <cstring>
#include <map>
#include <stdexcept>

#include "windows/com/text.h"

namespace quillet::journey {
namespace {

const std::map<std::string, WORD>& namedKeys() {
  static const std::map<std::string, WORD> keys{
      {"Enter", VK_RETURN},  {"Tab", VK_TAB},        {"Escape", VK_ESCAPE}, {"Up", VK_UP},
      {"Down", VK_DOWN},     {"Left", VK_LEFT},      {"Right", VK_RIGHT},   {"Home", VK_HOME},
      {"End", VK_END},       {"PageUp", VK_PRIOR},   {"PageDown", VK_NEXT}, {"Insert", VK_INSERT},
      {"Delete", VK_DELETE}, {"Backspace", VK_BACK}, {"Space", VK_SPACE},   {"F1", VK_F1},
      {"F2", VK_F2},         {"F3", VK_F3},          {"F5", VK_F5},         {"F6", VK_F6},
      {"F7", VK_F7},         {"F8", VK_F8},          {"F9", VK_F9},         {"F10", VK_F10},
      {"Alt", VK_MENU},      {"Ctrl", VK_CONTROL},   {"Shift", VK_SHIFT}};
  return keys;
}

// These are on the block of their own between letters and numbers.
bool isExtended(WORD key) {
  return (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_INSERT || key == VK_DELETE;
}

void send(WORD key, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
  input.ki.dwFlags = flags | (isExtended(key) ? KEYEVENTF_EXTENDEDKEY : 0u);
  SendInput(1, &input, sizeof input);
}

void sendCharacter(wchar_t unit, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wScan = unit;
  input.ki.dwFlags = flags | KEYEVENTF_UNICODE;
  SendInput(1, &input, sizeof input);
}

struct Held {
  explicit Held(WORD which) : key(which) { send(key, 0); }
  ~Held() { send(key, KEYEVENTF_KEYUP); }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;
  WORD key;
};

void pressCharacter(const std::string& character) {
  const std::wstring units = windows::wide(character);
  const SHORT found = units.size() == 1 ? VkKeyScanW(units[0]) : -1;
  if (found == -1) {
    for (const wchar_t unit : units) sendCharacter(unit, 0);
    for (const wchar_t unit : units) sendCharacter(unit, KEYEVENTF_KEYUP);
    return;
  }
  const auto key = static_cast<WORD>(found & 0xff);
  if ((found & 0x100) == 0) {
    const Held held(key);
  } else {
    const Held shift(VK_SHIFT);
    const Held held(key);
  }
}

}  // namespace

void press(const std::string& chord) {
  if (chord == "BackTab") return press("Shift+Tab");
  const auto plus = chord.find('+');
  if (plus != std::string::npos && plus > 0) {
    const Held modifier(namedKeys().at(chord.substr(0, plus)));
    const std::string key = chord.substr(plus + 1);
    if (key.size() != 1) return press(key);
    // A letter stands for its key, which types it without Shift.
    return pressCharacter({static_cast<char>(std::tolower(static_cast<unsigned char>(key[0])))});
  }
  const auto named = namedKeys().find(chord);
  if (named == namedKeys().end()) return pressCharacter(chord);
  const Held held(named->second);
}

void putOnClipboard(const std::string& text) {
  const std::wstring units = windows::wide(text);
  const std::size_t bytes = (units.size() + 1) * sizeof(wchar_t);
  if (!OpenClipboard(nullptr)) throw std::runtime_error("The clipboard is in use.");
  EmptyClipboard();
  const HGLOBAL data = GlobalAlloc(GMEM_MOVEABLE, bytes);
  std::memcpy(GlobalLock(data), units.c_str(), bytes);
  GlobalUnlock(data);
  SetClipboardData(CF_UNICODETEXT, data);
  CloseClipboard();
}

std::vector<std::string> chordsTyping(const std::string& text) {
  std::vector<std::string> chords;
  for (const char byte : text) {
    const bool continues = (static_cast<unsigned char>(byte) & 0xc0) == 0x80;
    if (!continues) chords.emplace_back();
    chords.back() += byte;
  }
  return chords;
}

}  // namespace quillet::journey
