// The library or program that this code is part of.
#pragma once

#include <windows.h>

namespace quillet::windows {

HINSTANCE thisModule();

// A function that not every Windows has, null where it is missing.
template <class Function>
Function systemFunction(const wchar_t* library, const char* name) {
  const HMODULE module = GetModuleHandleW(library);
  if (!module) return nullptr;
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace quillet::windows
