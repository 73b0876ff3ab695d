// What Windows calls of the library.
#include <olectl.h>

#include "windows/component/class_factory.h"
#include "windows/component/module.h"
#include "windows/component/registration.h"

using namespace quillet::windows;

extern "C" {

BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, void*);
BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, void*) {
  if (reason == DLL_PROCESS_ATTACH) {
    module::attach(library);
    DisableThreadLibraryCalls(library);
  }
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
  return classObject(clsid, iid, object);
}

STDAPI DllCanUnloadNow() { return module::inUse() ? S_FALSE : S_OK; }

STDAPI DllRegisterServer() { return registerClasses(Scope::machine); }

STDAPI DllUnregisterServer() { return unregisterClasses(Scope::machine); }

// "user" registers for the person who works now, without the rights of an administrator.
STDAPI DllInstall(BOOL install, LPCWSTR arguments) {
  const bool forUser = arguments && lstrcmpiW(arguments, L"user") == 0;
  if (arguments && *arguments && !forUser) return E_INVALIDARG;
  const Scope scope = forUser ? Scope::user : Scope::machine;
  return install ? registerClasses(scope) : unregisterClasses(scope);
}

}  // extern "C"
