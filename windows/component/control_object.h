// A control by names, as far as its kind has what they mean. Its place is the layout's: what a host
// sets there is kept and handed back, and moves nothing.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "windows/component/font_object.h"
#include "windows/component/form_link.h"
#include "windows/component/named_object.h"

namespace quillet::windows {

class ControlObject final : public NamedObject {
 public:
  ControlObject(Control& control, std::shared_ptr<FormLink> link)
      : link_(std::move(link)), id_(control.id()) {}

  // Throws when the form or the control is gone: rows of controls come and go.
  Control& control() const;
  // The control as the kind that a member is of.
  template <class Kind>
  Kind& as() const {
    return dynamic_cast<Kind&>(control());
  }
  void perform(const std::function<void(Control&)>& action);

  FontObject& font();
  double& side(const char* name) { return sides_[name]; }
  std::string tag;

  Variant invoke(DISPID id, const Call& call) override;

 protected:
  std::optional<DISPID> idOf(const std::string& name) override;

 private:
  std::shared_ptr<FormLink> link_;
  unsigned id_;
  std::unique_ptr<FontObject> font_;  // made when it is asked for
  std::map<std::string, double> sides_;
};

}  // namespace quillet::windows
