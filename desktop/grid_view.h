// A grid of a form: keys move through the model, a click chooses a row, a double click carries it
// on, a click on a heading sorts.
#pragma once

#include "controls/grid.h"
#include "desktop/control_view.h"

class QPoint;

namespace quillet::view {
class KeptPlaces;
}

namespace quillet::desktop {

class GridTable;

class GridView : public ControlView {
 public:
  GridView(Grid& grid, view::ActionRunner& runner, QWidget* parent);
  // Columns are as wide as a person left them, in this run or an earlier one.
  void keepWidthsIn(view::KeptPlaces& places) { places_ = &places; }

 protected:
  void draw() override;
  bool keyPressed(QKeyEvent& event) override;
  bool mousePressed(QObject* target, QMouseEvent& event, bool arrived) override;
  bool otherEvent(QObject* target, QEvent& event) override;

 private:
  void doubleClicked(const QPoint& place);
  bool selectionKey(const QKeyEvent& event);
  void popUp();
  bool edit(int row, int column);
  void widen(int shown);

  Grid& grid_;
  GridTable* table_;
  view::KeptPlaces* places_ = nullptr;
};

}  // namespace quillet::desktop
