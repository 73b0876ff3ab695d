// A table of texts under fixed headings. Rows count from 1 (0 means none), columns from 0. Each row
// has an id, which stays with it wherever it moves: what the row stands for, known to the form
// alone. A view reads the cells on demand, so a grid of many thousand rows costs nothing to show;
// the cells of rows set with setRows are not even made before.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "controls/control.h"
#include "controls/letter_search.h"
#include "controls/row_selection.h"
#include "data/align.h"

namespace quillet {

struct GridColumn {
  std::string heading;
  Align align = Align::left;
  bool hidden = false;
  int width = 12;  // in characters; the proposal that a person may change
  bool stretch = false;
  bool editable = false;
  bool tick = false;     // the cell is a tick: "1" or ""
  bool numeric = false;  // sorts by value
  bool dated = false;    // sorts by day and time; a cell is written day, month, year
};

class Grid : public Control {
 public:
  using Control::Control;

  // Replaces the columns and removes every row.
  void setColumns(std::vector<GridColumn> columns);
  const std::vector<GridColumn>& columns() const { return columns_; }
  void setColumnHidden(int column, bool hidden);
  void setColumnWidth(int column, int width);
  int cols() const { return static_cast<int>(columns_.size()); }
  int rows() const { return static_cast<int>(rows_.size()); }

  // Adds a row at the end and returns its number; missing cells are empty.
  int addRow(std::vector<std::string> cells, long id = 0);
  void insertRow(int row, std::vector<std::string> cells, long id = 0);
  // Replaces the rows by that many with the ids 1, 2, 3 and so on. The cells of a row are asked for
  // by its id when they are first read.
  using Cells = std::function<std::vector<std::string>(int id)>;
  void setRows(int rows, Cells cells);
  void removeRow(int row);
  // Moves a row, with all that it holds; a current row stays current.
  void moveRow(int from, int to);
  // Removes the rows for which it is true, in one pass. A current row that goes leaves none.
  void removeRowsIf(const std::function<bool(int row)>& condition);
  // Removes every row; the current row becomes 0.
  void clearRows();
  // Makes room for that many more rows.
  void reserve(int rows);

  long rowId(int row) const { return at(row).id; }
  // The id of the current row, 0 when there is none.
  long currentId() const { return current_ == 0 ? 0 : rowId(current_); }
  // The first row with that id, 0 when there is none.
  int findId(long id) const;

  const std::string& cell(int row, int column) const;
  void setCell(int row, int column, std::string text);
  // The column with that heading (without regard to case), -1 when there is none.
  int columnNamed(std::string_view heading) const;
  // The first row from `from` on whose cell of the column equals the text, 0 when there is none.
  int find(int column, std::string_view text, int from = 1) const;

  bool rowHidden(int row) const;
  void setRowHidden(int row, bool hidden);
  // Emphasised rows are drawn bold: totals and headings.
  bool rowEmphasised(int row) const;
  void setRowEmphasised(int row, bool emphasised);

  bool ticked(int row) const;
  // What a person does on the tick cell; runs AfterEdit.
  void tick(int row, bool on);
  // What a person does in an editable cell; runs AfterEdit.
  void edit(int row, int column, std::string text);

  // The current row, 0 for none. Setting it runs RowColChange when it changes.
  int current() const { return current_; }
  void setCurrent(int row);

  // Orders the rows by a column as a click on its heading does: stable, ascending the first time,
  // the other way round when it is already ordered so. Keeps the current row; runs AfterSort.
  void sortBy(int column);
  // Puts rows that came or changed where the order has them.
  void sortAgain();
  int sortColumn() const { return sortColumn_; }
  bool sortAscending() const { return sortAscending_; }
  // Whether a person may order the rows: not where their order says something.
  bool sortable = true;
  // An outline: rows that are not emphasised stay with the emphasised one above them, which is
  // ordered by its own text or by the sum of all their figures.
  bool outline = false;
  // Forgets the order, for a grid that was filled anew.
  void clearSort();

  // The drop-down of a text box: drawn under it while visible, without headings.
  Control* dropOf() const { return dropOf_; }
  void setDropOf(Control& box) { set<Control*>(dropOf_, &box); }
  // Rows of alternating shade, where long lines are read across.
  bool zebra() const { return zebra_; }
  void setZebra(bool zebra) { set(zebra_, zebra); }
  // As high as so many rows, for a grid that always holds few; 0 takes what room there is.
  int fixedRows() const { return fixedRows_; }
  void setFixedRows(int rows) { set(fixedRows_, rows); }

  // What the grid says in place of its rows while it has none.
  const std::string& emptyText() const { return emptyText_; }
  void setEmptyText(std::string text) { set(emptyText_, std::move(text)); }

  // The grid itself remembers how wide a person made its columns.
  virtual bool keepsWidths() const { return false; }

  bool takesFocus() const override { return dropOf_ == nullptr; }
  // Up, Down, Page Up, Page Down, Home, End move the current row over the rows not hidden, letters
  // to one that begins with them. The blank turns the tick; without ticks it goes on with the
  // letters.
  bool handleKey(Key key) override;
  void checkLeft() override { search_.end(); }
  // The text of a row that letters are compared with, in place of a cell.
  std::function<std::string_view(int row)> searchedText;

  // The rows that a person chose to copy.
  RowSelection selection{*this};

  // Moves on whenever rows, cells or columns change; not when only the current row does.
  unsigned contentVersion() const { return contentVersion_; }

  Event<> RowColChange{form(), name(), "ROWCOLCHANGE"};
  // A person selected other rows; not when the selection only lapses.
  Event<> SelChange{form(), name(), "SELCHANGE"};
  Event<> AfterSort{form(), name(), "AFTERSORT"};
  Event<int, int> AfterEdit{form(), name(), "AFTEREDIT"};  // row, column
  // A click on the words of an empty grid.
  Event<> EmptyClick{form(), name(), "EMPTYCLICK"};
  // The right mouse button or the menu key on the current row.
  Event<> Popup{form(), name(), "POPUP"};

 private:
  friend class RowSelection;
  struct Row {
    mutable std::vector<std::string> cells;
    mutable bool made = true;  // the cells were given, or asked for
    long id = 0;
    bool hidden = false;
    bool emphasised = false;
  };
  std::vector<std::string>& cellsOf(const Row& row) const;
  void changed();
  void moveBy(int rows);
  bool searchFor(Key letter);
  int tickColumn() const;
  Row& at(int row);
  const Row& at(int row) const;

  std::vector<GridColumn> columns_;
  std::vector<Row> rows_;
  Cells cells_;
  int current_ = 0;
  int sortColumn_ = -1;
  bool sortAscending_ = true;
  LetterSearch search_;
  unsigned contentVersion_ = 1;
  Control* dropOf_ = nullptr;
  bool zebra_ = false;
  int fixedRows_ = 0;
  std::string emptyText_;
};

}  // namespace quillet
