// How long the component lives, and what it leaves behind.
#include <gtest/gtest.h>
#include <ole2.h>
#include <psapi.h>

#include <array>
#include <cstdlib>
#include <string>

#include "component/host.h"
#include "component/library.h"
#include "data/errors.h"
#include "windows/com/text.h"

namespace quillet::fakes {
namespace {

using windows::Late;

struct Left {
  int windows = 0;
  int classes = 0;
  WORD drawing = 0;  // the place of the next object of drawing among the process's
  SIZE_T memory = 0;
};

int windowsOfThread() {
  int count = 0;
  const auto counted = [](HWND, LPARAM number) -> BOOL {
    ++*reinterpret_cast<int*>(number);
    return TRUE;
  };
  EnumThreadWindows(GetCurrentThreadId(), counted, reinterpret_cast<LPARAM>(&count));
  return count;
}

Left whatIsThere() {
  Left left;
  left.windows = windowsOfThread();
  for (const wchar_t* name : {L"QuilletForm", L"QuilletDropDown", L"QuilletOwned"}) {
    WNDCLASSW known;
    left.classes += GetClassInfoW(GetModuleHandleW(L"PrjQuillet.dll"), name, &known) ? 1 : 0;
  }
  const HPEN pen = CreatePen(PS_SOLID, 1, 0);
  left.drawing = LOWORD(HandleToULong(pen));
  DeleteObject(pen);
  PROCESS_MEMORY_COUNTERS_EX counters{};
  GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters),
                       sizeof counters);
  left.memory = counters.PagefileUsage;
  return left;
}

int rounds() {
  const char* wanted = std::getenv("QUILLET_ROUNDS");
  return wanted ? std::atoi(wanted) : 50;
}

void openAndClose() {
  const Late forms = newForms();
  forms.put("VClCode", "S001");
  forms.put("VFATbl", "TAB_1");
  forms.put("VFDate", "01042008");
  forms.put("VSDate", "31032009");
  for (const char* getter : {"ObjThird", "ObjCreate"}) {
    const Late form = forms.object(getter);
    form.call("Show");
    pump(0);
    form.call("Hide");
    pump(0);
  }
}

TEST(Life, leavesNothingHoweverOftenFormsAreShownAndClosed) {
  onHostThread([] {
    const Host host;
    for (int warm = 0; warm < 5; ++warm) openAndClose();
    const Left before = whatIsThere();
    for (int round = 0; round < rounds(); ++round) openAndClose();
    const Left after = whatIsThere();
    EXPECT_EQ(after.windows, before.windows);
    EXPECT_EQ(after.classes, before.classes);
    EXPECT_EQ(after.drawing, before.drawing);
    EXPECT_LT(after.memory, before.memory + 1'000'000);
  });
}

TEST(Life, endsWithTheHostsThreadAndStartsAnewOnAnother) {
  const windows::Library library;
  for (int time = 0; time < 2; ++time) {
    onHostThread([&] {
      const Host host;
      EXPECT_EQ(library.call("DllCanUnloadNow"), S_OK);
      const Late home = newForms().object("ObjThird");
      home.call("Show");
      EXPECT_EQ(library.call("DllCanUnloadNow"), S_FALSE);
      home.call("Hide");
    });
    EXPECT_EQ(library.call("DllCanUnloadNow"), S_OK);
  }
  for (int time = 0; time < 2; ++time) {
    onHostThread([] {
      const Host host;
      newForms().object("ObjThird").call("Show");  // and leaves it open
    });
    EXPECT_EQ(FindWindowW(L"QuilletForm", nullptr), nullptr);
  }
}

TEST(Life, objectsThatAHostKeptAnswerWithAnError) {
  onHostThread([] {
    Host host;
    const Late home = newForms().object("ObjThird");
    const Late box = home.object("txtsearch");
    home.call("Show");
    home.call("Hide");
    OleUninitialize();  // the last one of the thread: the component ends
    for (const Late& kept : {home, box}) {
      EXPECT_THROW(kept.call("Name"), RunTimeError);
      EXPECT_THROW(kept.put("Caption", "x"), RunTimeError);
    }
    OleInitialize(nullptr);
    EXPECT_EQ(windows::asText(newForms().object("ObjThird").call("Name")), "third");
    EXPECT_THROW(home.call("Name"), RunTimeError);
  });
}

// --- hosts that end in the middle: each is a process of its own

void showHome() {
  static const Host* host = new Host;
  (void)host;
  newForms().object("ObjThird").call("Show");
  pump(50);
}

TEST(Host, DISABLED_leavesWithoutEndingCom) {
  showHome();
  std::exit(0);
}

TEST(Host, DISABLED_endsItsProcessAtOnce) {
  showHome();
  ExitProcess(0);
}

TEST(Host, DISABLED_endsComAndLeaves) {
  showHome();
  OleUninitialize();
  std::exit(0);
}

TEST(Host, DISABLED_quitsWhileAFormIsModal) {
  showHome();
  SetTimer(nullptr, 0, 100, [](HWND, UINT, UINT_PTR, DWORD) { PostQuitMessage(0); });
  newForms().object("ObjThird").call("Show", 1);
  MSG message;
  const bool told = PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) != FALSE;
  std::exit(told ? 0 : 1);
}

TEST(Host, DISABLED_destroysTheWindow) {
  showHome();
  DestroyWindow(FindWindowW(L"QuilletForm", nullptr));
  pump(50);
  showHome();
  OleUninitialize();
  std::exit(0);
}

TEST(Life, aHostMayEndWhileAFormIsOpen) {
  for (const char* way : {"leavesWithoutEndingCom", "endsItsProcessAtOnce", "endsComAndLeaves",
                          "quitsWhileAFormIsModal", "destroysTheWindow"}) {
    std::array<wchar_t, MAX_PATH> program{};
    GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
    std::wstring command = std::wstring(L"\"") + program.data() +
                           L"\" --gtest_also_run_disabled_tests --gtest_filter=Host.DISABLED_" +
                           windows::wide(way);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    ASSERT_TRUE(CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                               &start, &process));
    EXPECT_EQ(WaitForSingleObject(process.hProcess, 20'000), WAIT_OBJECT_0) << way;
    DWORD status = 1;
    GetExitCodeProcess(process.hProcess, &status);
    EXPECT_EQ(status, 0u) << way;
    TerminateProcess(process.hProcess, 1);
    CloseHandle(process.hProcess);
    CloseHandle(process.hThread);
  }
}

}  // namespace
}  // namespace quillet::fakes
