// An object whose members are known by name only. Derived classes say which names they know and
// what a call does; errors become what a caller expects.
#pragma once

#include <ole2.h>

#include <optional>
#include <string>

#include "windows/component/call.h"
#include "windows/component/module.h"

namespace quillet::windows {

class NamedObject : public IDispatch {
 public:
  NamedObject(const NamedObject&) = delete;
  NamedObject& operator=(const NamedObject&) = delete;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
  STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() noexcept override;
  STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
  STDMETHODIMP GetTypeInfo(UINT which, LCID locale, ITypeInfo** info) noexcept override;
  STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                             DISPID* ids) noexcept override;
  STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO* error, UINT* argument) noexcept override;

 protected:
  NamedObject() = default;
  virtual ~NamedObject() = default;

  // Names compare without regard to case; an id stays the same for as long as the object lives.
  virtual std::optional<DISPID> idOf(const std::string& name) = 0;
  virtual Variant invoke(DISPID id, const Call& call) = 0;

 private:
  module::Use use_;
  ULONG references_ = 1;
};

}  // namespace quillet::windows
