// A grid's cells as Qt's views ask for them: read from the grid at each call, nothing is kept but
// which rows are hidden.
#pragma once

#include <QAbstractTableModel>

#include "controls/grid.h"
#include "view/shown_rows.h"

namespace quillet::desktop {

class GridModel : public QAbstractTableModel {
 public:
  GridModel(Grid& grid, QObject* parent);

  // Takes notice of what changed in the grid. Rows that stay keep their place on the screen.
  void refresh();

  // Between the grid's rows (from 1) and the shown ones (from 0, -1 when it is not shown).
  int gridRow(int shown) const { return rows_.gridRow(shown); }
  int shownRow(int row) const { return rows_.shownRow(row); }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

  const GridColumn& column(int at) const;
  Grid& grid() const { return grid_; }

 private:
  struct Shape {
    int rows = 0;
    int columns = 0;
  };
  void readShape();

  Grid& grid_;
  Shape shape_;  // as last told to the views
  view::ShownRows rows_;
};

}  // namespace quillet::desktop
