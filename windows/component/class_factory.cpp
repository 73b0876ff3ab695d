#include "windows/component/class_factory.h"

#include "windows/com/counted.h"
#include "windows/component/classes.h"
#include "windows/component/module.h"

namespace quillet::windows {
namespace {

class ClassFactory final : public Counted<IClassFactory> {
 public:
  explicit ClassFactory(MakeObject make) : make_(make) {}

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) noexcept override {
    if (!object) return E_POINTER;
    *object = nullptr;
    return make_(outer, iid, object);
  }
  STDMETHODIMP LockServer(BOOL locked) noexcept override {
    module::lock(locked != FALSE);
    return S_OK;
  }

 private:
  module::Use use_;
  MakeObject make_;
};

}  // namespace

HRESULT classObject(REFCLSID clsid, REFIID iid, void** object) noexcept {
  if (!object) return E_POINTER;
  *object = nullptr;
  try {
    for (const CreatableClass& known : creatableClasses()) {
      if (known.entry.clsid != clsid) continue;
      auto* factory = new ClassFactory(known.make);
      const HRESULT result = factory->QueryInterface(iid, object);
      factory->Release();
      return result;
    }
  } catch (...) {
    return E_OUTOFMEMORY;
  }
  return CLASS_E_CLASSNOTAVAILABLE;
}

}  // namespace quillet::windows
