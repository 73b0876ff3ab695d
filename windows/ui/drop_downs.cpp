#include "windows/ui/drop_downs.h"

#include <utility>

#include "view/form_controls.h"
#include "windows/ui/message_scope.h"

namespace quillet::windows {

void DropDowns::arrange() {
  auto before = std::exchange(lists_, {});
  for (Grid* grid : view::dropDowns(form_)) {
    std::shared_ptr<DropDown>& list = lists_[grid->id()];
    const auto known = before.extract(grid->id());
    list = known ? known.mapped() : std::make_shared<DropDown>(*grid, runner_, window_);
    if (!known && metrics_) list->setMetrics(*metrics_);
  }
  for (auto& [id, list] : before) {
    list->detach();
    ShowWindow(list->window(), SW_HIDE);
    MessageScope::discard(std::move(list));
  }
}

void DropDowns::setMetrics(const Metrics& metrics) {
  metrics_ = &metrics;
  for (const auto& [id, list] : lists_) list->setMetrics(metrics);
}

void DropDowns::refresh(const FormViews& views) {
  for (const auto& [id, list] : lists_) {
    // One list may serve several text boxes in turn.
    const ControlView* field = views.viewOf(list->grid().dropOf());
    list->attach(field ? field->window() : nullptr);
    list->refresh();
  }
}

void DropDowns::detach() {
  for (const auto& [id, list] : lists_) {
    list->detach();
    ShowWindow(list->window(), SW_HIDE);
  }
}

}  // namespace quillet::windows
