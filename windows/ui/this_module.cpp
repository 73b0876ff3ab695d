#include "windows/ui/this_module.h"

namespace quillet::windows {

HINSTANCE thisModule() {
  static const HINSTANCE module = [] {
    HMODULE found = nullptr;
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<LPCWSTR>(&thisModule), &found);
    return found;
  }();
  return module;
}

}  // namespace quillet::windows
