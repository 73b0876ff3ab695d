#include "desktop/make_view.h"

#include "desktop/choice_view.h"
#include "desktop/grid_view.h"
#include "desktop/mask_box_view.h"
#include "desktop/simple_views.h"
#include "desktop/text_box_view.h"

namespace quillet::desktop {
namespace {

template <class Model, class View>
ControlView* viewOf(Control& control, view::ActionRunner& runner, QWidget* parent) {
  auto* model = dynamic_cast<Model*>(&control);
  return model ? new View(*model, runner, parent) : nullptr;
}

}  // namespace

ControlView* makeView(Control& control, view::ActionRunner& runner, QWidget* parent) {
  using Maker = ControlView* (*)(Control&, view::ActionRunner&, QWidget*);
  static constexpr Maker makers[] = {
      viewOf<TextBox, TextBoxView>, viewOf<MaskBox, MaskBoxView>, viewOf<Grid, GridView>,
      viewOf<Button, ButtonView>,   viewOf<Label, LabelView>,     viewOf<ComboBox, ComboView>,
      viewOf<ListBox, ListView>,    viewOf<CheckBox, ToggleView>, viewOf<OptionButton, ToggleView>,
      viewOf<Frame, FrameView>,
  };
  for (const Maker maker : makers) {
    if (ControlView* view = maker(control, runner, parent)) return view;
  }
  return nullptr;
}

}  // namespace quillet::desktop
