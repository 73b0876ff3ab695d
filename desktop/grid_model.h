// A grid's cells as Qt's views ask for them: read from the grid at each call, nothing is kept but
// which rows and columns are hidden. Those are no part of the table, so that neither a view nor a
// screen reader comes upon them.
#pragma once

#include <QAbstractTableModel>
#include <vector>

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
  // Between the grid's columns and the shown ones, both from 0, -1 for none.
  int gridColumn(int shown) const;
  int shownColumn(int column) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

  // A shown column, which the grid still has.
  const GridColumn& column(int shown) const;
  bool hasColumn(int shown) const;
  Grid& grid() const { return grid_; }

 private:
  struct Shape {
    int rows = 0;
    std::vector<int> columns;  // the grid's, without the hidden ones
  };
  void readShape();

  Grid& grid_;
  Shape shape_;  // as last told to the views
  view::ShownRows rows_;
};

}  // namespace quillet::desktop
