// The class VTxt: the core's validating text box as a control that a container places. Each group
// of interfaces is a part of its own; what they share stands here.
#pragma once

#include <ole2.h>

#include <exception>
#include <stdexcept>

#include "controls/open_forms.h"
#include "windows/component/module.h"
#include "windows/vtxt/appearance.h"
#include "windows/vtxt/class_info.h"
#include "windows/vtxt/connection_points.h"
#include "windows/vtxt/control_site.h"
#include "windows/vtxt/control_window.h"
#include "windows/vtxt/events.h"
#include "windows/vtxt/in_place.h"
#include "windows/vtxt/ole_object.h"
#include "windows/vtxt/persistence.h"
#include "windows/vtxt/properties.h"
#include "windows/vtxt/quick_activation.h"
#include "windows/vtxt/view_object.h"
#include "windows/vtxt/vtxt_form.h"

namespace quillet::windows {

class VTxtControl final : public IUnknown {
 public:
  // `outer` is the object that aggregates it, or null.
  static HRESULT make(IUnknown* outer, REFIID iid, void** object) noexcept;

  // What its maker holds. Everybody else holds the identity.
  STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
  STDMETHODIMP_(ULONG) AddRef() noexcept override;
  STDMETHODIMP_(ULONG) Release() noexcept override;
  IUnknown& identity() { return identity_; }

  VTxt& box() { return form.box; }

  // A property was set: the container is told, and the box drawn anew.
  void changed(DISPID property);
  // The box looks different.
  void redraw();
  // The core's text and selection are shown, and what an act does to the focus.
  template <class Action>
  void perform(Action action) {
    window.perform(action);
  }

  // Runs a procedure; a run-time error ends it and becomes one line of the error log.
  template <class Body>
  void logErrors(const char* procedure, Body&& body) noexcept {
    try {
      body();
    } catch (const std::exception& error) {
      log(procedure, error);
    } catch (...) {
      log(procedure, std::runtime_error("Something else than an error was thrown."));
    }
  }

  OpenForms openForms;
  VTxtForm form{openForms};
  ControlSite site;
  ConnectionPoints connections{*this};
  Events events{connections.events};
  Appearance appearance;
  ControlWindow window{*this};

  OleObject oleObject{*this};
  InPlace inPlace{*this};
  ViewObject viewObject{*this};
  Properties properties{*this};
  Persistence persistence{*this};
  ClassInfo classInfo{*this};
  QuickActivation quickActivation{*this};

 private:
  explicit VTxtControl(IUnknown* outer);
  ~VTxtControl();

  void log(const char* procedure, const std::exception& error) noexcept;
  void* find(REFIID iid) noexcept;

  module::Use use_;
  IUnknown& identity_;
  ULONG references_ = 1;
};

}  // namespace quillet::windows
