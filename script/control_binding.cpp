#include "script/control_binding.h"

#include <algorithm>

#include "controls/basic_controls.h"
#include "controls/choice.h"
#include "controls/grid.h"
#include "controls/mask_box.h"
#include "controls/pasted_cells.h"
#include "controls/text_box.h"
#include "script/keys.h"
#include "script/member.h"
#include "script/metatable.h"
#include "script/session.h"

namespace quillet::script {
namespace {

template <class Kind>
const Kind& as(const Control& control) {
  return dynamic_cast<const Kind&>(control);
}
template <class Kind>
Kind& as(Control& control) {
  return dynamic_cast<Kind&>(control);
}

// --- visible and enabled: a menu entry is neither when its heading is not ------------------------

bool visible(const Control& control) {
  const auto* entry = dynamic_cast<const MenuEntry*>(&control);
  return control.shown() && (!entry || !entry->parent() || visible(*entry->parent()));
}

bool enabled(const Control& control) {
  const auto* entry = dynamic_cast<const MenuEntry*>(&control);
  return control.enabled() && (!entry || !entry->parent() || enabled(*entry->parent()));
}

void mustBeUsable(const Control& control) {
  if (!visible(control)) throw Error(describe(control) + " is hidden");
  if (!enabled(control)) throw Error(describe(control) + " is disabled");
}

// --- every control ------------------------------------------------------------------------------

int focus(Call& call, Control& control) {
  bool arrived = false;
  call.session().act([&] {
    bringToFront(call.session(), control.form());
    arrived = control.form().focus(control);
  });
  return call.give(arrived);
}

int press(Call& call, Control& control) {
  const Key key = keyNamed(call.text(2));
  call.session().act([&] {
    focusOn(call.session(), control);
    control.form().press(key);
  });
  return call.none();
}

int paste(Call& call, Control& control) {
  const std::string text = call.text(2);
  call.session().act([&] {
    focusOn(call.session(), control);
    if (!pasteCells(control, text)) throw Error(describe(control) + " takes no cells of that text");
    control.form().repairFocus();
  });
  return call.none();
}

constexpr Member common[] = {
    {"name", [](const Call& call, const Control& control) { return call.give(control.name()); }},
    {"text", [](const Call& call, const Control& control) { return call.give(control.text()); }},
    {"caption",
     [](const Call& call, const Control& control) { return call.give(control.caption()); }},
    {"enabled",
     [](const Call& call, const Control& control) { return call.give(enabled(control)); }},
    {"visible",
     [](const Call& call, const Control& control) { return call.give(visible(control)); }},
    {"focus", nullptr, focus},
    {"press", nullptr, press},
    {"paste", nullptr, paste},
};

// --- text and date boxes ------------------------------------------------------------------------

// Presses key after key; a key may close the form.
void pressAll(const Session& session, Form& form, const std::u32string& typed) {
  const auto& open = session.openForms().open();
  for (const Key key : typed) {
    if (std::find(open.begin(), open.end(), &form) == open.end()) {
      throw Error("the form was closed while text was typed into it");
    }
    form.press(key);
  }
}

int typeText(Call& call, Control& control) {
  const std::u32string typed = keysTyping(call.text(2));
  call.session().act([&] {
    focusOn(call.session(), control);
    as<TextBox>(control).selectAll();
    // An empty text deletes the selection.
    pressAll(call.session(), control.form(), typed.empty() ? std::u32string{keys::Delete} : typed);
  });
  return call.none();
}

int typeDate(Call& call, Control& control) {
  const std::u32string typed = keysTyping(call.text(2));
  call.session().act([&] {
    focusOn(call.session(), control);
    as<MaskBox>(control).clear();
    as<MaskBox>(control).setCaret(0);
    pressAll(call.session(), control.form(), typed);
  });
  return call.none();
}

constexpr Member textMembers[] = {{"type", nullptr, typeText}};
constexpr Member dateMembers[] = {{"type", nullptr, typeDate}};

// --- what is clicked ----------------------------------------------------------------------------

// False when the control that had the focus keeps it because its text is not valid.
int click(Call& call, Control& control) {
  bool clicked = false;
  call.session().act([&] {
    bringToFront(call.session(), control.form());
    mustBeUsable(control);
    clicked = control.form().click(control);
  });
  return call.give(clicked);
}

int checked(const Call& call, const Control& control) {
  return call.give(as<Toggle>(control).checked());
}

constexpr Member buttonMembers[] = {{"click", nullptr, click}};
constexpr Member toggleMembers[] = {{"click", nullptr, click}, {"checked", checked}};

// --- combo and list -----------------------------------------------------------------------------

int positionOf(const Call& call, const Choice& choice) {
  if (!call.isNumber(2)) {
    if (const int position = choice.find(call.text(2))) return position;
    throw Error(describe(choice) + " has no item '" + call.text(2) + "'");
  }
  const int position = call.integer(2);
  if (position >= 1 && position <= choice.size()) return position;
  throw Error(describe(choice) + " has no item " + std::to_string(position) + "; there are " +
              std::to_string(choice.size()));
}

int choose(Call& call, Control& control) {
  call.session().act([&] {
    focusOn(call.session(), control);
    Form& form = control.form();
    as<Choice>(control).choose(positionOf(call, as<Choice>(control)));
    form.repairFocus();
  });
  return call.none();
}

constexpr Member choiceMembers[] = {
    {"items", [](const Call& call,
                 const Control& control) { return call.give(as<Choice>(control).items()); }},
    {"index", [](const Call& call,
                 const Control& control) { return call.give(as<Choice>(control).chosen()); }},
    {"choose", nullptr, choose},
};

// --- looking members up -------------------------------------------------------------------------

std::span<const Member> ownMembers(const Control& control) {
  if (dynamic_cast<const Grid*>(&control)) return gridMembers();
  if (dynamic_cast<const TextBox*>(&control)) return textMembers;
  if (dynamic_cast<const MaskBox*>(&control)) return dateMembers;
  if (dynamic_cast<const Choice*>(&control)) return choiceMembers;
  if (dynamic_cast<const Toggle*>(&control)) return toggleMembers;
  if (dynamic_cast<const Button*>(&control)) return buttonMembers;
  return {};
}

const Member& memberOf(const Control& control, std::string_view name) {
  const auto members = {std::span<const Member>(common), ownMembers(control)};
  for (const auto& table : members) {
    const auto called = [&](const Member& member) { return member.name == name; };
    const auto at = std::find_if(table.begin(), table.end(), called);
    if (at != table.end()) return *at;
  }
  throw Error(describe(control) + " has no member '" + std::string(name) + "'");
}

int callMethod(Call& call) {
  const auto* name = lua_tostring(call.state(), lua_upvalueindex(1));
  Control& control = controlOf(call.session(), handleAt(call, 1, controlType));
  return memberOf(control, name).call(call, control);
}

int indexArray(Call& call, const Handle& handle) {
  const int member = call.integer(2);
  const Form& form = formOf(call.session(), handle);
  if (handle.index >= 0 || !form.isArray(handle.name)) {
    throw Error(std::string(handle.name) + " of " + form.name() + " is not an array");
  }
  if (form.find(handle.name, member) == nullptr) return call.nil();
  pushControl(call.state(), handle, handle.name, member);
  return 1;
}

int indexControl(Call& call) {
  const Handle handle = handleAt(call, 1, controlType);
  if (call.isNumber(2)) return indexArray(call, handle);
  const Control& control = controlOf(call.session(), handle);
  const Member& member = memberOf(control, call.text(2));
  if (member.get) return member.get(call, control);
  lua_pushlstring(call.state(), member.name.data(), member.name.size());
  lua_pushcclosure(call.state(), entry<callMethod>, 1);
  return 1;
}

int setInControl(Call& call) {
  throw Error("'" + call.text(2) + "' of a control cannot be set; a script acts as a person does");
}

int equalControls(Call& call) {
  const Control& a = controlOf(call.session(), handleAt(call, 1, controlType));
  return call.give(&a == &controlOf(call.session(), handleAt(call, 2, controlType)));
}

int controlText(Call& call) {
  const Handle handle = handleAt(call, 1, controlType);
  return call.give(std::string(handle.name) + " of " + handle.formName);
}

}  // namespace

void focusOn(Session& session, Control& control) {
  bringToFront(session, control.form());
  mustBeUsable(control);
  Form& form = control.form();
  if (form.active() == &control || form.focus(control)) return;
  throw Error(describe(control) + " cannot take the focus; it is at " +
              (form.active() ? form.active()->name() : std::string("none")));
}

void registerControls(lua_State* state) {
  registerType(state, controlType,
               {{"__index", entry<indexControl>},
                {"__newindex", entry<setInControl>},
                {"__eq", entry<equalControls>},
                {"__tostring", entry<controlText>}});
}

}  // namespace quillet::script
