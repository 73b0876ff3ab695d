#include "desktop/grid_model.h"

#include <algorithm>

#include "desktop/text.h"
#include "view/cell_look.h"

namespace quillet::desktop {

GridModel::GridModel(Grid& grid, QObject* parent) : QAbstractTableModel(parent), grid_(grid) {
  readShape();
}

int GridModel::gridColumn(int shown) const {
  const auto& columns = shape_.columns;
  const bool there = shown >= 0 && shown < static_cast<int>(columns.size());
  return there ? columns[static_cast<std::size_t>(shown)] : -1;
}

int GridModel::shownColumn(int column) const {
  const auto& columns = shape_.columns;
  const auto found = std::find(columns.begin(), columns.end(), column);
  return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

// A handler may be changing the grid just now; the view is told afterwards.
bool GridModel::hasColumn(int shown) const {
  const int column = gridColumn(shown);
  return column >= 0 && column < grid_.cols();
}

const GridColumn& GridModel::column(int shown) const {
  return grid_.columns().at(static_cast<std::size_t>(gridColumn(shown)));
}

void GridModel::readShape() {
  rows_.read(grid_);
  shape_.rows = rows_.count();
  shape_.columns.clear();
  for (int column = 0; column < grid_.cols(); ++column) {
    if (!grid_.columns()[static_cast<std::size_t>(column)].hidden) shape_.columns.push_back(column);
  }
}

void GridModel::refresh() {
  const Shape before = shape_;
  readShape();
  if (before.columns != shape_.columns) {
    shape_ = before;
    beginResetModel();
    readShape();
    endResetModel();
    return;
  }
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
  const int lastColumn = columnCount() - 1;
  if (lastColumn < 0) return;
  if (after > 0) emit dataChanged(index(0, 0), index(after - 1, lastColumn));
  emit headerDataChanged(Qt::Horizontal, 0, lastColumn);
}

int GridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : shape_.rows;
}

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(shape_.columns.size());
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  const int row = gridRow(index.row());
  if (row < 1 || row > grid_.rows() || !hasColumn(index.column())) return {};
  const int column = gridColumn(index.column());
  if (role == Qt::DisplayRole) return toQt(view::shownText(grid_, row, column));
  return role == Qt::EditRole ? toQt(grid_.cell(row, column)) : QVariant();
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || !hasColumn(section)) return {};
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
  if (hasColumn(index.column()) && column(index.column()).editable) flags |= Qt::ItemIsEditable;
  return flags;
}

}  // namespace quillet::desktop
