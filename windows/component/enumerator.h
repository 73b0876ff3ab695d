// Hands out the members of a list as it was when somebody asked for it.
#pragma once

#include <algorithm>
#include <utility>
#include <vector>

#include "windows/com/counted.h"
#include "windows/component/module.h"

namespace quillet::windows {

// `Interface` enumerates `Item`s, each of which is made of one `Member`.
template <class Interface, class Item, class Member, void (*handOut)(const Member&, Item*)>
class Enumerator final : public Counted<Interface> {
 public:
  explicit Enumerator(std::vector<Member> members, std::size_t at = 0)
      : members_(std::move(members)), at_(at) {}

  STDMETHODIMP Next(ULONG wanted, Item* items, ULONG* given) noexcept override {
    if (!items) return E_POINTER;
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
  ~Enumerator() override = default;

  module::Use use_;
  std::vector<Member> members_;
  std::size_t at_;
};

}  // namespace quillet::windows
