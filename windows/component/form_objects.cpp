#include "windows/component/form_objects.h"

namespace quillet::windows {

FormObject& FormObjects::objectOf(Form& form) {
  // Another form may have stood at the same address.
  std::erase_if(objects_, [](const auto& entry) { return entry.second->link().known.expired(); });
  Pointer<FormObject>& object = objects_[&form];
  if (!object) object = Pointer<FormObject>::attach(new FormObject(form, windows_));
  return *object;
}

Pointer<IDispatch> FormObjects::of(Form& form) { return Pointer<IDispatch>(&objectOf(form)); }

Pointer<IDispatch> FormObjects::of(Control& control) {
  return objectOf(control.form()).objectOf(control);
}

void FormObjects::closed(const Form& form) {
  const auto known = objects_.find(&form);
  if (known != objects_.end()) known->second->forgetWishes();
}

void FormObjects::letGo() {
  for (const auto& [form, object] : objects_) object->link().windows = nullptr;
  objects_.clear();
}

}  // namespace quillet::windows
