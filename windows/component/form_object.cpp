#include "windows/component/form_object.h"

#include <algorithm>

#include "controls/key.h"
#include "windows/component/control_list.h"
#include "windows/component/members.h"

namespace quillet::windows {
namespace {

using Place = FormWindows::Place;

// Sizes in points with which a form can still be worked in, whatever a host works out.
constexpr double smallestFont = 6;
constexpr double largestFont = 72;

// Ids from here on are names of controls.
constexpr DISPID firstControl = 1000;

template <std::optional<int> Place::*side>
constexpr Member<FormObject> placeMember(const char* name) {
  return {name, 0, 0, [](FormObject& o, const Call&) { return Variant(o.place(side)); },
          [](FormObject& o, const Call& c) { o.setPlace(side, realArgument(c.value())); }};
}

constexpr Member<FormObject> formMembers[] = {
    {"Controls", 0, 1, [](FormObject& o, const Call& c) { return Variant(o.controls(c)); }},
    {"Show", 0, 1,
     [](FormObject& o, const Call& c) {
       o.show(c);
       return Variant();
     }},
    {"Hide", 0, 0,
     [](FormObject& o, const Call&) {
       o.hide();
       return Variant();
     }},
    {"SetFocus", 0, 0,
     [](FormObject& o, const Call&) {
       o.link().perform([](Form& form) { form.openForms().bringToFront(form); });
       return Variant();
     }},
    {"Move", 1, 4,
     [](FormObject& o, const Call& c) {
       o.move(c);
       return Variant();
     }},
    {"Press", 1, 1,
     [](FormObject& o, const Call& c) {
       o.press(textArgument(c[0]));
       return Variant();
     }},
    {"Name", 0, 0, [](FormObject& o, const Call&) { return Variant(o.form().name()); }},
    {"Caption", 0, 0, [](FormObject& o, const Call&) { return Variant(o.form().caption()); },
     [](FormObject& o, const Call& c) {
       const std::string caption = textArgument(c.value());
       o.link().perform([&](Form& form) { form.setCaption(caption); });
     }},
    {"Visible", 0, 0, [](FormObject& o, const Call&) { return Variant(o.form().visible()); },
     [](FormObject& o, const Call& c) {
       if (truthArgument(c.value())) {
         o.link().perform([](Form& form) { form.show(); });
       } else {
         o.hide();
       }
     }},
    placeMember<&Place::left>("Left"),
    placeMember<&Place::top>("Top"),
    placeMember<&Place::width>("Width"),
    placeMember<&Place::height>("Height"),
    {"Font", 0, 0, [](FormObject& o, const Call&) { return Variant(o.font().object()); },
     [](FormObject& o, const Call& c) { o.font().assign(asObject(c.value()).get()); }},
    {"FontName", 0, 0, [](FormObject& o, const Call&) { return Variant(o.font().name()); },
     [](FormObject& o, const Call& c) { o.font().setName(textArgument(c.value())); }},
    {"FontSize", 0, 0, [](FormObject& o, const Call&) { return Variant(o.font().points()); },
     [](FormObject& o, const Call& c) { o.font().setPoints(realArgument(c.value())); }},
    {"ActiveControl", 0, 0, [](FormObject& o, const Call&) { return Variant(o.activeControl()); }},
    {"hWnd", 0, 0,
     [](FormObject& o, const Call&) { return Variant(HandleToLong(o.link().window())); }},
    {"Tag", 0, 0, [](FormObject& o, const Call&) { return Variant(o.tag); },
     [](FormObject& o, const Call& c) { o.tag = textArgument(c.value()); }},
};

}  // namespace

FormObject::FormObject(Form& form, FormWindows& windows)
    : link_(std::make_shared<FormLink>(FormLink{form.handle(), &windows})) {}

FontObject& FormObject::font() {
  if (!font_) font_ = std::make_unique<FontObject>([this] { takeFont(); });
  return *font_;
}

void FormObject::forgetWishes() { font_.reset(); }

std::optional<DISPID> FormObject::idOf(const std::string& name) {
  if (const auto own = memberId<FormObject>(formMembers, *this, name)) return own;
  const Form& known = form();
  if (!known.find(name) && !known.isArray(name)) return std::nullopt;
  const auto asked = std::find_if(names_.begin(), names_.end(), [&](const std::string& before) {
    return equalIgnoringCase(before, name);
  });
  const auto at = static_cast<DISPID>(asked - names_.begin());
  if (asked == names_.end()) names_.push_back(name);
  return firstControl + at;
}

Variant FormObject::invoke(DISPID id, const Call& call) {
  if (id == DISPID_VALUE) return Variant(controls(call));
  if (id < firstControl) return callMember<FormObject>(formMembers, *this, id, call);
  const auto at = static_cast<std::size_t>(id - firstControl);
  if (at >= names_.size()) throw errorOf(DISP_E_MEMBERNOTFOUND, "PrjQuillet");
  return callControl(names_[at], call);
}

// A control itself, a member of an array of controls, or what the control's value is.
Variant FormObject::callControl(const std::string& name, const Call& call) {
  const Form& owner = form();
  if (owner.isArray(name)) {
    auto array = Pointer<ControlList>::attach(new ControlList(*this, name));
    if (call.count() == 0 && !call.sets()) return Variant(Pointer<IDispatch>(array.get()));
    return array->item(call);
  }
  Control* control = owner.find(name);
  if (!control) throw errorOf(CO_E_OBJNOTCONNECTED, "PrjQuillet");
  if (call.count() == 0 && !call.sets()) return Variant(objectOf(*control));
  objectOf(*control);
  return objects_.at(control->id())->invoke(DISPID_VALUE, call);
}

Pointer<IDispatch> FormObject::objectOf(Control& control) {
  Pointer<ControlObject>& object = objects_[control.id()];
  if (!object) object = Pointer<ControlObject>::attach(new ControlObject(control, link_));
  return Pointer<IDispatch>(object.get());
}

void FormObject::show(const Call& call) {
  const int modal = call.has(0) ? numberArgument(call[0]) : 0;
  if (modal != 0 && modal != 1) throw errorOf(E_INVALIDARG, "PrjQuillet.Show");
  link_->perform([](Form& shown) { shown.show(); });
  // The form itself stays as it is: only the caller waits.
  if (modal == 1 && form().visible()) link_->windows->runUntilClosed(form());
}

void FormObject::hide() {
  if (form().visible()) link_->perform([](Form& hidden) { hidden.close(); });
}

void FormObject::move(const Call& call) {
  constexpr std::optional<int> Place::*sides[] = {&Place::left, &Place::top, &Place::width,
                                                  &Place::height};
  for (std::size_t at = 0; at < call.count(); ++at) {
    if (call.has(at)) setPlace(sides[at], realArgument(call[at]));
  }
}

void FormObject::press(const std::string& name) {
  const std::optional<Key> key = keys::named(name);
  if (!key) throw errorOf(E_INVALIDARG, "PrjQuillet.Press");
  link_->perform([&](Form& pressed) { pressed.press(*key); });
}

Pointer<IDispatch> FormObject::controls(const Call& call) {
  auto all = Pointer<ControlList>::attach(new ControlList(*this, {}));
  if (call.count() == 0) return Pointer<IDispatch>(all.get());
  return asObject(all->item(call));
}

Pointer<IDispatch> FormObject::activeControl() {
  Control* active = form().active();
  return active ? objectOf(*active) : Pointer<IDispatch>();
}

double FormObject::place(std::optional<int> Place::*side) {
  return twips((link_->windows->place(form()).*side).value_or(0), link_->window());
}

void FormObject::setPlace(std::optional<int> Place::*side, double wanted) {
  Place change;
  change.*side = pixels(wanted, link_->window());
  link_->windows->setPlace(form(), change);
}

void FormObject::takeFont() {
  if (!link_->windows || link_->known.expired()) return;
  Place change;
  change.fontPoints = std::clamp(font_->points(), smallestFont, largestFont);
  change.fontName = font_->name();
  link_->windows->setPlace(form(), change);
}

}  // namespace quillet::windows
