#include "windows/component/control_object.h"

#include "controls/choice.h"
#include "controls/grid.h"
#include "controls/mask_box.h"
#include "controls/text_box.h"
#include "windows/component/members.h"

namespace quillet::windows {
namespace {

template <class Kind>
bool is(const ControlObject& object) {
  return dynamic_cast<const Kind*>(&object.control()) != nullptr;
}

bool hasText(const ControlObject& object) {
  return is<TextBox>(object) || is<MaskBox>(object) || is<Choice>(object);
}

void setText(ControlObject& object, const std::string& text) {
  object.perform([&](Control& control) {
    if (auto* box = dynamic_cast<TextBox*>(&control)) return box->setText(text);
    if (auto* mask = dynamic_cast<MaskBox*>(&control)) return mask->setText(text);
    auto& choice = dynamic_cast<Choice&>(control);
    const int position = choice.find(text);
    if (position == 0) throw errorOf(E_INVALIDARG, "PrjQuillet.Text");
    choice.choose(position);
  });
}

// What a caller means who names the control alone.
Variant value(ControlObject& o, const Call&) {
  if (is<Toggle>(o)) return Variant(o.as<Toggle>().checked());
  return Variant(o.control().text());
}

void setValue(ControlObject& o, const Call& call) {
  if (hasText(o)) return setText(o, textArgument(call.value()));
  if (!is<Toggle>(o)) {
    const std::string caption = textArgument(call.value());
    return o.perform([&](Control& control) { control.setCaption(caption); });
  }
  const bool checked = truthArgument(call.value());
  o.perform([&](Control& control) {
    if (dynamic_cast<Toggle&>(control).checked() != checked) control.form().click(control);
  });
}

int rowOf(const Grid& grid, const VARIANT& value) {
  const int row = numberArgument(value);
  if (row < 0 || row > grid.rows()) throw errorOf(DISP_E_BADINDEX, "PrjQuillet.TextMatrix");
  return row;
}

// Row 0 holds the headings.
Variant cell(ControlObject& o, const Call& call) {
  const auto& grid = o.as<Grid>();
  const int row = rowOf(grid, call[0]);
  const int column = numberArgument(call[1]);
  if (column < 0 || column >= grid.cols()) {
    throw errorOf(DISP_E_BADINDEX, "PrjQuillet.TextMatrix");
  }
  return Variant(row == 0 ? grid.columns()[static_cast<std::size_t>(column)].heading
                          : grid.cell(row, column));
}

Variant listItem(ControlObject& o, const Call& call) {
  const auto& items = o.as<Choice>().items();
  const int at = numberArgument(call[0]);
  if (at < 0 || at >= static_cast<int>(items.size())) {
    throw errorOf(DISP_E_BADINDEX, "PrjQuillet.List");
  }
  return Variant(items[static_cast<std::size_t>(at)]);
}

constexpr Member<ControlObject> controlMembers[] = {
    {"Value", 0, 0, value, setValue},
    {"Name", 0, 0, [](ControlObject& o, const Call&) { return Variant(o.control().name()); }},
    {"Index", 0, 0, [](ControlObject& o, const Call&) { return Variant(o.control().index()); }},
    {"Text", 0, 0, [](ControlObject& o, const Call&) { return Variant(o.control().text()); },
     [](ControlObject& o, const Call& c) { setText(o, textArgument(c.value())); }, hasText},
    {"Caption", 0, 0, [](ControlObject& o, const Call&) { return Variant(o.control().caption()); },
     [](ControlObject& o, const Call& c) {
       const std::string caption = textArgument(c.value());
       o.perform([&](Control& control) { control.setCaption(caption); });
     }},
    {"Enabled", 0, 0, [](ControlObject& o, const Call&) { return Variant(o.control().enabled()); }},
    {"Visible", 0, 0, [](ControlObject& o, const Call&) { return Variant(o.control().visible()); }},
    {"ToolTipText", 0, 0,
     [](ControlObject& o, const Call&) { return Variant(o.control().toolTip()); }},
    {"SetFocus", 0, 0,
     [](ControlObject& o, const Call&) {
       o.perform([](Control& control) {
         if (!control.focusable()) throw errorOf(E_INVALIDARG, "PrjQuillet.SetFocus");
         control.form().focus(control);
       });
       return Variant();
     }},
    {"Click", 0, 0,
     [](ControlObject& o, const Call&) {
       o.perform([](Control& control) {
         if (!control.form().click(control)) throw errorOf(E_INVALIDARG, "PrjQuillet.Click");
       });
       return Variant();
     }},
    {"Locked", 0, 0,
     [](ControlObject& o, const Call&) { return Variant(o.as<TextBox>().locked()); }, nullptr,
     is<TextBox>},
    // --- grids; the row of headings counts
    {"Rows", 0, 0, [](ControlObject& o, const Call&) { return Variant(o.as<Grid>().rows() + 1); },
     nullptr, is<Grid>},
    {"Cols", 0, 0, [](ControlObject& o, const Call&) { return Variant(o.as<Grid>().cols()); },
     nullptr, is<Grid>},
    {"Row", 0, 0, [](ControlObject& o, const Call&) { return Variant(o.as<Grid>().current()); },
     [](ControlObject& o, const Call& c) {
       const int row = rowOf(o.as<Grid>(), c.value());
       o.perform([&](Control& control) { dynamic_cast<Grid&>(control).setCurrent(row); });
     },
     is<Grid>},
    {"TextMatrix", 2, 2, cell, nullptr, is<Grid>},
    // --- lists and combos; positions count from 0, -1 is none
    {"ListCount", 0, 0,
     [](ControlObject& o, const Call&) { return Variant(o.as<Choice>().size()); }, nullptr,
     is<Choice>},
    {"ListIndex", 0, 0,
     [](ControlObject& o, const Call&) { return Variant(o.as<Choice>().chosen() - 1); },
     [](ControlObject& o, const Call& c) {
       const int at = numberArgument(c.value());
       if (at < 0 || at >= o.as<Choice>().size()) {
         throw errorOf(DISP_E_BADINDEX, "PrjQuillet.ListIndex");
       }
       o.perform([&](Control& control) { dynamic_cast<Choice&>(control).choose(at + 1); });
     },
     is<Choice>},
    {"List", 1, 1, listItem, nullptr, is<Choice>},
    // --- what a host sets that rescales a form
    {"Left", 0, 0, [](ControlObject& o, const Call&) { return Variant(o.side("Left")); },
     [](ControlObject& o, const Call& c) { o.side("Left") = realArgument(c.value()); }},
    {"Top", 0, 0, [](ControlObject& o, const Call&) { return Variant(o.side("Top")); },
     [](ControlObject& o, const Call& c) { o.side("Top") = realArgument(c.value()); }},
    {"Width", 0, 0, [](ControlObject& o, const Call&) { return Variant(o.side("Width")); },
     [](ControlObject& o, const Call& c) { o.side("Width") = realArgument(c.value()); }},
    {"Height", 0, 0, [](ControlObject& o, const Call&) { return Variant(o.side("Height")); },
     [](ControlObject& o, const Call& c) { o.side("Height") = realArgument(c.value()); }},
    {"Font", 0, 0, [](ControlObject& o, const Call&) { return Variant(o.font().object()); },
     [](ControlObject& o, const Call& c) { o.font().assign(asObject(c.value()).get()); }},
    {"FontName", 0, 0, [](ControlObject& o, const Call&) { return Variant(o.font().name()); },
     [](ControlObject& o, const Call& c) { o.font().setName(textArgument(c.value())); }},
    {"FontSize", 0, 0, [](ControlObject& o, const Call&) { return Variant(o.font().points()); },
     [](ControlObject& o, const Call& c) { o.font().setPoints(realArgument(c.value())); }},
    {"Tag", 0, 0, [](ControlObject& o, const Call&) { return Variant(o.tag); },
     [](ControlObject& o, const Call& c) { o.tag = textArgument(c.value()); }},
};

}  // namespace

Control& ControlObject::control() const {
  for (Control* control : link_->form().controls()) {
    if (control->id() == id_) return *control;
  }
  throw errorOf(CO_E_OBJNOTCONNECTED, "PrjQuillet");
}

void ControlObject::perform(const std::function<void(Control&)>& action) {
  Control& asked = control();
  link_->perform([&](Form&) { action(asked); });
}

FontObject& ControlObject::font() {
  if (!font_) font_ = std::make_unique<FontObject>();
  return *font_;
}

std::optional<DISPID> ControlObject::idOf(const std::string& name) {
  return memberId<ControlObject>(controlMembers, *this, name);
}

Variant ControlObject::invoke(DISPID id, const Call& call) {
  // The first member is what the control's name alone means.
  return callMember<ControlObject>(controlMembers, *this, id == DISPID_VALUE ? 1 : id, call);
}

}  // namespace quillet::windows
