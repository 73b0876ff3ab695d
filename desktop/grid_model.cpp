#include "desktop/grid_model.h"

#include "desktop/text.h"
#include "view/cell_look.h"

namespace quillet::desktop {

GridModel::GridModel(Grid& grid, QObject* parent) : QAbstractTableModel(parent), grid_(grid) {
  readShape();
}

const GridColumn& GridModel::column(int at) const {
  return grid_.columns().at(static_cast<std::size_t>(at));
}

void GridModel::readShape() {
  rows_.read(grid_);
  shape_.rows = rows_.count();
  shape_.columns = grid_.cols();
}

void GridModel::refresh() {
  const Shape before = shape_;
  if (before.columns != grid_.cols()) {
    beginResetModel();
    readShape();
    endResetModel();
    return;
  }
  readShape();
  const int after = shape_.rows;
  // The views are told of the difference at the end only and read the rest anew: where a person has
  // scrolled to stays.
  shape_ = before;
  if (after > before.rows) {
    beginInsertRows({}, before.rows, after - 1);
    shape_.rows = after;
    endInsertRows();
  } else if (after < before.rows) {
    beginRemoveRows({}, after, before.rows - 1);
    shape_.rows = after;
    endRemoveRows();
  }
  if (after > 0 && shape_.columns > 0) {
    emit dataChanged(index(0, 0), index(after - 1, shape_.columns - 1));
  }
  if (shape_.columns > 0) emit headerDataChanged(Qt::Horizontal, 0, shape_.columns - 1);
}

int GridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : shape_.rows;
}

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : shape_.columns;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  const int row = gridRow(index.row());
  // A handler may be changing the grid just now; the view is told afterwards.
  if (row < 1 || row > grid_.rows() || index.column() >= grid_.cols()) return {};
  if (role == Qt::DisplayRole) return toQt(view::shownText(grid_, row, index.column()));
  if (role != Qt::EditRole) return {};
  return toQt(grid_.cell(row, index.column()));
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= grid_.cols()) return {};
  if (role == Qt::DisplayRole) return toQt(column(section).heading);
  if (role != Qt::TextAlignmentRole) return {};
  switch (column(section).align) {
    case Align::right:
      return int{Qt::AlignRight | Qt::AlignVCenter};
    case Align::center:
      return int{Qt::AlignCenter};
    case Align::left:
      break;
  }
  return int{Qt::AlignLeft | Qt::AlignVCenter};
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
  if (index.column() < grid_.cols() && column(index.column()).editable) flags |= Qt::ItemIsEditable;
  return flags;
}

}  // namespace quillet::desktop
