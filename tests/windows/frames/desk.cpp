#include "frames/desk.h"

#include "windows/ui/this_module.h"

namespace quillet::windows {

SampleForm::SampleForm(OpenForms& openForms, std::string name) : Form(openForms, std::move(name)) {
  setCaption("Sample");
  names.setColumns({{.heading = "Name", .stretch = true}});
  names.setRows(20, [](int id) { return std::vector<std::string>{std::to_string(id)}; });
  for (Control* each :
       std::initializer_list<Control*>{&command, &other, &help, &save, &send, &stop, &start}) {
    each->Click = [this, each] { done.push_back(each->name()); };
  }
}

LayoutItem SampleForm::layout() {
  return column({field("&Particular", particular, 30), field("&Amount", amount, 12), item(names, 1),
                 row({item(save), item(send), item(stop), item(start), gap()})});
}

Desk::Desk() {
  WNDCLASSW wanted{};
  wanted.lpfnWndProc = receive;
  wanted.hInstance = thisModule();
  wanted.lpszClassName = L"Host";
  RegisterClassW(&wanted);
  host_ = CreateWindowExW(0, L"Host", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300,
                          nullptr, nullptr, thisModule(), this);
  SetForegroundWindow(host_);
  windows.follow(forms);
  pump();
}

Desk::~Desk() {
  windows.leave();
  DestroyWindow(host_);
  UnregisterClassW(L"Host", thisModule());
}

LRESULT CALLBACK Desk::receive(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_NCCREATE) {
    const auto* how = reinterpret_cast<CREATESTRUCTW*>(longer);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(how->lpCreateParams));
  }
  auto* self = reinterpret_cast<Desk*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message == WM_COMMAND && HIWORD(wide) == 1) self->taken.push_back(LOWORD(wide));
  return DefWindowProcW(window, message, wide, longer);
}

HWND Desk::show(Form& form) {
  windows.perform([&] { form.show(); });
  pump();
  return windows.windowOf(form);
}

HWND Desk::showModal(Form& form) {
  windows.perform([&] { form.showModal(); });
  pump();
  return windows.windowOf(form);
}

void Desk::pump(HACCEL accelerators) {
  // Keys come from outside and take a moment.
  const DWORD until = GetTickCount() + 60;
  for (;;) {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      if (message.message == WM_QUIT) return PostQuitMessage(static_cast<int>(message.wParam));
      if (accelerators && TranslateAcceleratorW(host_, accelerators, &message)) continue;
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
    if (static_cast<LONG>(until - GetTickCount()) <= 0) return;
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
  }
}

void Desk::strike(std::initializer_list<WORD> keys, HACCEL accelerators) {
  queue(keys);
  pump(accelerators);
}

void Desk::queue(std::initializer_list<WORD> keys) {
  std::vector<INPUT> inputs;
  const auto add = [&](WORD key, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    inputs.push_back(input);
  };
  for (const WORD key : keys) add(key, 0);
  for (auto key = keys.end(); key != keys.begin();) add(*--key, KEYEVENTF_KEYUP);
  SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

}  // namespace quillet::windows
