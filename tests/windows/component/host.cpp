#include "component/host.h"

#include <ole2.h>

#include <algorithm>
#include <array>
#include <thread>

#include "fakes/recordset.h"
#include "windows/com/text.h"

namespace quillet::fakes {
namespace {

Pointer<Recorder> newSuite() {
  auto suite = Pointer<Recorder>::attach(new Recorder);
  suite->answers("CheckDllsVersion", Variant(true));
  suite->answers("DbObj", Variant(holding("State", Variant(1))));
  suite->answers("ConQuery", Variant());
  suite->add("RecordsetQuery", [](const Call&) {
    return Variant(recordset({"code_no", "name"}, {}));
  });
  suite->add("TruncVarSQL", [](const Call& call) { return Variant(call.text(0)); });
  suite->add("GetSettingINI", [](const Call& call) { return Variant(call.text(2)); });
  suite->add("GetMiscOthInf", [](const Call& call) { return Variant(call.text(2)); });
  for (const char* text : {"COMPANY_NAME", "vLstSelClCode"}) suite->answers(text, Variant("Firm"));
  for (const char* folder : {"ExePath", "DocPath"}) suite->answers(folder, Variant("C:\\host"));
  for (const char* ratio : {"vScreenRatX", "vScreenRatY", "vScreenRatFS"}) {
    suite->answers(ratio, Variant(1.0));
  }
  for (const char* quiet : {"SaveSettingINI", "progress", "resize_for_resolution"}) {
    suite->answers(quiet, Variant());
  }
  suite->add("formatgen", [](const Call& call) { return Variant(call.text(0)); });
  for (const char* object : {"objProgress", "MainPageObj", "PopupMenuObj", "ObjHelp"}) {
    suite->answers(object, Variant(holding("Text1", Variant(""))));
  }
  return suite;
}

}  // namespace

void onHostThread(const std::function<void()>& body) {
  std::thread([&] {
    OleInitialize(nullptr);
    body();
    OleUninitialize();
  }).join();
}

Host::Host(std::initializer_list<const char*> without) : suite_(newSuite()) {
  serve("TalBase.ClsMain", suite_.get());
  const Pointer<IDispatch> reporter = holding("WinModeReport", Variant(true));
  serve("PrjOrvoReporter.ClsMain", reporter.get());
  for (const std::string missing : without) {
    if (missing.find('.') == std::string::npos) {
      suite_->forget(missing);
    } else {
      serve(missing, nullptr);
    }
  }
}

Host::~Host() {
  serve("TalBase.ClsMain", nullptr);
  serve("PrjOrvoReporter.ClsMain", nullptr);
}

std::string Host::statements() const {
  std::string all;
  for (const std::string& call : suite_->calls) {
    if (call.starts_with("RecordsetQuery") || call.starts_with("ConQuery")) all += call + "\n";
  }
  return all;
}

windows::Late newForms() { return windows::Late::create("PrjQuillet.Forms"); }

void pump(DWORD milliseconds) {
  const DWORD start = GetTickCount();
  do {
    for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
    Sleep(1);
  } while (GetTickCount() - start < milliseconds);
}

MessageBoxReader::MessageBoxReader()
    : thread_(CreateThread(nullptr, 0, watch, this, CREATE_SUSPENDED, nullptr)),
      done_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
  ResumeThread(thread_);
}

MessageBoxReader::~MessageBoxReader() {
  SetEvent(done_);
  WaitForSingleObject(thread_, INFINITE);
  CloseHandle(thread_);
  CloseHandle(done_);
}

namespace {

// Systems number the label of a message box differently: it is the one with the longest text.
std::string longestLabel(HWND box) {
  std::string longest;
  const auto look = [](HWND part, LPARAM found) -> BOOL {
    std::array<wchar_t, 400> text{};
    GetWindowTextW(part, text.data(), static_cast<int>(text.size()));
    const std::string shown = windows::utf8(std::wstring_view(text.data()));
    auto& best = *reinterpret_cast<std::string*>(found);
    if (shown.size() > best.size()) best = shown;
    return TRUE;
  };
  EnumChildWindows(box, look, reinterpret_cast<LPARAM>(&longest));
  return longest;
}

}  // namespace

DWORD WINAPI MessageBoxReader::watch(void* object) {
  auto& reader = *static_cast<MessageBoxReader*>(object);
  while (WaitForSingleObject(reader.done_, 20) == WAIT_TIMEOUT) {
    const HWND box = FindWindowW(L"#32770", nullptr);
    // One that is shown has all its parts.
    const bool shown = box && IsWindowVisible(box);
    const std::string text = shown ? longestLabel(box) : std::string();
    if (text.empty()) continue;
    reader.text_ = text;
    PostMessageW(box, WM_COMMAND, IDOK, 0);
  }
  return 0;
}

}  // namespace quillet::fakes
