#include "windows/vtxt/vtxt_control.h"

#include <memory>

#include "windows/com/errors.h"
#include "windows/component/component.h"
#include "windows/ui/message_scope.h"

namespace quillet::windows {
namespace {

// Whoever still asks it on the way out does not destroy it again.
constexpr ULONG leaving = 1U << 30;

}  // namespace

IUnknown& identityOf(VTxtControl& control) { return control.identity(); }

HRESULT VTxtControl::make(IUnknown* outer, REFIID iid, void** object) noexcept {
  if (!object) return E_POINTER;
  *object = nullptr;
  // An object that aggregates asks for what it will hold, and for nothing else.
  if (outer && iid != IID_IUnknown) return CLASS_E_NOAGGREGATION;
  return guarded(iid, [&] {
    const auto control = Pointer<VTxtControl>::attach(new VTxtControl(outer));
    return control->QueryInterface(iid, object);
  });
}

VTxtControl::VTxtControl(IUnknown* outer)
    : appearance(site, [this] { changed(DISPID_FONT); }), identity_(outer ? *outer : *this) {
  openForms.onError = [](const std::string& location, const std::exception& error) {
    if (!Component::exists() || !Component::onItsThread()) return;
    const auto& log = Component::instance().forms().context().openForms.onError;
    if (log) log(location, error);
  };
  VTxt& it = box();
  it.MsgBox = [this](const std::string& text) { window.tell(text); };
  it.GotFocus = [this] { events.GotFocus(); };
  it.LostFocus = [this] { events.LostFocus(); };
  it.KeyPress = [this](Key& key) { events.KeyPress(key); };
  it.Change = [this] {
    events.Change();
    changed(DISPID_VALUE);
  };
  form.show();
}

VTxtControl::~VTxtControl() { form.close(); }

STDMETHODIMP VTxtControl::QueryInterface(REFIID iid, void** object) noexcept {
  if (!object) return E_POINTER;
  if (iid == IID_IUnknown) {
    *object = static_cast<IUnknown*>(this);
    AddRef();
    return S_OK;
  }
  *object = find(iid);
  if (!*object) return E_NOINTERFACE;
  identity_.AddRef();
  return S_OK;
}

STDMETHODIMP_(ULONG) VTxtControl::AddRef() noexcept { return ++references_; }

STDMETHODIMP_(ULONG) VTxtControl::Release() noexcept {
  const ULONG left = --references_;
  if (left > 0) return left;
  references_ = leaving;
  inPlace.deactivate();
  // A message of its own may be at work in it.
  MessageScope::discard(std::shared_ptr<VTxtControl>(this, [](VTxtControl* it) { delete it; }));
  return 0;
}

void* VTxtControl::find(REFIID iid) noexcept {
  // What several interfaces build on.
  if (iid == IID_IDispatch) return properties.find(IID__VTxt);
  if (iid == IID_IOleWindow) return inPlace.find(IID_IOleInPlaceObject);
  if (iid == IID_IPersist) return persistence.find(IID_IPersistStreamInit);
  if (iid == IID_IViewObject) return viewObject.find(IID_IViewObject2);
  if (iid == IID_IProvideClassInfo) return classInfo.find(IID_IProvideClassInfo2);

  void* found = nullptr;
  const auto ask = [&](auto&... parts) { ((found = found ? found : parts.find(iid)), ...); };
  ask(properties, oleObject, inPlace, viewObject, persistence, connections, classInfo,
      quickActivation);
  return found;
}

void VTxtControl::changed(DISPID property) {
  persistence.touch();
  for (const Pointer<IUnknown>& sink : connections.properties.sinks()) {
    static_cast<IPropertyNotifySink*>(sink.get())->OnChanged(property);
  }
  redraw();
}

void VTxtControl::redraw() {
  window.update();
  viewObject.changed();
}

void VTxtControl::log(const char* procedure, const std::exception& error) noexcept {
  try {
    openForms.onError(form.name() + '\t' + procedure, error);
  } catch (...) {
    // There is nowhere else to report a log that cannot be written.
  }
}

}  // namespace quillet::windows
