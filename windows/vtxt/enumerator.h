// Hands out the members of a list that stays as it is, as COM's enumerators do.
#pragma once

#include <ocidl.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "windows/component/module.h"

namespace quillet::windows {

// How one member of the list is handed out.
inline void handOut(const Pointer<IConnectionPoint>& point, IConnectionPoint** to) {
  *to = Pointer(point).detach();
}
struct Connection {
  Pointer<IUnknown> sink;
  DWORD cookie;
};
inline void handOut(const Connection& connection, CONNECTDATA* to) {
  *to = {Pointer(connection.sink).detach(), connection.cookie};
}

// `Interface` enumerates `Item`s, each made of one `Member`.
template <class Interface, class Item, class Member>
class Enumerator final : public Interface {
 public:
  explicit Enumerator(std::vector<Member> members, std::size_t at = 0)
      : members_(std::move(members)), at_(at) {}

  STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
    if (!object) return E_POINTER;
    *object = iid == IID_IUnknown || iid == __uuidof(Interface) ? this : nullptr;
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

  STDMETHODIMP Next(ULONG wanted, Item* items, ULONG* given) noexcept override {
    if (!items || (!given && wanted != 1)) return E_POINTER;
    const auto count = std::min<std::size_t>(wanted, members_.size() - at_);
    for (std::size_t i = 0; i < count; ++i) handOut(members_[at_++], &items[i]);
    if (given) *given = static_cast<ULONG>(count);
    return count == wanted ? S_OK : S_FALSE;
  }
  STDMETHODIMP Skip(ULONG count) noexcept override {
    const std::size_t left = members_.size() - at_;
    at_ += std::min<std::size_t>(count, left);
    return count <= left ? S_OK : S_FALSE;
  }
  STDMETHODIMP Reset() noexcept override {
    at_ = 0;
    return S_OK;
  }
  STDMETHODIMP Clone(Interface** copy) noexcept override {
    if (!copy) return E_POINTER;
    *copy = nullptr;
    try {
      *copy = new Enumerator(members_, at_);
      return S_OK;
    } catch (...) {
      return E_OUTOFMEMORY;
    }
  }

 private:
  ~Enumerator() = default;

  module::Use use_;
  std::vector<Member> members_;
  std::size_t at_;
  ULONG references_ = 1;
};

}  // namespace quillet::windows
