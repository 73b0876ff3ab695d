#include "vtxt/container.h"

#include <gtest/gtest.h>
#include <olectl.h>
#include <quillet_vtxt_com.h>

#include <utility>

#include "windows/com/text.h"

namespace quillet::fakes {
namespace {

std::string saidByBoxes;

BOOL CALLBACK answer(HWND window, LPARAM) {
  const HWND text = GetDlgItem(window, 0xffff);
  if (!text || !GetDlgItem(window, IDOK) || !IsWindowVisible(window)) return TRUE;
  std::wstring said(200, L'\0');
  said.resize(static_cast<std::size_t>(GetWindowTextW(text, said.data(), 200)));
  saidByBoxes += windows::utf8(said) + '\n';
  SendMessageW(window, WM_COMMAND, IDOK, 0);
  return FALSE;
}

void CALLBACK look(HWND, UINT, UINT_PTR, DWORD) {
  EnumThreadWindows(GetCurrentThreadId(), answer, 0);
}

void send(WORD code, bool up) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = code;
  input.ki.dwFlags = up ? KEYEVENTF_KEYUP : 0;
  SendInput(1, &input, sizeof input);
}

const char* nameOf(DISPID event) {
  static const std::map<DISPID, const char*> names{
      {1, "Change"},
      {2, "GotFocus"},
      {3, "LostFocus"},
      {DISPID_CLICK, "Click"},
      {DISPID_DBLCLICK, "DblClick"},
      {DISPID_KEYDOWN, "KeyDown"},
      {DISPID_KEYPRESS, "KeyPress"},
      {DISPID_KEYUP, "KeyUp"},
      {DISPID_MOUSEDOWN, "MouseDown"},
      {DISPID_MOUSEUP, "MouseUp"},
  };
  const auto found = names.find(event);
  return found == names.end() ? nullptr : found->second;
}

}  // namespace

void pump(HWND dialog) {
  constexpr DWORD quiet = 60;
  for (DWORD last = GetTickCount(); GetTickCount() - last < quiet;) {
    MSG message;
    if (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      Sleep(5);
    } else if (!IsDialogMessageW(dialog, &message)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
      if (message.message != WM_TIMER) last = GetTickCount();
    } else {
      last = GetTickCount();
    }
  }
}

void press(HWND dialog, WORD code, bool shift) {
  if (shift) send(VK_SHIFT, false);
  send(code, false);
  send(code, true);
  if (shift) send(VK_SHIFT, true);
  pump(dialog);
}

void type(HWND dialog, const std::string& characters) {
  for (const char character : characters) {
    const SHORT key = VkKeyScanA(character);
    press(dialog, LOBYTE(key), (HIBYTE(key) & 1) != 0);
  }
}

void click(HWND dialog, HWND window) {
  RECT room;
  GetWindowRect(window, &room);
  SetCursorPos((room.left + room.right) / 2, (room.top + room.bottom) / 2);
  pump(dialog);
  for (const DWORD change : {MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP}) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = change;
    SendInput(1, &input, sizeof input);
  }
  pump(dialog);
}

// --- message boxes ------------------------------------------------------------------------------

Messages::Messages() : timer_(SetTimer(nullptr, 0, 20, look)) {}

Messages::~Messages() { KillTimer(nullptr, timer_); }

std::string Messages::told() { return std::exchange(saidByBoxes, {}); }

// --- events -------------------------------------------------------------------------------------

Sink::Sink(const Pointer<IUnknown>& control) {
  const auto points = control.query<IConnectionPointContainer>();
  EXPECT_EQ(points->FindConnectionPoint(DIID___VTxt, point_.put()), S_OK);
  EXPECT_EQ(point_->Advise(this, &cookie_), S_OK);
}

Sink::~Sink() { EXPECT_EQ(point_->Unadvise(cookie_), S_OK); }

STDMETHODIMP Sink::QueryInterface(REFIID iid, void** object) noexcept {
  *object = iid == IID_IUnknown || iid == IID_IDispatch ? this : nullptr;
  return *object ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP Sink::Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                          EXCEPINFO*, UINT*) noexcept {
  if (const char* name = nameOf(event)) {
    heard_ += heard_.empty() ? name : std::string(" ") + name;
    if (event == DISPID_KEYPRESS) {
      short& key = *parameters->rgvarg[0].piVal;
      heard_ += std::to_string(key);
      if (const auto found = keys.find(key); found != keys.end()) key = found->second;
    }
  }
  if (happened) happened(event);
  return S_OK;
}

std::string Sink::heard() { return std::exchange(heard_, {}); }

// --- windows ------------------------------------------------------------------------------------

Program::Program()
    : window_(CreateWindowExW(WS_EX_CONTROLPARENT, L"STATIC", L"Program",
                              WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50, 400, 200, nullptr, nullptr,
                              nullptr, nullptr)) {
  SetForegroundWindow(window_);
  pump(window_);
}

Program::~Program() {
  DestroyWindow(window_);
  pump(nullptr);
}

Placed::Placed(const Program& program, int top) {
  static const HMODULE library = LoadLibraryW(L"atl100.dll");
  const auto function = [](const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(library, name));
  };
  static const BOOL ready = reinterpret_cast<BOOL(WINAPI*)()>(function("AtlAxWinInit"))();
  EXPECT_TRUE(ready);
  host =
      CreateWindowExW(WS_EX_CONTROLPARENT, L"AtlAxWin100", L"Quillet.VTxt", WS_CHILD | WS_VISIBLE,
                      10, top, 300, 30, program.window(), nullptr, nullptr, nullptr);
  const auto controlOf =
      reinterpret_cast<HRESULT(WINAPI*)(HWND, IUnknown**)>(function("AtlAxGetControl"));
  EXPECT_EQ(controlOf(host, control.put()), S_OK);
  box = Late(control.query<IDispatch>(), "VTxt");
}

HWND Placed::window() const {
  HWND window = nullptr;
  as<IOleInPlaceObject>()->GetWindow(&window);
  return window;
}

void Placed::activate() const {
  const auto object = as<IOleObject>();
  Pointer<IOleClientSite> site;
  object->GetClientSite(site.put());
  RECT place;
  GetClientRect(host, &place);
  EXPECT_EQ(object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, site.get(), 0, host, &place), S_OK);
  pump(GetParent(host));
}

std::string Placed::text() const { return windows::asText(box.call("Text")); }

}  // namespace quillet::fakes
