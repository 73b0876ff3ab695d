// What registering leaves in the registry, and what unregistering leaves.
#include <gtest/gtest.h>
#include <ole2.h>

#include <algorithm>
#include <array>
#include <functional>
#include <iterator>
#include <set>
#include <string>

#include "component/library.h"
#include "windows/com/pointer.h"
#include "windows/com/text.h"

namespace quillet::windows {
namespace {

using Values = std::set<std::string>;

// The keys below, and the values of those that are named like ours.
void read(HKEY hive, const std::wstring& path, int levels, Values& values) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(hive, path.c_str(), 0, KEY_READ, &key)) return;
  const bool ours = path.find(L"{6B0D3A52") != path.npos || path.find(L"Quillet") != path.npos;
  values.insert(utf8(path));
  std::array<wchar_t, 300> name{};
  std::array<wchar_t, 2000> data{};
  for (DWORD at = 0; ours; ++at) {
    DWORD length = name.size();
    DWORD size = sizeof data - sizeof(wchar_t);
    data.fill(0);
    if (RegEnumValueW(key, at, name.data(), &length, nullptr, nullptr,
                      reinterpret_cast<BYTE*>(data.data()), &size) == ERROR_NO_MORE_ITEMS) {
      break;
    }
    values.insert(utf8(path + L"!" + name.data() + L"=" + data.data()));
  }
  for (DWORD at = 0;; ++at) {
    DWORD length = name.size();
    if (RegEnumKeyExW(key, at, name.data(), &length, nullptr, nullptr, nullptr, nullptr)) break;
    const std::wstring below = path + L"\\" + name.data();
    values.insert(utf8(below));
    const bool known = below.find(L"{6B0D3A52") != below.npos || ours;
    if (levels > 0 || known) read(hive, below, levels - 1, values);
  }
  RegCloseKey(key);
}

// A component leaves its traces among the classes, or in the four keys that index them.
Values classes(HKEY hive) {
  const std::wstring root = L"Software\\Classes";
  HKEY key = nullptr;
  RegCreateKeyW(hive, root.c_str(), &key);  // every Windows has it
  RegCloseKey(key);
  Values values;
  read(hive, root, 0, values);
  for (const wchar_t* index : {L"\\CLSID", L"\\Interface", L"\\TypeLib", L"\\AppID"}) {
    read(hive, root + index, 0, values);
  }
  for (const wchar_t* name : {L"\\PrjQuillet.Forms", L"\\Quillet.VTxt"}) {
    read(hive, root + name, 9, values);
  }
  return values;
}

Values without(const Values& all, const Values& some) {
  Values rest;
  std::set_difference(all.begin(), all.end(), some.begin(), some.end(),
                      std::inserter(rest, rest.end()));
  return rest;
}

bool holds(const Values& values, const std::string& part) {
  return std::any_of(values.begin(), values.end(), [&](const std::string& value) {
    return value.find(part) != std::string::npos;
  });
}

struct Case {
  const char* name;
  HKEY written, untouched;
  std::function<HRESULT(const Library&)> in, out;
};

const Case cases[] = {
    {"for everybody", HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER,
     [](const Library& library) { return library.call("DllRegisterServer"); },
     [](const Library& library) { return library.call("DllUnregisterServer"); }},
    {"for one person", HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE,
     [](const Library& library) { return library.install(true, L"user"); },
     [](const Library& library) { return library.install(false, L"USER"); }},
};

TEST(Registration, inAndOutLeavesNothingWhereverItWasMade) {
  const Library library;
  for (const Case& each : cases) {
    SCOPED_TRACE(each.name);
    const Values before = classes(each.written);
    const Values elsewhere = classes(each.untouched);

    ASSERT_EQ(each.in(library), S_OK);
    const Values once = classes(each.written);
    EXPECT_EQ(each.in(library), S_OK) << "a second time, over the first";
    EXPECT_EQ(without(classes(each.written), once), Values());
    EXPECT_EQ(classes(each.untouched), elsewhere);

    const Values added = without(once, before);
    EXPECT_TRUE(holds(added, "!ThreadingModel=Apartment"));
    EXPECT_TRUE(holds(added, "PrjQuillet.Forms\\CLSID!={"));
    EXPECT_TRUE(holds(added, "Quillet.VTxt\\CLSID!={"));
    EXPECT_TRUE(holds(added, "\\2.1a\\0\\win" + std::to_string(sizeof(void*) * 8) + "!="));
    EXPECT_TRUE(holds(added, utf8(L"\\InprocServer32!=" + componentPath())));

    EXPECT_EQ(each.out(library), S_OK);
    EXPECT_EQ(without(classes(each.written), before), Values());
    EXPECT_EQ(without(before, classes(each.written)), Values());
    EXPECT_EQ(each.out(library), S_OK) << "what is not there counts as removed";
  }
}

TEST(Registration, knowsNoOtherWayToBeInstalled) {
  const Library library;
  const Values before = classes(HKEY_LOCAL_MACHINE);
  EXPECT_EQ(library.install(true, L"somewhere"), E_INVALIDARG);
  EXPECT_EQ(classes(HKEY_LOCAL_MACHINE), before);
}

// The two architectures share the key of a type library.
TEST(Registration, leavesTheLibraryOfTheOtherWidth) {
  const Library library;
  const std::wstring key = L"Software\\Classes\\TypeLib\\{6B0D3A52-54A6-4A5E-9D1E-3F6F2B1C7A00}";
  const std::wstring other = key + (sizeof(void*) == 8 ? L"\\2.1a\\0\\win32" : L"\\2.1a\\0\\win64");
  ASSERT_EQ(library.call("DllRegisterServer"), S_OK);
  RegSetKeyValueW(HKEY_LOCAL_MACHINE, other.c_str(), nullptr, REG_SZ, L"C:\\x.dll", 18);
  EXPECT_EQ(library.call("DllUnregisterServer"), S_OK);
  Values left;
  read(HKEY_LOCAL_MACHINE, key, 9, left);
  EXPECT_TRUE(holds(left, "!=C:\\x.dll"));
  EXPECT_FALSE(holds(left, utf8(componentPath())));
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, key.c_str());
}

}  // namespace
}  // namespace quillet::windows
