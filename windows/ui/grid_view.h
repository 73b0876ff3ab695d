// A grid of a form: keys move through the model, a click chooses a row, a double click carries it
// on, a click on a heading sorts.
#pragma once

#include <memory>

#include "controls/grid.h"
#include "view/kept_places.h"
#include "windows/ui/cell_editor.h"
#include "windows/ui/control_view.h"
#include "windows/ui/grid_list.h"
#include "windows/ui/tool_tip.h"

namespace quillet::windows {

class GridView : public ControlView {
 public:
  GridView(Grid& grid, view::ActionRunner& runner, HWND parent);
  // Columns are as wide as a person left them, in this run or an earlier one.
  void keepWidthsIn(view::KeptPlaces& kept) { kept_ = &kept; }

  SIZE wantedSize(const Metrics& metrics) const override;
  bool keepsKey(WPARAM code) const override;
  std::optional<LRESULT> notified(NMHDR& what) override;

 protected:
  void draw() override;
  void metricsChanged() override;
  std::string ownName() const override;
  void tellName(const std::wstring& name) override;
  std::optional<LRESULT> received(const WindowMessage& message) override;
  void keysTyped(const std::vector<Key>& typed) override;
  bool commandKey(WPARAM code) override;
  bool mousePressed(const WindowMessage& message, bool arrived) override;

 private:
  void selectionKey(WPARAM code);
  std::string spreadsheetText() const;
  void popUp();
  void doubleClicked(POINT place);
  void showTip(POINT place);
  void headingUsed(const NMHDR& told);
  void rowChosen(const NMHDR& told);
  void fitRows();
  // False when the cell cannot be edited.
  bool edit(GridCell cell);
  void endEditing(bool taken);

  Grid& grid_;
  GridList list_;
  ToolTip tip_;
  GridCell tipped_;  // the cell that the tip is for
  GridCell edited_;
  std::unique_ptr<CellEditor> editor_;
  view::KeptPlaces* kept_ = nullptr;
  int given_ = 0;  // the height that it was given
  bool fitting_ = false;
};

}  // namespace quillet::windows
