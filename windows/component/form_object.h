// A form by names: its own members, then its controls. A host shows and hides it, reads and sets
// what it shows, and rescales it.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "windows/component/control_object.h"
#include "windows/component/font_object.h"
#include "windows/component/form_link.h"
#include "windows/component/named_object.h"

namespace quillet::windows {

class FormObject final : public NamedObject {
 public:
  FormObject(Form& form, FormWindows& windows);

  FormLink& link() { return *link_; }
  Form& form() const { return link_->form(); }
  Pointer<IDispatch> objectOf(Control& control);

  // What the members do.
  void show(const Call& call);
  void hide();
  void move(const Call& call);
  void press(const std::string& key);
  Pointer<IDispatch> controls(const Call& call);
  Pointer<IDispatch> activeControl();
  FontObject& font();
  // Left, Top, Width or Height, in twips.
  double place(std::optional<int> FormWindows::Place::*side);
  void setPlace(std::optional<int> FormWindows::Place::*side, double twips);

  // The form was closed: when it loads again, a host finds and rescales it as it was designed.
  void forgetWishes();

  // For a host's own notes.
  std::string tag;

 protected:
  std::optional<DISPID> idOf(const std::string& name) override;
  Variant invoke(DISPID id, const Call& call) override;

 private:
  Variant callControl(const std::string& name, const Call& call);
  void takeFont();

  std::shared_ptr<FormLink> link_;
  std::unique_ptr<FontObject> font_;                    // made when it is asked for
  std::map<unsigned, Pointer<ControlObject>> objects_;  // by the ids of the controls
  std::vector<std::string> names_;                      // of controls that were asked for
};

}  // namespace quillet::windows
