#include "windows/ui/make_view.h"

#include "windows/ui/choice_view.h"
#include "windows/ui/grid_view.h"
#include "windows/ui/mask_view.h"
#include "windows/ui/simple_views.h"
#include "windows/ui/text_view.h"

namespace quillet::windows {
namespace {

template <class Model, class View>
std::unique_ptr<ControlView> viewOf(Control& control, view::ActionRunner& runner, HWND parent) {
  auto* model = dynamic_cast<Model*>(&control);
  return model ? std::make_unique<View>(*model, runner, parent) : nullptr;
}

}  // namespace

std::unique_ptr<ControlView> makeView(Control& control, view::ActionRunner& runner, HWND parent) {
  using Maker = std::unique_ptr<ControlView> (*)(Control&, view::ActionRunner&, HWND);
  static constexpr Maker makers[] = {
      viewOf<TextBox, TextView>,    viewOf<MaskBox, MaskView>,        viewOf<Button, ButtonView>,
      viewOf<Label, LabelView>,     viewOf<ComboBox, ComboView>,      viewOf<ListBox, ListView>,
      viewOf<CheckBox, ToggleView>, viewOf<OptionButton, ToggleView>, viewOf<Frame, FrameView>,
      viewOf<Grid, GridView>,
  };
  for (const Maker maker : makers) {
    if (auto view = maker(control, runner, parent)) return view;
  }
  return nullptr;
}

}  // namespace quillet::windows
