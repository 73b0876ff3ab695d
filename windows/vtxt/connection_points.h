// Where a container connects its sinks: one point for the control's events, one for changes of its
// properties.
#pragma once

#include <ocidl.h>

#include <map>
#include <vector>

#include "windows/com/pointer.h"
#include "windows/vtxt/control_part.h"

namespace quillet::windows {

class ConnectionPoint final : public IConnectionPoint {
 public:
  ConnectionPoint(VTxtControl& control, REFIID iid) : control_(control), iid_(iid) {}
  ConnectionPoint(const ConnectionPoint&) = delete;
  ConnectionPoint& operator=(const ConnectionPoint&) = delete;

  REFIID iid() const { return iid_; }
  // Those connected now; each may disconnect while it is told something.
  std::vector<Pointer<IUnknown>> sinks() const;
  void disconnectAll() { sinks_.clear(); }

  // An object of its own that lives with the control.
  STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
  STDMETHODIMP_(ULONG) AddRef() noexcept override;
  STDMETHODIMP_(ULONG) Release() noexcept override;

  STDMETHODIMP GetConnectionInterface(IID* iid) noexcept override;
  STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) noexcept override;
  STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) noexcept override;
  STDMETHODIMP Unadvise(DWORD cookie) noexcept override;
  STDMETHODIMP EnumConnections(IEnumConnections** connections) noexcept override;

 private:
  VTxtControl& control_;
  const IID iid_;
  std::map<DWORD, Pointer<IUnknown>> sinks_;
  DWORD last_ = 0;
};

class ConnectionPoints final : public ControlPart<IConnectionPointContainer> {
 public:
  explicit ConnectionPoints(VTxtControl& control);

  ConnectionPoint events;
  ConnectionPoint properties;

  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) noexcept override;
  STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept override;
};

}  // namespace quillet::windows
