// Identity and lifetime of an object that somebody outside holds: it has the interfaces that it is
// derived from, and goes with its last reference.
#pragma once

#include <ole2.h>

#include <type_traits>

namespace quillet::windows {

// The object as the interface that is asked for; null when it is none of these.
template <class... Interfaces, class Object>
void* interfaceOf(Object& object, REFIID iid) noexcept {
  void* found = nullptr;
  const auto offer = [&]<class Interface>(Interface* it) {
    if (iid == __uuidof(Interface)) found = it;
    // A dual interface is called by name as well.
    if constexpr (std::is_base_of_v<IDispatch, Interface>) {
      if (iid == IID_IDispatch) found = it;
    }
  };
  (offer(static_cast<Interfaces*>(&object)), ...);
  return found;
}

template <class First, class... Others>
class Counted : public First, public Others... {
 public:
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
    if (!object) return E_POINTER;
    *object =
        iid == IID_IUnknown ? static_cast<First*>(this) : interfaceOf<First, Others...>(*this, iid);
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() noexcept override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

 protected:
  Counted() = default;  // its maker holds the first reference
  virtual ~Counted() = default;

 private:
  ULONG references_ = 1;
};

}  // namespace quillet::windows
