#include "desktop/grid_model.h"

#include <algorithm>

#include "desktop/text.h"

namespace quillet::desktop {

GridModel::GridModel(Grid& grid, QObject* parent) : QAbstractTableModel(parent), grid_(grid) {
  readShape();
}

const GridColumn& GridModel::column(int at) const {
  return grid_.columns().at(static_cast<std::size_t>(at));
}

void GridModel::readShape() {
  shown_.clear();
  filtered_ = false;
  for (int row = 1; row <= grid_.rows() && !filtered_; ++row) filtered_ = grid_.rowHidden(row);
  for (int row = 1; row <= grid_.rows() && filtered_; ++row) {
    if (!grid_.rowHidden(row)) shown_.push_back(row);
  }
  shape_.rows = filtered_ ? static_cast<int>(shown_.size()) : grid_.rows();
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

int GridModel::gridRow(int shown) const {
  if (shown < 0 || shown >= shape_.rows) return 0;
  return filtered_ ? shown_[static_cast<std::size_t>(shown)] : shown + 1;
}

int GridModel::shownRow(int row) const {
  if (row < 1) return -1;
  if (!filtered_) return row <= shape_.rows ? row - 1 : -1;
  const auto at = std::lower_bound(shown_.begin(), shown_.end(), row);
  return at != shown_.end() && *at == row ? static_cast<int>(at - shown_.begin()) : -1;
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
  if (role != Qt::DisplayRole && role != Qt::EditRole) return {};
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
