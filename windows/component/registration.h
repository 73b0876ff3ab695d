// Writes into the registry by what names a host finds the classes of the library, and takes it out
// again.
#pragma once

#include <oleauto.h>
#include <windows.h>

#include <string>
#include <vector>

namespace quillet::windows {

// For whom the classes are registered: everybody, which takes an administrator, or the person who
// works now.
enum class Scope { machine, user };

// One value of the registry, below the scope's classes.
struct RegistryValue {
  std::wstring key;
  std::wstring name;  // empty for the key's own value
  std::wstring data;
};

struct LibraryEntry {
  GUID id;
  unsigned major;
  unsigned minor;
  int resource;  // its number among the resources of the file
  std::wstring description;
  // Interfaces that are called from other apartments by what the type library says of them.
  struct Interface {
    IID id;
    std::wstring name;
  };
  std::vector<Interface> interfaces;
};

struct ClassEntry {
  CLSID clsid;
  std::wstring progId;  // without a version
  std::wstring description;
  GUID library;
  std::wstring version;             // of the library
  std::vector<RegistryValue> more;  // below the class's own key
};

HRESULT registerClasses(Scope scope) noexcept;
// What is not there counts as removed.
HRESULT unregisterClasses(Scope scope) noexcept;

// "{6B0D3A52-...}"
std::wstring textOf(const GUID& id);

}  // namespace quillet::windows
