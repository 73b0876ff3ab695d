// Draws the cells of a grid and edits those that a person may edit.
#pragma once

#include <QFont>
#include <QStyledItemDelegate>
#include <functional>

namespace quillet::desktop {

class GridModel;

class CellPainter : public QStyledItemDelegate {
 public:
  CellPainter(GridModel& model, QWidget* parent);

  // A person finished editing a cell: the grid's row and column, and the text.
  std::function<void(int row, int column, const QString& text)> edited;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& index) const override;
  // The whole text of a cell that is too narrow for it.
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;
  bool eventFilter(QObject* editor, QEvent* event) override;

 private:
  QFont fontOf(const QStyleOptionViewItem& option, const QModelIndex& index) const;

  GridModel& model_;
  mutable QFont plain_, figures_;  // the font asked for last, and its figures
};

}  // namespace quillet::desktop
