#include "windows/component/registration.h"

#include <olectl.h>

#include <algorithm>
#include <array>

#include "windows/component/classes.h"
#include "windows/component/module.h"

namespace quillet::windows {
namespace {

// Calls an interface of another apartment by its type library.
constexpr auto automationMarshaler = L"{00020424-0000-0000-C000-000000000046}";
constexpr auto width = sizeof(void*) == 8 ? L"win64" : L"win32";

struct Root {
  HKEY hive;
  std::wstring path;
};

Root rootOf(Scope scope) {
  return {scope == Scope::user ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE, L"Software\\Classes\\"};
}

std::wstring hex(unsigned number) {
  std::array<wchar_t, 16> digits{};
  wsprintfW(digits.data(), L"%x", number);
  return digits.data();
}

std::wstring versionOf(const LibraryEntry& library) {
  return hex(library.major) + L"." + hex(library.minor);
}

std::wstring libraryKey(const LibraryEntry& library) { return L"TypeLib\\" + textOf(library.id); }

std::wstring classKey(const ClassEntry& entry) { return L"CLSID\\" + textOf(entry.clsid); }

void add(std::vector<RegistryValue>& values, const LibraryEntry& library) {
  const std::wstring key = libraryKey(library) + L"\\" + versionOf(library);
  std::wstring file = module::path();
  if (library.resource > 1) file += L"\\" + std::to_wstring(library.resource);
  values.push_back({key, {}, library.description});
  values.push_back({key + L"\\0\\" + width, {}, file});
  values.push_back({key + L"\\FLAGS", {}, L"0"});
  for (const auto& described : library.interfaces) {
    const std::wstring at = L"Interface\\" + textOf(described.id);
    values.push_back({at, {}, described.name});
    values.push_back({at + L"\\ProxyStubClsid32", {}, automationMarshaler});
    values.push_back({at + L"\\TypeLib", {}, textOf(library.id)});
    values.push_back({at + L"\\TypeLib", L"Version", versionOf(library)});
  }
}

void add(std::vector<RegistryValue>& values, const ClassEntry& entry) {
  const std::wstring key = classKey(entry);
  values.push_back({entry.progId, {}, entry.description});
  values.push_back({entry.progId + L"\\CLSID", {}, textOf(entry.clsid)});
  values.push_back({key, {}, entry.description});
  values.push_back({key + L"\\InprocServer32", {}, module::path()});
  values.push_back({key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"});
  values.push_back({key + L"\\ProgID", {}, entry.progId});
  values.push_back({key + L"\\TypeLib", {}, textOf(entry.library)});
  values.push_back({key + L"\\Version", {}, entry.version});
  for (const RegistryValue& more : entry.more) {
    values.push_back({key + L"\\" + more.key, more.name, more.data});
  }
}

bool write(const Root& root, const RegistryValue& value) {
  const auto size = static_cast<DWORD>((value.data.size() + 1) * sizeof(wchar_t));
  return RegSetKeyValueW(root.hive, (root.path + value.key).c_str(),
                         value.name.empty() ? nullptr : value.name.c_str(), REG_SZ,
                         value.data.c_str(), size) == ERROR_SUCCESS;
}

bool removeTree(const Root& root, const std::wstring& key) {
  const LSTATUS status = RegDeleteTreeW(root.hive, (root.path + key).c_str());
  return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND;
}

bool hasKeys(const Root& root, const std::wstring& key) {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(root.hive, (root.path + key).c_str(), 0, KEY_READ, &opened)) return false;
  DWORD count = 0;
  RegQueryInfoKeyW(opened, nullptr, nullptr, nullptr, &count, nullptr, nullptr, nullptr, nullptr,
                   nullptr, nullptr, nullptr);
  RegCloseKey(opened);
  return count > 0;
}

// The component of the other width may still be registered in the same library.
bool remove(const Root& root, const LibraryEntry& library) {
  const std::wstring version = libraryKey(library) + L"\\" + versionOf(library);
  bool removed = removeTree(root, version + L"\\0\\" + width);
  if (!hasKeys(root, version + L"\\0")) {
    removed = removeTree(root, version) && removed;
    for (const auto& described : library.interfaces) {
      removed = removeTree(root, L"Interface\\" + textOf(described.id)) && removed;
    }
  }
  if (!hasKeys(root, libraryKey(library)))
    removed = removeTree(root, libraryKey(library)) && removed;
  return removed;
}

bool registerAll(const Root& root) {
  std::vector<RegistryValue> values;
  for (const LibraryEntry& library : typeLibraries()) add(values, library);
  for (const CreatableClass& known : creatableClasses()) add(values, known.entry);
  return std::all_of(values.begin(), values.end(),
                     [&](const RegistryValue& value) { return write(root, value); });
}

bool unregisterAll(const Root& root) {
  bool removed = true;
  for (const CreatableClass& known : creatableClasses()) {
    removed = removeTree(root, classKey(known.entry)) && removed;
    removed = removeTree(root, known.entry.progId) && removed;
  }
  for (const LibraryEntry& library : typeLibraries()) removed = remove(root, library) && removed;
  // A person who had no classes of their own has none again.
  for (const wchar_t* index : {L"CLSID", L"Interface", L"TypeLib"}) {
    if (!hasKeys(root, index)) RegDeleteKeyW(root.hive, (root.path + index).c_str());
  }
  return removed;
}

}  // namespace

std::wstring textOf(const GUID& id) {
  std::array<wchar_t, 40> text{};
  StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
  return text.data();
}

HRESULT registerClasses(Scope scope) noexcept {
  try {
    if (registerAll(rootOf(scope))) return S_OK;
    unregisterAll(rootOf(scope));  // nothing half registered
    return SELFREG_E_CLASS;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

HRESULT unregisterClasses(Scope scope) noexcept {
  try {
    return unregisterAll(rootOf(scope)) ? S_OK : SELFREG_E_CLASS;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

}  // namespace quillet::windows
