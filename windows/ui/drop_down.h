// The list under a text box, in a window of its own above the form's. It never takes the focus and
// never becomes active; keys go on into the text box, whose handlers move the list's current row.
#pragma once

#include <memory>

#include "controls/grid.h"
#include "view/action_runner.h"
#include "windows/ui/grid_list.h"
#include "windows/ui/owned_window.h"

namespace quillet::windows {

class DropDown : public OwnedWindow {
 public:
  DropDown(Grid& grid, view::ActionRunner& runner, HWND formWindow);
  ~DropDown() override;

  Grid& grid() const { return grid_; }
  void setMetrics(const Metrics& metrics);
  // The window of the text box that the list belongs to now; null while it has no place.
  void attach(HWND field) { field_ = field; }

  // Shows, hides and draws the list as its grid stands, where its field is now.
  void refresh();
  void detach() { detached_ = true; }

 protected:
  std::optional<LRESULT> handle(const WindowMessage& message) override;

 private:
  class Rows;

  bool wanted() const;
  void place();
  void choose(POINT place);

  Grid& grid_;
  view::ActionRunner& runner_;
  HWND formWindow_;
  HWND field_ = nullptr;
  std::unique_ptr<Rows> rows_;
  const Metrics* metrics_ = nullptr;
  bool detached_ = false;
};

}  // namespace quillet::windows
