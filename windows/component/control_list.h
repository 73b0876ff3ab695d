// Several controls of a form: all of them, or those of a control array.
#pragma once

#include <string>
#include <vector>

#include "windows/com/pointer.h"
#include "windows/component/named_object.h"

namespace quillet {
class Control;
}

namespace quillet::windows {

class FormObject;

class ControlList final : public NamedObject {
 public:
  // An empty name means all controls.
  ControlList(FormObject& form, std::string name) : form_(&form), name_(std::move(name)) {}

  // By position from 0; of all controls also by name.
  Variant item(const Call& call) const;

 protected:
  std::optional<DISPID> idOf(const std::string& name) override;
  Variant invoke(DISPID id, const Call& call) override;

 private:
  std::vector<Control*> controls() const;
  Control& find(const VARIANT& which) const;
  Variant each() const;

  Pointer<FormObject> form_;
  std::string name_;
};

}  // namespace quillet::windows
