#include "windows/component/type_info.h"

#include <map>
#include <string>

#include "windows/com/pointer.h"
#include "windows/component/module.h"

namespace quillet::windows {
namespace {

struct Less {
  bool operator()(const GUID& a, const GUID& b) const { return memcmp(&a, &b, sizeof(GUID)) < 0; }
};

// Each thread has its own: type information belongs to the thread that read it. It stays until the
// process ends, as the library does.
std::map<GUID, ITypeInfo*, Less>& known() {
  thread_local auto* read = new std::map<GUID, ITypeInfo*, Less>;
  return *read;
}

HRESULT read(int resource, const GUID& id, ITypeInfo** info) {
  const std::wstring file = module::path() + L"\\" + std::to_wstring(resource);
  Pointer<ITypeLib> library;
  // Not registered: the library's file describes itself, whatever else is installed.
  const HRESULT loaded = LoadTypeLibEx(file.c_str(), REGKIND_NONE, library.put());
  return FAILED(loaded) ? loaded : library->GetTypeInfoOfGuid(id, info);
}

}  // namespace

HRESULT typeInfo(int resource, const GUID& id, ITypeInfo** info) noexcept {
  try {
    ITypeInfo*& kept = known()[id];
    if (!kept) {
      const HRESULT result = read(resource, id, &kept);
      if (FAILED(result)) return result;
    }
    *info = kept;
    kept->AddRef();
    return S_OK;
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace quillet::windows
