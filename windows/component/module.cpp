#include "windows/component/module.h"

#include <atomic>

#include "windows/component/component.h"

namespace quillet::windows::module {
namespace {

HINSTANCE library;
std::atomic<long> objects{0};

}  // namespace

void attach(HINSTANCE loaded) { library = loaded; }

HINSTANCE handle() { return library; }

std::wstring path() {
  std::wstring text(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(library, text.data(), static_cast<DWORD>(text.size()));
    if (length < text.size()) {
      text.resize(length);
      return text;
    }
    text.resize(text.size() * 2);
  }
}

void Use::add(long count) { objects += count; }

void lock(bool locked) { objects += locked ? 1 : -1; }

bool inUse() { return objects > 0 || Component::exists(); }

long uses() { return objects; }

void stayLoaded() {
  HMODULE pinned = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                     reinterpret_cast<LPCWSTR>(
                         reinterpret_cast<void*>(&stayLoaded)),  // any address of the library
                     &pinned);
}

}  // namespace quillet::windows::module
