#include "windows/vtxt/connection_points.h"

#include <quillet_vtxt_com.h>

#include "windows/com/errors.h"
#include "windows/component/enumerator.h"
#include "windows/vtxt/vtxt_control.h"

namespace quillet::windows {
namespace {

using Point = Pointer<IConnectionPoint>;
struct Connection {
  Pointer<IUnknown> sink;
  DWORD cookie;
};

void handOutPoint(const Point& point, IConnectionPoint** to) { *to = Point(point).detach(); }

void handOutConnection(const Connection& connection, CONNECTDATA* to) {
  *to = {Pointer(connection.sink).detach(), connection.cookie};
}

using Points = Enumerator<IEnumConnectionPoints, IConnectionPoint*, Point, handOutPoint>;
using Connections = Enumerator<IEnumConnections, CONNECTDATA, Connection, handOutConnection>;

}  // namespace

// --- one point ----------------------------------------------------------------------------------

std::vector<Pointer<IUnknown>> ConnectionPoint::sinks() const {
  std::vector<Pointer<IUnknown>> connected;
  connected.reserve(sinks_.size());
  for (const auto& [cookie, sink] : sinks_) connected.push_back(sink);
  return connected;
}

STDMETHODIMP ConnectionPoint::QueryInterface(REFIID iid, void** object) noexcept {
  if (!object) return E_POINTER;
  *object = iid == IID_IUnknown || iid == IID_IConnectionPoint ? this : nullptr;
  if (!*object) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

STDMETHODIMP_(ULONG) ConnectionPoint::AddRef() noexcept { return identityOf(control_).AddRef(); }

STDMETHODIMP_(ULONG) ConnectionPoint::Release() noexcept { return identityOf(control_).Release(); }

STDMETHODIMP ConnectionPoint::GetConnectionInterface(IID* iid) noexcept {
  if (!iid) return E_POINTER;
  *iid = iid_;
  return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionPointContainer(
    IConnectionPointContainer** container) noexcept {
  if (!container) return E_POINTER;
  return identityOf(control_).QueryInterface(IID_IConnectionPointContainer,
                                             reinterpret_cast<void**>(container));
}

STDMETHODIMP ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) noexcept {
  if (!sink || !cookie) return E_POINTER;
  *cookie = 0;
  Pointer<IUnknown> connected;
  // A sink of events may know no more than how to be called by number.
  if (FAILED(sink->QueryInterface(iid_, connected.putVoid())) &&
      (iid_ != DIID___VTxt || FAILED(sink->QueryInterface(IID_IDispatch, connected.putVoid())))) {
    return CONNECT_E_CANNOTCONNECT;
  }
  return guarded(iid_, [&] {
    sinks_.emplace(++last_, std::move(connected));
    *cookie = last_;
  });
}

STDMETHODIMP ConnectionPoint::Unadvise(DWORD cookie) noexcept {
  const auto found = sinks_.find(cookie);
  if (found == sinks_.end()) return CONNECT_E_NOCONNECTION;
  const auto leaving = sinks_.extract(found);  // released when the map is whole again
  return S_OK;
}

STDMETHODIMP ConnectionPoint::EnumConnections(IEnumConnections** connections) noexcept {
  if (!connections) return E_POINTER;
  *connections = nullptr;
  return guarded(iid_, [&] {
    std::vector<Connection> list;
    for (const auto& [cookie, sink] : sinks_) list.push_back({sink, cookie});
    *connections = new Connections(std::move(list));
  });
}

// --- both ---------------------------------------------------------------------------------------

ConnectionPoints::ConnectionPoints(VTxtControl& control)
    : ControlPart(control),
      events(control, DIID___VTxt),
      properties(control, IID_IPropertyNotifySink) {}

STDMETHODIMP ConnectionPoints::EnumConnectionPoints(IEnumConnectionPoints** points) noexcept {
  if (!points) return E_POINTER;
  *points = nullptr;
  return guarded(IID_IConnectionPointContainer, [&] {
    *points = new Points(std::vector<Point>{&events, &properties});
  });
}

STDMETHODIMP ConnectionPoints::FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept {
  if (!point) return E_POINTER;
  *point = nullptr;
  for (ConnectionPoint* known : {&events, &properties}) {
    if (known->iid() != iid) continue;
    known->AddRef();
    *point = known;
    return S_OK;
  }
  return CONNECT_E_NOCONNECTION;
}

}  // namespace quillet::windows
