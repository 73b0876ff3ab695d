#include "windows/vtxt/events.h"

#include <olectl.h>

#include <algorithm>
#include <vector>

#include "windows/com/errors.h"

namespace quillet::windows {
namespace {

// What a key beyond 16 bits is called to sinks, whose keys are as small as that.
constexpr short unnamed = '?';

Variant small(short number) {
  Variant value;
  value.vt = VT_I2;
  value.iVal = number;
  return value;
}

Variant single(float number) {
  Variant value;
  value.vt = VT_R4;
  value.fltVal = number;
  return value;
}

// Shift 1, Ctrl 2, Alt 4.
Variant heldKeys() {
  const auto held = [](int key, int bit) { return GetKeyState(key) < 0 ? bit : 0; };
  return small(static_cast<short>(held(VK_SHIFT, 1) + held(VK_CONTROL, 2) + held(VK_MENU, 4)));
}

}  // namespace

void Events::raise(DISPID event, std::initializer_list<Variant> arguments) const {
  if (frozen_ > 0) return;
  std::vector<VARIANT> reversed(std::rbegin(arguments), std::rend(arguments));  // borrowed
  for (const Pointer<IUnknown>& sink : sinks_.sinks()) {
    DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    Variant result;
    ExceptionInfo info;
    // What goes wrong in a sink is the sink's to tell.
    static_cast<IDispatch*>(sink.get())
        ->Invoke(event, IID_NULL, callLocale, DISPATCH_METHOD, &parameters, &result, &info,
                 nullptr);
  }
}

void Events::Click() const { raise(DISPID_CLICK); }

void Events::DblClick() const { raise(DISPID_DBLCLICK); }

void Events::KeyDown(short& code) const {
  raise(DISPID_KEYDOWN, {Variant::reference(VT_I2, &code), heldKeys()});
}

void Events::KeyUp(short& code) const {
  raise(DISPID_KEYUP, {Variant::reference(VT_I2, &code), heldKeys()});
}

void Events::KeyPress(Key& key) const {
  const short offered = key > 0xffff ? unnamed : static_cast<short>(key);
  short left = offered;
  raise(DISPID_KEYPRESS, {Variant::reference(VT_I2, &left)});
  if (left != offered) key = static_cast<unsigned short>(left);
}

void Events::MouseDown(short button, POINTF at) const { mouse(DISPID_MOUSEDOWN, button, at); }

void Events::MouseMove(short button, POINTF at) const { mouse(DISPID_MOUSEMOVE, button, at); }

void Events::MouseUp(short button, POINTF at) const { mouse(DISPID_MOUSEUP, button, at); }

void Events::mouse(DISPID event, short button, POINTF at) const {
  raise(event, {small(button), heldKeys(), single(at.x), single(at.y)});
}

}  // namespace quillet::windows
