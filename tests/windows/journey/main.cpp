// A host with a window and a loop of its own that loads the component, and a person at its
// keyboard: journey.exe STEPS RECORD. The last line is "OK" when everything came as the steps say.
#include <ole2.h>
#include <windows.h>

#include <cstdio>
#include <memory>

#include "journey/player.h"

namespace {

using quillet::journey::Player;

constexpr UINT_PTR timer = 1;
constexpr UINT periodMs = 10;
Player* player = nullptr;

LRESULT CALLBACK receive(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (message == WM_TIMER && first == timer) {
    if (!player->next()) {
      KillTimer(window, timer);
      PostQuitMessage(0);
    }
    return 0;
  }
  return DefWindowProcW(window, message, first, second);
}

HWND hostWindow() {
  WNDCLASSW wanted{};
  wanted.lpfnWndProc = receive;
  wanted.hInstance = GetModuleHandleW(nullptr);
  wanted.lpszClassName = L"JourneyHost";
  RegisterClassW(&wanted);
  return CreateWindowExW(0, L"JourneyHost", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300,
                         100, nullptr, nullptr, wanted.hInstance, nullptr);
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) {
    std::puts("Usage: journey STEPS RECORD");
    return 2;
  }
  OleInitialize(nullptr);
  std::string failure;
  try {
    const auto playing =
        std::make_unique<Player>(quillet::journey::readSteps(arguments[1]), arguments[2]);
    player = playing.get();
    SetTimer(hostWindow(), timer, periodMs, nullptr);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
    failure = playing->failure();
  } catch (const std::exception& error) {
    failure = error.what();
  }
  OleUninitialize();
  std::puts(failure.empty() ? "OK" : failure.c_str());
  return failure.empty() ? 0 : 1;
}
