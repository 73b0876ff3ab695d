// An object whose members are known by name alone, as a script's and the suite's are.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "windows/com/counted.h"
#include "windows/com/variant.h"

namespace quillet::fakes {

using windows::Pointer;
using windows::Variant;

// A call as the object gets it. A value that is set is the last argument.
struct Call {
  std::string member;
  WORD kind;  // DISPATCH_METHOD, DISPATCH_PROPERTYGET, DISPATCH_PROPERTYPUT...
  std::vector<VARIANT*> arguments;  // in the caller's order, references as such

  bool sets() const { return (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0; }
  // Throws 450 when there is no such argument.
  VARIANT& operator[](std::size_t i) const;
  std::string text(std::size_t i) const { return windows::asText((*this)[i]); }
  long integer(std::size_t i) const { return windows::asLong((*this)[i]); }
};

class NamedObject : public windows::Counted<IDispatch> {
 public:
  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override;
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO* exception, UINT*) override;

 protected:
  // The member's own spelling of a name in any; "" when there is no such member.
  virtual std::string spelling(const std::string& name) const = 0;
  virtual Variant called(const Call& call) = 0;

 private:
  std::vector<std::string> asked_;  // an id is a position here, from 1
};

// Its members are functions put into it.
class MemberTable : public NamedObject {
 public:
  using Member = std::function<Variant(const Call&)>;
  // Also in place of one that is there.
  void add(const std::string& name, Member member) { members_[name] = std::move(member); }
  // A value that is read and set.
  void addValue(const std::string& name, const Variant& value);

 protected:
  std::string spelling(const std::string& name) const override;
  Variant called(const Call& call) override;

 private:
  std::map<std::string, Member> members_;
};

template <class Object, class... Arguments>
Pointer<IDispatch> made(Arguments&&... arguments) {
  return Pointer<IDispatch>::attach(new Object(std::forward<Arguments>(arguments)...));
}

}  // namespace quillet::fakes
