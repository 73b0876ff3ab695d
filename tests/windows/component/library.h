// The component as a host's installation finds it: the library beside the other build results.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>

namespace quillet::windows {

// In the build folder, seen from the test program.
inline std::wstring componentPath() {
  std::wstring program(MAX_PATH, L'\0');
  program.resize(GetModuleFileNameW(nullptr, program.data(), MAX_PATH));
  const std::filesystem::path folder = std::filesystem::path(program).parent_path();
  return (folder / L"..\\..\\windows\\PrjQuillet.dll").lexically_normal().wstring();
}

// Loads the library for as long as it lives.
class Library {
 public:
  Library() : handle_(LoadLibraryW(componentPath().c_str())) {}
  ~Library() { FreeLibrary(handle_); }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  template <class Function>
  Function entry(const char* name) const {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(handle_, name)));
  }
  HRESULT call(const char* name) const { return entry<HRESULT(WINAPI*)()>(name)(); }
  HRESULT install(bool in, const wchar_t* arguments) const {
    return entry<HRESULT(WINAPI*)(BOOL, LPCWSTR)>("DllInstall")(in ? TRUE : FALSE, arguments);
  }

 private:
  HMODULE handle_;
};

}  // namespace quillet::windows
