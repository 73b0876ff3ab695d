#include "controls/spoken_name.h"

#include "controls/caption_marks.h"
#include "controls/form.h"

namespace quillet {
namespace {

const LayoutItem* placeOf(const Control& control, const LayoutItem& node) {
  if (node.control == &control) return &node;
  for (const LayoutItem& child : node.children) {
    if (const LayoutItem* found = placeOf(control, child)) return found;
  }
  return nullptr;
}

}  // namespace

std::string spokenName(const Control& control) {
  if (const LayoutItem* place = placeOf(control, control.form().arrangement())) {
    const std::string& given = place->name.empty() ? place->label : place->name;
    if (!given.empty()) return withoutMarks(given);
  }
  const std::string caption = withoutMarks(control.caption());
  return caption.empty() ? control.toolTip() : caption;
}

}  // namespace quillet
