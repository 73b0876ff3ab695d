#include "fakes/library.h"

#include <ole2.h>
#include <olectl.h>

#include <array>
#include <string>

#include "windows/com/counted.h"
#include "windows/com/errors.h"

namespace quillet::fakes {
namespace {

using windows::Pointer;

class Factory final : public windows::Counted<IClassFactory> {
 public:
  explicit Factory(const Class& made) : made_(made) {}

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID interfaceId, void** object) override {
    *object = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    return windows::guarded(interfaceId, [&]() -> HRESULT {
      const Pointer<IDispatch> created = made_.make();
      return created ? created->QueryInterface(interfaceId, object) : E_FAIL;
    });
  }
  STDMETHODIMP LockServer(BOOL) override { return S_OK; }

 private:
  const Class& made_;
};

std::wstring textOf(REFGUID id) {
  std::array<wchar_t, 40> text{};
  StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
  return text.data();
}

bool setValue(const std::wstring& key, const wchar_t* name, const std::wstring& value) {
  return RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), name, REG_SZ, value.c_str(),
                         static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS;
}

std::wstring ownPath() {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCWSTR>(&ownPath), &module);
  std::wstring path(MAX_PATH, L'\0');
  path.resize(GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size())));
  return path;
}

bool registered(const Class& made) {
  const std::wstring id = textOf(made.id);
  const std::wstring server = L"CLSID\\" + id + L"\\InprocServer32";
  return setValue(std::wstring(made.progId) + L"\\CLSID", nullptr, id) &&
         setValue(server, nullptr, ownPath()) && setValue(server, L"ThreadingModel", L"Apartment");
}

}  // namespace
}  // namespace quillet::fakes

using namespace quillet::fakes;

STDAPI DllGetClassObject(REFCLSID id, REFIID interfaceId, void** object) {
  *object = nullptr;
  for (const Class& each : classes()) {
    if (each.id != id) continue;
    const auto factory = Pointer<IClassFactory>::attach(new Factory(each));
    return factory->QueryInterface(interfaceId, object);
  }
  return CLASS_E_CLASSNOTAVAILABLE;
}

// What a test holds at its end does not matter; its prefix goes with it.
STDAPI DllCanUnloadNow() { return S_FALSE; }

STDAPI DllRegisterServer() {
  for (const Class& each : classes()) {
    if (!registered(each)) return SELFREG_E_CLASS;
  }
  return S_OK;
}

STDAPI DllUnregisterServer() { return S_OK; }
