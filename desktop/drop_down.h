// The list under a text box: part of the form's window, above its other widgets. It never takes the
// focus; keys go on into the text box, whose handlers move the list's current row.
#pragma once

#include <QFrame>

#include "controls/grid.h"
#include "view/action_runner.h"

namespace quillet::desktop {

class GridTable;

class DropDown : public QFrame {
 public:
  // The list lies on the window.
  DropDown(Grid& grid, view::ActionRunner& runner, QWidget* window);

  // The widget of the text box that the list belongs to now; null while it has no place.
  void attach(QWidget* field) { field_ = field; }

  // Shows, hides and draws the list as its grid stands.
  void refresh();
  Grid& grid() const { return grid_; }
  void detach() { detached_ = true; }

 protected:
  bool eventFilter(QObject* target, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  bool wanted() const;
  void place();
  void tellCurrent(bool shown);

  Grid& grid_;
  view::ActionRunner& runner_;
  QWidget* field_ = nullptr;
  GridTable* table_;
  bool detached_ = false;
};

}  // namespace quillet::desktop
