// An object whose members are known by name only. Derived classes say which names they know and
// what a call does; errors become what a caller expects.
#pragma once

#include <ole2.h>

#include <optional>
#include <string>

#include "windows/com/counted.h"
#include "windows/component/call.h"
#include "windows/component/module.h"

namespace quillet::windows {

class NamedObject : public Counted<IDispatch> {
 public:
  STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
  STDMETHODIMP GetTypeInfo(UINT which, LCID locale, ITypeInfo** info) noexcept override;
  STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                             DISPID* ids) noexcept override;
  STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO* error, UINT* argument) noexcept override;

 protected:
  // Names compare without regard to case; an id stays the same for as long as the object lives.
  virtual std::optional<DISPID> idOf(const std::string& name) = 0;
  virtual Variant invoke(DISPID id, const Call& call) = 0;

 private:
  module::Use use_;
};

}  // namespace quillet::windows
