#include "windows/vtxt/quick_activation.h"

#include "windows/vtxt/registration_data.h"
#include "windows/vtxt/vtxt_control.h"

namespace quillet::windows {

STDMETHODIMP QuickActivation::QuickActivate(QACONTAINER* container, QACONTROL* answer) noexcept {
  if (!container || !answer) return E_POINTER;
  const ULONG size = answer->cbSize;
  *answer = {};
  answer->cbSize = size;
  answer->dwMiscStatus = miscStatus;
  answer->dwViewStatus = VIEWSTATUS_OPAQUE;

  if (container->pClientSite) control_.oleObject.SetClientSite(container->pClientSite);
  if (container->pAdviseSink) {
    control_.viewObject.SetAdvise(DVASPECT_CONTENT, 0, container->pAdviseSink);
  }
  ConnectionPoints& points = control_.connections;
  if (container->pPropertyNotifySink) {
    points.properties.Advise(container->pPropertyNotifySink, &answer->dwPropNotifyCookie);
  }
  if (container->pUnkEventSink) {
    points.events.Advise(container->pUnkEventSink, &answer->dwEventCookie);
  }
  return S_OK;
}

STDMETHODIMP QuickActivation::SetContentExtent(LPSIZEL size) noexcept {
  return control_.oleObject.SetExtent(DVASPECT_CONTENT, size);
}

STDMETHODIMP QuickActivation::GetContentExtent(LPSIZEL size) noexcept {
  return control_.oleObject.GetExtent(DVASPECT_CONTENT, size);
}

}  // namespace quillet::windows
