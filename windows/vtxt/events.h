// The control's events, as its container hears them.
#pragma once

#include <windows.h>

#include <initializer_list>

#include "controls/key.h"
#include "windows/com/variant.h"
#include "windows/vtxt/connection_points.h"

namespace quillet::windows {

class Events {
 public:
  explicit Events(ConnectionPoint& sinks) : sinks_(sinks) {}

  void Change() const { raise(1); }
  void GotFocus() const { raise(2); }
  void LostFocus() const { raise(3); }
  void Click() const;
  void DblClick() const;
  // The sinks may change the key, zero discards it.
  void KeyDown(short& code) const;
  void KeyPress(Key& key) const;
  void KeyUp(short& code) const;
  // In the container's units.
  void MouseDown(short button, POINTF at) const;
  void MouseMove(short button, POINTF at) const;
  void MouseUp(short button, POINTF at) const;

  // The container wants to hear nothing for a while.
  void freeze(bool frozen) { frozen_ += frozen ? 1 : frozen_ > 0 ? -1 : 0; }

 private:
  // The arguments in their order.
  void raise(DISPID event, std::initializer_list<Variant> arguments = {}) const;
  void mouse(DISPID event, short button, POINTF at) const;

  ConnectionPoint& sinks_;
  int frozen_ = 0;
};

}  // namespace quillet::windows
